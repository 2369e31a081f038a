// SPDX-License-Identifier: MIT
#include "ui/ReviewInvitation.h"

#include "platform/AddressOpener.h"
#include "platform/DeploymentAddresses.h"
#include "platform/StoreReview.h"
#include "ui/NavigationController.h"

namespace giggle {

ReviewInvitation::ReviewInvitation(StoreReview& storeReview, AddressOpener& addressOpener,
                                   NavigationController& navigation)
    : m_addressOpener(addressOpener), m_navigation(navigation)
{
    connect(&storeReview, &StoreReview::invitationRequested, this, [this] { setShown(true); });
}

void ReviewInvitation::rate()
{
    setShown(false);
    const QUrl page = DeploymentAddresses::storePage();
    if (!m_addressOpener.open(page))
        m_navigation.setNotice(QStringLiteral("There is no program that could open %1").arg(page.toString()));
}

void ReviewInvitation::dismiss()
{
    setShown(false);
}

void ReviewInvitation::setShown(bool shown)
{
    if (m_shown == shown)
        return;
    m_shown = shown;
    emit shownChanged();
}

} // namespace giggle
