// SPDX-License-Identifier: MIT
// The jokes of one rating.
import GiggleArchives

BreakdownPage {
    required property RatingBreakdownTableViewController screen

    breakdown: screen
}
