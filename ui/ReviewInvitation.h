// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace giggle {

class AddressOpener;
class NavigationController;
class StoreReview;

/// The invitation to rate the application that the window shows when the platform asks it to. It stays until
/// the user answers it.
class ReviewInvitation : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the only one.")
    Q_PROPERTY(bool shown READ shown NOTIFY shownChanged)

public:
    /// All of them must outlive the invitation.
    ReviewInvitation(StoreReview& storeReview, AddressOpener& addressOpener,
                     NavigationController& navigation);

    [[nodiscard]] bool shown() const { return m_shown; }

    /// Takes the invitation away and opens the application's page. Where no program takes its address, a
    /// notice tells it.
    Q_INVOKABLE void rate();

    Q_INVOKABLE void dismiss();

signals:
    void shownChanged();

private:
    void setShown(bool shown);

    AddressOpener& m_addressOpener;
    NavigationController& m_navigation;
    bool m_shown = false;
};

} // namespace giggle
