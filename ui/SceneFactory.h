// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Screen.h"

#include <QUrl>

#include <memory>

namespace giggle {

/// A screen and the page that shows it.
struct Scene {
    std::unique_ptr<Screen> screen;
    QUrl page;
};

/// Makes the screens that the navigation controller puts on its stack. Implemented by the storyboard.
class SceneFactory {
public:
    virtual ~SceneFactory() = default;

    [[nodiscard]] virtual bool hasScene(SegueId segue) const = 0;

    /// The screen at the bottom of the stack.
    [[nodiscard]] virtual Scene makeRoot() = 0;

    /// A new screen for @p segue, which has a scene.
    [[nodiscard]] virtual Scene makeScene(SegueId segue) = 0;
};

} // namespace giggle
