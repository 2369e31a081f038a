// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace giggle {

class NavigationController;
struct SharedSelection;

/// The way of a file from outside to the import screen: one that the application was started with, that the
/// system wants opened, or that was dropped on the window. It waits until the root screen is there and
/// nothing lies over it; of several that wait the last one counts.
class DocumentOpening : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the only one.")
    Q_PROPERTY(bool isBlocked READ isBlocked WRITE setBlocked NOTIFY blockedChanged)

public:
    /// Both must outlive it.
    DocumentOpening(NavigationController& navigation, SharedSelection& selection);

    Q_INVOKABLE void open(const QUrl& document);

    /// Whether the window shows something over the page that has to be answered first.
    [[nodiscard]] bool isBlocked() const { return m_isBlocked; }

    void setBlocked(bool isBlocked);

signals:
    void blockedChanged();

private:
    void proceed();

    NavigationController& m_navigation;
    SharedSelection& m_selection;
    QUrl m_waiting;
    bool m_isBlocked = false;
};

} // namespace giggle
