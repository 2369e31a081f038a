// SPDX-License-Identifier: MIT
// Takes a new rating. A tap beside the field puts the keyboard away.
import GiggleArchives

NameEditorPage {
    required property AddRatingViewController screen

    editor: screen
    endsEditingOnTap: true
    text: screen.RatingTextField
    onEdited: text => screen.RatingTextField = text
}
