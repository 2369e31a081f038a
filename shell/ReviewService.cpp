// SPDX-License-Identifier: MIT
#include "shell/ReviewService.h"

#include "platform/StoreReview.h"
#include "store/FatalError.h"
#include "store/PreferenceKeys.h"
#include "store/Preferences.h"

#include <algorithm>
#include <utility>

namespace giggle {

namespace {

constexpr int DaysBetweenRequests = 7;

} // namespace

ReviewService::ReviewService(Preferences& defaults, StoreReview& storeReview, Clock now)
    : m_defaults(defaults), m_storeReview(storeReview), m_now(std::move(now))
{
}

std::optional<QDateTime> ReviewService::lastRequest() const
{
    return m_defaults.date(PreferenceKeys::ReviewServiceLastRequest);
}

void ReviewService::setLastRequest(const std::optional<QDateTime>& moment)
{
    m_defaults.setDate(PreferenceKeys::ReviewServiceLastRequest, moment);
    m_defaults.synchronize();
}

bool ReviewService::canRequestReview() const
{
    const std::optional<QDateTime> last = lastRequest();
    if (!last)
        return true;
    // In local time, where the days that clocks are put forward or back on are not 24 hours long.
    const QDateTime limit = m_now().toLocalTime().addDays(-DaysBetweenRequests);
    if (!limit.isValid())
        fatalError(QStringLiteral("The day %1 days ago cannot be told.").arg(DaysBetweenRequests), __FILE__,
                   __LINE__);
    return *last < limit;
}

void ReviewService::requestReviewIfDue()
{
    if (!canRequestReview())
        return;
    requestReview();
    setLastRequest(m_now());
}

void ReviewService::requestReview()
{
    const int version = m_storeReview.systemMajorVersion();
    if (version < StoreReview::FirstVersionWithScenes) {
        m_storeReview.requestReview();
        return;
    }
    const std::vector<StoreReview::Scene> scenes = m_storeReview.connectedScenes();
    const auto active = std::find_if(scenes.begin(), scenes.end(), [](const StoreReview::Scene& scene) {
        return scene.activationState == StoreReview::ActivationState::ForegroundActive;
    });
    if (active == scenes.end() || !active->isWindow)
        return;
    if (version < StoreReview::FirstVersionWithRequestsInScenes)
        m_storeReview.requestReview();
    else
        m_storeReview.requestReviewInScene(*active);
}

} // namespace giggle
