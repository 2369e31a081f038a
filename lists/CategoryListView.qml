// SPDX-License-Identifier: MIT
// The list of all categories.
pragma ComponentBehavior: Bound

import GiggleArchives

NameListPage {
    id: page

    required property CategoryTableViewController screen

    controller: screen
    rows: NameListRow {
        required property categoryTableViewCell cell

        controller: page.screen
        label: cell.CategoryNameLabel
    }
}
