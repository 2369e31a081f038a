// SPDX-License-Identifier: MIT
// Renames a category.
import GiggleArchives

NameEditorPage {
    required property EditCategoryViewController screen

    editor: screen
    text: screen.CategoryTextField
    onEdited: text => screen.CategoryTextField = text
}
