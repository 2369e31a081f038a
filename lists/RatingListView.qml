// SPDX-License-Identifier: MIT
// The list of all ratings.
pragma ComponentBehavior: Bound

import GiggleArchives

NameListPage {
    id: page

    required property RatingTableViewController screen

    controller: screen
    rows: NameListRow {
        required property ratingTableViewCell cell

        controller: page.screen
        label: cell.RatingNameLabel
    }
}
