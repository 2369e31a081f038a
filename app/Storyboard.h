// SPDX-License-Identifier: MIT
#pragma once

#include "ui/SceneFactory.h"

namespace giggle {

/// The one place that knows which screen stands behind which way, and which page shows it.
class Storyboard : public SceneFactory {
public:
    /// What every screen is handed; it must outlive them. The navigator in it needs the storyboard, so it
    /// comes after both have been made, and before the first scene.
    void setEnvironment(ScreenEnvironment& environment) { m_environment = &environment; }

    [[nodiscard]] bool hasScene(SegueId segue) const override;
    [[nodiscard]] Scene makeRoot() override;
    [[nodiscard]] Scene makeScene(SegueId segue) override;

private:
    ScreenEnvironment* m_environment = nullptr;
};

} // namespace giggle
