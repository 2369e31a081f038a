// SPDX-License-Identifier: MIT
// Takes a new category. A tap beside the field puts the keyboard away.
import GiggleArchives

NameEditorPage {
    required property AddCategoryViewController screen

    editor: screen
    endsEditingOnTap: true
    text: screen.CategoryTextField
    onEdited: text => screen.CategoryTextField = text
}
