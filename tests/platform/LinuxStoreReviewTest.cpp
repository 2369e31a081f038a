// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxStoreReview.h"

#include "tests/platform/SpinUntil.h"

#include <QWindow>

#include <gtest/gtest.h>

namespace giggle {

namespace {

TEST(LinuxStoreReviewTest, TheSceneIsInFrontOnceTheApplicationIs)
{
    const LinuxStoreReview review;
    const auto isInFront = [&review] {
        const std::vector<StoreReview::Scene> scenes = review.connectedScenes();
        return scenes.size() == 1 &&
               scenes[0].activationState == StoreReview::ActivationState::ForegroundActive;
    };
    EXPECT_FALSE(isInFront());
    QWindow window;
    window.show();
    window.requestActivate();
    EXPECT_TRUE(spinUntil(isInFront));
}

} // namespace

} // namespace giggle
