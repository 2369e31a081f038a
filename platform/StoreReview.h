// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <vector>

namespace giggle {

/// The place that the application came from, asked to invite the user to rate it there. The system decides
/// whether an invitation is shown, and tells nobody. Lives in the main thread.
class StoreReview : public QObject {
    Q_OBJECT

public:
    enum class ActivationState { ForegroundActive, ForegroundInactive, Background };

    /// One of the places on the screen that the application is shown in.
    struct Scene {
        int identifier = 0;
        ActivationState activationState = ActivationState::Background;
        bool isWindow = true; ///< Some show something else than a window of the application.
    };

    /// From this version on the application is shown in scenes.
    static constexpr int FirstVersionWithScenes = 13;

    /// From this version on a request can name the scene that the invitation is to be shown in.
    static constexpr int FirstVersionWithRequestsInScenes = 14;

    /// The first part of the system's version.
    [[nodiscard]] virtual int systemMajorVersion() const = 0;

    /// Every scene that there is at the moment, in the system's order.
    [[nodiscard]] virtual std::vector<Scene> connectedScenes() const = 0;

    virtual void requestReview() = 0; ///< wherever the system likes

    /// @p scene is one of connectedScenes().
    virtual void requestReviewInScene(const Scene& scene) = 0;

signals:
    /// A request was granted on a system that shows no invitation by itself: the window is to do it.
    void invitationRequested();

protected:
    using QObject::QObject;
};

} // namespace giggle
