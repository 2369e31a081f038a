// SPDX-License-Identifier: MIT
#pragma once

#include "platform/StoreReview.h"

namespace giggle {

/// There is no store that would ask the user, so the application's window does: every request is granted. The
/// window is the one scene, foreground-active while the application is the one in use. Requests work as on
/// the latest systems. Needs a QGuiApplication.
class LinuxStoreReview : public StoreReview {
public:
    using StoreReview::StoreReview;

    [[nodiscard]] int systemMajorVersion() const override;
    [[nodiscard]] std::vector<Scene> connectedScenes() const override;
    void requestReview() override;
    void requestReviewInScene(const Scene& scene) override;
};

} // namespace giggle
