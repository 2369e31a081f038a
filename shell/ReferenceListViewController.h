// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Screen.h"

namespace giggle {

/// The hub of the reference lists: one button leads to the categories, one to the ratings.
class ReferenceListViewController : public giggle::Screen {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")

public:
    using Screen::Screen;

    [[nodiscard]] QString title() const override { return QStringLiteral("Reference Lists"); }

    Q_INVOKABLE void performSegue(giggle::Segues::Id segue) { environment().navigator.performSegue(segue); }
};

} // namespace giggle
