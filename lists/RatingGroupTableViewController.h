// SPDX-License-Identifier: MIT
#pragma once

#include "lists/GroupTableViewController.h"

namespace giggle {

using RatingGroupTableViewCell = GroupTableViewCell;

/// Every rating that a joke has, with the number of its jokes.
class RatingGroupTableViewController : public giggle::GroupTableViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")

public:
    explicit RatingGroupTableViewController(ScreenEnvironment& environment)
        : GroupTableViewController(environment, RatingSide)
    {
    }
};

} // namespace giggle
