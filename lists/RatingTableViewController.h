// SPDX-License-Identifier: MIT
#pragma once

#include "lists/NameListViewController.h"
#include "lists/RatingTableViewCell.h"

namespace giggle {

/// The list of all ratings.
class RatingTableViewController : public giggle::NameListViewController {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The storyboard makes the screens.")

public:
    explicit RatingTableViewController(ScreenEnvironment& environment)
        : NameListViewController(environment, RatingSide)
    {
    }

    [[nodiscard]] QVariant cellForRow(int row) const override
    {
        return QVariant::fromValue(RatingTableViewCell{nameInRow(row)});
    }
};

} // namespace giggle
