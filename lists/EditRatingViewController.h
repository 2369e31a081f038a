// SPDX-License-Identifier: MIT
#pragma once

#include "lists/EditNameViewController.h"

namespace giggle {

/// The screen that renames a rating.
class EditRatingViewController : public giggle::EditNameViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(QString RatingTextField READ name WRITE setName NOTIFY nameChanged)

public:
    explicit EditRatingViewController(ScreenEnvironment& environment)
        : EditNameViewController(environment, RatingSide)
    {
    }
};

} // namespace giggle
