// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>

#include <functional>
#include <optional>

namespace giggle {

class Preferences;
class StoreReview;

/// Asks the store to invite the user to rate the application, at most once in seven days. Main thread only.
class ReviewService {
public:
    /// Tells the present moment.
    using Clock = std::function<QDateTime()>;

    /// @p defaults and @p storeReview must outlive the service.
    ReviewService(
        Preferences& defaults, StoreReview& storeReview,
        Clock now = [] { return QDateTime::currentDateTime(); });

    [[nodiscard]] Preferences& defaults() const { return m_defaults; }

    /// When a review was last asked for, by this run or an earlier one. Absent when never, or when what is
    /// stored is no date.
    [[nodiscard]] std::optional<QDateTime> lastRequest() const;

    /// Stores @p moment, to the second; an absent one removes what is stored.
    void setLastRequest(const std::optional<QDateTime>& moment);

    /// True when the last request is more than seven days of the local calendar ago, or when there was none.
    /// A clock that does not tell a valid moment is a fatal stop.
    [[nodiscard]] bool canRequestReview() const;

    /// Asks for a review if one can be asked for, and remembers this moment as the last request, even where
    /// the application is not in front and therefore nobody is asked.
    void requestReviewIfDue();

private:
    void requestReview();

    Preferences& m_defaults;
    StoreReview& m_storeReview;
    Clock m_now;
};

} // namespace giggle
