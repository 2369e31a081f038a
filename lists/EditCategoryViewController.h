// SPDX-License-Identifier: MIT
#pragma once

#include "lists/EditNameViewController.h"

namespace giggle {

/// The screen that renames a category.
class EditCategoryViewController : public giggle::EditNameViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(QString CategoryTextField READ name WRITE setName NOTIFY nameChanged)

public:
    explicit EditCategoryViewController(ScreenEnvironment& environment)
        : EditNameViewController(environment, CategorySide)
    {
    }
};

} // namespace giggle
