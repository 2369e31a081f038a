#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Walks through every screen of the executable by roles and names alone: walk_screens.py <executable>

Needs a display and a session bus of its own. On every screen what shows must have a name, what can be pressed must
listen, and the controls that clients look for must be there."""

import pathlib
import sys
import tempfile
import unittest

from screen_reader import Application, Hearing, Role, describe, press, press_actions, text_of, wait

EXECUTABLE = pathlib.Path(sys.argv.pop())
AREAS = (
    "Joke List, Add Joke, Jokes by Category, Joke of the Day, Print, Reference Lists, Default Settings, "
    "Import / Export, Rate / Share, Overview"
)
WAYS_OUT = "Rate This App, Share This App, Share the Website, Visit the Website, Send Feedback"
SEGMENTS = "Category, Rating, Joke, Favorites"
PRESSED = {Role.PUSH_BUTTON, Role.CHECK_BOX, Role.RADIO_BUTTON, Role.LIST_ITEM}
# What is only there to hold other things.
NAMELESS = {Role.FILLER, Role.UNKNOWN, Role.SEPARATOR}
# Rows of texts that are only read.
READ_LISTS = {"Document", "File contents"}
ROLES = {
    "buttons": Role.PUSH_BUTTON,
    "texts": Role.TEXT,
    "lists": Role.LIST,
    "rows": Role.LIST_ITEM,
    "segments": Role.RADIO_BUTTON,
    "tabs": Role.PAGE_TAB,
    "boxes": Role.CHECK_BOX,
    "bars": Role.PROGRESS_BAR,
    "spins": Role.SPIN_BUTTON,
}


def listens(item):
    """A button offers to be pressed of its own accord, and once more when somebody listens."""
    return len(press_actions(item)) > (0 if item.get_role() == Role.LIST_ITEM else 1)


class WalkScreens(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.app = Application(EXECUTABLE, folder.name)
        self.addCleanup(self.app.end)
        self.at("Initial Setup Recomendations?", buttons="Ok")
        self.app.press("Ok")
        self.at("Giggle Archives", buttons="Menu")
        self.app.press("Menu")
        self.at("Giggle Archives", buttons=AREAS)

    def at(self, title, **controls):
        """The screen or dialog of that title shows, without faults and with these controls."""
        self.app.await_title(title)
        for role, names in controls.items():
            for name in names.split(", "):
                self.app.find(ROLES[role], name)
        items = self.app.showing()
        headings = [item.get_name() for item in items if item.get_role() == Role.HEADING]
        self.assertIn(title, headings, f"{title} has no heading")
        for item in items:
            where = f"{title}: {describe(item)} of {describe(item.get_parent())}"
            self.assertTrue(item.get_name().strip() or item.get_role() in NAMELESS, where)
            if item.get_role() in PRESSED and item.get_parent().get_name() not in READ_LISTS:
                self.assertTrue(listens(item), f"{title}: a press of {describe(item)} is not heard")

    def go(self, button, title, role=Role.PUSH_BUTTON, **controls):
        self.app.press(button, role)
        self.at(title, **controls)

    def back(self, title):
        self.go("Back", title)

    def go_to_row(self, list_name, title, **controls):
        press(self.app.find(Role.LIST_ITEM, within=self.app.find(Role.LIST, list_name)))
        self.at(title, **controls)

    def pick(self, field, title):
        press(self.app.find(Role.TEXT, field))
        self.at(title, buttons="Done", lists=f"{field} choices")
        choices = self.app.find(Role.LIST, f"{field} choices")
        choice = choices.get_child_at_index(choices.get_child_count() - 1)  # it need not be in sight
        name = choice.get_name()
        press(choice)
        self.app.press("Done")
        self.app.await_gone(Role.LIST, f"{field} choices")
        self.assertEqual(text_of(self.app.find(Role.TEXT, field)), name)

    def hand_on(self, title):
        """Opens what "Share" and "Print" lead to, and puts it away again."""
        self.go("Share", "Share", buttons="Copy, Mail, Message, Save as PDF, Save to Files, Cancel")
        self.go("Cancel", title)
        self.go("Print", "Print", buttons="Save as PDF, Print, Cancel", texts="Printer, Paper", spins="Copies")
        self.pick("Paper", "Print")
        self.go("Cancel", title)

    def test_joke_list_and_editors(self):
        self.go(
            "Joke List",
            "Joke List",
            buttons="Add, Sort, Share, Print",
            segments=SEGMENTS,
            texts="Search by Category",
            lists="Joke List",
            boxes="Favorite",
        )
        self.hand_on("Joke List")
        editor = {"texts": "Category, Joke, Rating", "buttons": "Save"}
        self.go("Add", "Add Joke", **editor)
        self.go("Save", "Movie Not Saved", buttons="OK")
        self.assertIn("Required Fields", self.app.find(Role.DIALOG).get_description())  # read with the title
        self.go("OK", "Add Joke")
        self.pick("Category", "Add Joke")
        self.pick("Rating", "Add Joke")
        self.app.find(Role.TEXT, "Joke").set_text_contents("A parrot walks into a bar.")
        self.app.press("Save")
        self.at("Joke List")
        self.app.press("Joke", Role.RADIO_BUTTON)
        self.app.find(Role.TEXT, "Search by Joke").set_text_contents("A parrot walks into a bar")
        self.app.await_count(Role.LIST_ITEM, 1)
        self.go_to_row("Joke List", "Edit Joke", boxes="Favorite", **editor)
        self.at("Edit Joke", buttons="Share, Print, Larger text, Smaller text")
        self.hand_on("Edit Joke")
        self.back("Joke List")

    def test_groups_and_breakdowns(self):
        groups = {"tabs": "Categories, Ratings", "buttons": "Sort"}
        self.go("Jokes by Category", "Jokes by Category", texts="Sort and Search by Category", **groups)
        breakdown = {"buttons": "Sort, Share, Print", "boxes": "Favorite", "texts": "Sort and Search by Joke"}
        self.go_to_row("Jokes by Category", "(Anecdotal)", **breakdown)
        self.hand_on("(Anecdotal)")
        self.back("Jokes by Category")
        self.go("Ratings", "Jokes by Category", Role.PAGE_TAB, texts="Search by Rating")
        self.go_to_row("Jokes by Category", "(Adult)", **breakdown)
        self.back("Jokes by Category")
        self.back("Giggle Archives")

    def test_name_lists(self):
        self.go("Reference Lists", "Reference Lists", buttons="Categories, Ratings")
        for lists, name in [("Categories", "Category"), ("Ratings", "Rating")]:
            self.go(lists, lists, buttons="Add, Sort", lists=lists)
            self.go("Add", f"Add {name}", texts=name, buttons="Save")
            self.back(lists)
            self.go_to_row(lists, f"Edit {name}", texts=name, buttons="Save")
            self.back(lists)
            self.back("Reference Lists")

    def test_import_and_export(self):
        self.go("Import / Export", "Import / Export", buttons="Export Jokes, Import Jokes")
        texts = {"texts": "Help", "lists": "File contents"}
        buttons = "Export, Save To Files, Email File, Copy"
        self.go("Export Jokes", "Export Jokes", buttons=buttons, bars="Progress", **texts)
        self.go("Export", "Data Export", buttons="OK")
        self.go("OK", "Export Jokes")
        self.back("Import / Export")
        self.go("Import Jokes", "Import Jokes", buttons="Load File, Import, Copy", **texts)
        self.go("Load File", "Load File", buttons="Parent Folder, Home, Open, Cancel", texts="File Name", lists="Files")
        self.go("Cancel", "Import Jokes")

    def test_remaining_areas(self):
        for area, title, controls in [
            ("Joke of the Day", "Joke of the Day", {"texts": "Category, Rating, Joke", "buttons": "Shuffle"}),
            ("Print", "Print", {"buttons": "Print, Email, Share, Copy", "segments": SEGMENTS, "lists": "Document"}),
            ("Default Settings", "User Defaults", {"texts": "Font, Size, Color", "buttons": "Larger, Smaller"}),
            ("Rate / Share", "Rate / Share", {"rows": WAYS_OUT}),
            ("Overview", "Parchment Trove Overview", {"buttons": "Zoom in, Zoom out"}),
        ]:
            with self.subTest(area):
                self.go(area, title, **controls)
                if area == "Default Settings":
                    self.pick("Color", title)
                    self.pick("Font", title)
                self.back("Giggle Archives")
                self.app.press("Menu")
                self.at("Giggle Archives", buttons=AREAS)

    def test_what_happens_is_heard(self):
        self.go("Joke List", "Joke List")
        with Hearing() as hearing:
            search = self.app.find(Role.TEXT, "Search by Category")
            for text in ["A", "An", "Ane", "Anecdotal"]:
                search.set_text_contents(text)
                wait(0.1)
            wait(1.5)
            search.set_text_contents("xyz")
            wait(1.5)
        self.assertEqual(hearing.names, ["10 jokes", "No jokes found"])
        self.assertEqual(search.get_description(), "")
        sort = self.app.find(Role.PUSH_BUTTON, "Sort")
        self.assertEqual(sort.get_description(), "ascending")
        press(sort)
        wait(0.3)
        self.assertEqual(sort.get_description(), "descending")

    def test_the_same_is_heard_as_often_as_it_happens(self):
        self.go("Joke of the Day", "Joke of the Day")
        with Hearing() as hearing:
            drawn = []
            for count in range(1, 4):
                self.app.press("Shuffle")
                hearing.await_count(count)
                # The text area tells the bus of paragraphs where the joke has line feeds.
                drawn.append(text_of(self.app.find(Role.TEXT, "Joke")).replace("\u2029", "\n"))
        self.assertEqual(hearing.names, drawn)
        self.back("Giggle Archives")
        self.app.press("Menu")

        self.go("Import / Export", "Import / Export")
        self.go("Export Jokes", "Export Jokes")
        self.go("Export", "Data Export")
        self.go("OK", "Export Jokes")
        with Hearing() as hearing:
            for count in range(1, 3):
                self.app.press("Copy")
                hearing.await_count(count)
        self.assertEqual(hearing.names, ["Copied."] * 2)
        self.back("Import / Export")
        self.go("Import Jokes", "Import Jokes")
        self.go("Load File", "Load File")
        self.app.find(Role.TEXT, "File Name").set_text_contents("gone.csv")
        with Hearing() as hearing:
            for count in range(1, 3):
                self.app.press("Open")
                hearing.await_count(count)
        self.assertEqual(hearing.names, ['There is no file "gone.csv".'] * 2)


if __name__ == "__main__":
    unittest.main(warnings="ignore")  # of names that newer bindings replace
