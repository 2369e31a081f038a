// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxStoreReview.h"

#include <QGuiApplication>

namespace giggle {

namespace {

StoreReview::ActivationState activationState()
{
    switch (QGuiApplication::applicationState()) {
    case Qt::ApplicationActive:
        return StoreReview::ActivationState::ForegroundActive;
    case Qt::ApplicationInactive:
        return StoreReview::ActivationState::ForegroundInactive;
    case Qt::ApplicationHidden:
    case Qt::ApplicationSuspended:
        break;
    }
    return StoreReview::ActivationState::Background;
}

} // namespace

int LinuxStoreReview::systemMajorVersion() const
{
    return FirstVersionWithRequestsInScenes; // not the kernel's
}

std::vector<StoreReview::Scene> LinuxStoreReview::connectedScenes() const
{
    return {{.activationState = activationState()}};
}

void LinuxStoreReview::requestReview()
{
    emit invitationRequested();
}

void LinuxStoreReview::requestReviewInScene(const Scene&)
{
    emit invitationRequested();
}

} // namespace giggle
