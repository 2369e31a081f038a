// SPDX-License-Identifier: MIT
// The jokes of one category.
import GiggleArchives

BreakdownPage {
    required property CategoryBreakdownTableViewController screen

    breakdown: screen
}
