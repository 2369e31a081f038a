// SPDX-License-Identifier: MIT
#pragma once

#include "lists/AddNameViewController.h"

namespace giggle {

/// The screen that takes a new category.
class AddCategoryViewController : public giggle::AddNameViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")
    Q_PROPERTY(QString CategoryTextField READ name WRITE setName NOTIFY nameChanged)

public:
    explicit AddCategoryViewController(ScreenEnvironment& environment)
        : AddNameViewController(environment, CategorySide)
    {
    }
};

} // namespace giggle
