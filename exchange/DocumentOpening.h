// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace giggle {

class NavigationController;
struct SharedSelection;

/// The way of a file from outside to the import screen: one that the application was started with, that the
/// system wants opened, or that was dropped on the window. It waits until the root screen is there and no
/// alert is on show; of several that wait the last one counts.
class DocumentOpening : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the only one.")

public:
    /// Both must outlive it.
    DocumentOpening(NavigationController& navigation, SharedSelection& selection);

    Q_INVOKABLE void open(const QUrl& document);

private:
    void proceed();

    NavigationController& m_navigation;
    SharedSelection& m_selection;
    QUrl m_waiting;
};

} // namespace giggle
