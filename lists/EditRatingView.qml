// SPDX-License-Identifier: MIT
// Renames a rating.
import GiggleArchives

NameEditorPage {
    required property EditRatingViewController screen

    editor: screen
    text: screen.RatingTextField
    onEdited: text => screen.RatingTextField = text
}
