// SPDX-License-Identifier: MIT
#pragma once

#include "lists/AddNameViewController.h"

namespace giggle {

/// The screen that takes a new rating.
class AddRatingViewController : public giggle::AddNameViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(QString RatingTextField READ name WRITE setName NOTIFY nameChanged)

public:
    explicit AddRatingViewController(ScreenEnvironment& environment)
        : AddNameViewController(environment, RatingSide)
    {
    }
};

} // namespace giggle
