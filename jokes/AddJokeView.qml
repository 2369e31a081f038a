// SPDX-License-Identifier: MIT
// Takes a new joke.
import GiggleArchives

JokeEditorPage {
    required property AddJokeViewController screen

    editor: screen
    focusesFirstField: true
}
