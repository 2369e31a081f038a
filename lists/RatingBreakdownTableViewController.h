// SPDX-License-Identifier: MIT
#pragma once

#include "lists/BreakdownTableViewController.h"

namespace giggle {

using RatingBreakdownTableViewCell = NewMainListTableViewCell;

/// The jokes of one rating.
class RatingBreakdownTableViewController : public giggle::BreakdownTableViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")

public:
    explicit RatingBreakdownTableViewController(ScreenEnvironment& environment)
        : BreakdownTableViewController(environment, RatingSide)
    {
    }
};

} // namespace giggle
