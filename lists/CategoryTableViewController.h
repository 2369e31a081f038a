// SPDX-License-Identifier: MIT
#pragma once

#include "lists/CategoryTableViewCell.h"
#include "lists/NameListViewController.h"

namespace giggle {

/// The list of all categories.
class CategoryTableViewController : public giggle::NameListViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")

public:
    explicit CategoryTableViewController(ScreenEnvironment& environment)
        : NameListViewController(environment, CategorySide)
    {
    }

    [[nodiscard]] QVariant cellForRow(int row) const override
    {
        return QVariant::fromValue(CategoryTableViewCell{nameInRow(row)});
    }
};

} // namespace giggle
