// SPDX-License-Identifier: MIT
#pragma once

#include "lists/GroupTableViewController.h"

namespace giggle {

using CategoryGroupTableViewCell = GroupTableViewCell;

/// Every category that a joke has, with the number of its jokes.
class CategoryGroupTableViewController : public giggle::GroupTableViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")

public:
    explicit CategoryGroupTableViewController(ScreenEnvironment& environment)
        : GroupTableViewController(environment, CategorySide)
    {
    }
};

} // namespace giggle
