// SPDX-License-Identifier: MIT
#pragma once

#include "lists/BreakdownTableViewController.h"

namespace giggle {

using CategoryBreakdownTableViewCell = NewMainListTableViewCell;

/// The jokes of one category.
class CategoryBreakdownTableViewController : public giggle::BreakdownTableViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")

public:
    explicit CategoryBreakdownTableViewController(ScreenEnvironment& environment)
        : BreakdownTableViewController(environment, CategorySide)
    {
    }
};

} // namespace giggle
