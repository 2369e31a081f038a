#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Kills the executable in the middle of an import: killed_import.py <executable>

Needs a display and a session bus of its own; the application is used as a screen reader uses it."""

import contextlib
import os
import pathlib
import random
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import threading
import time
import unittest

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

EXECUTABLE = pathlib.Path(sys.argv.pop())
JOKES = 30000
KILLS = 100 if os.environ.get("GIGGLE_LONG", "0") != "0" else 5
PATIENCE_SECONDS = 30


def visit(item, name, role):
    """Everything below an accessible that has this name and role and shows."""
    for i in range(item.get_child_count()):
        child = item.get_child_at_index(i)
        if child is None:
            continue
        if child.get_name() == name and child.get_role() == role:
            yield child
        yield from visit(child, name, role)


class KilledImport(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        home = pathlib.Path(folder.name)
        self.collection = home / "data/giggle-archives/Giggle_Archives.sqlite"
        settings = home / "config/giggle-archives/preferences.json"
        settings.parent.mkdir(parents=True)
        settings.write_text('{"hasBeenLaunchedBeforeFlag":{"boolean":true}}')
        self.rows = [(f"Category {i % 20}", "Mild", i - 20000, i % 2, f"Joke {i} " + "x" * 300) for i in range(JOKES)]
        self.file = home / "jokes.csv"
        lines = (f"{category}^{rating}^{number}^{'FT'[favorite]}^{joke}\n" for category, rating, number, favorite, joke in self.rows)
        self.file.write_text("[GIGGLEARCHIVES]\n" + "".join(lines))
        self.environment = dict(
            os.environ,
            XDG_DATA_HOME=str(home / "data"),
            XDG_CONFIG_HOME=str(home / "config"),
            QT_QPA_PLATFORM="xcb",
            QT_QUICK_BACKEND="software",
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
        )

    def start(self):
        process = subprocess.Popen([EXECUTABLE, self.file], env=self.environment, stdout=subprocess.DEVNULL)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        return process

    def button(self, name, process):
        """A button of the process, once it is there."""
        end = time.monotonic() + PATIENCE_SECONDS
        while time.monotonic() < end:
            desktop = Atspi.get_desktop(0)
            for i in range(desktop.get_child_count()):
                application = desktop.get_child_at_index(i)
                if application is None or application.get_process_id() != process.pid:
                    continue
                for button in visit(application, name, Atspi.Role.PUSH_BUTTON):
                    return button
            time.sleep(0.05)
        self.fail(f"there is no button {name}")

    def press(self, button):
        with contextlib.suppress(GLib.GError):  # it may be killed before it answers
            button.do_action(0)

    def ask(self, sql):
        connection = sqlite3.connect(f"file:{self.collection}?mode=ro", uri=True, timeout=10)
        with contextlib.closing(connection) as database:
            return database.execute(sql).fetchall()

    def stored(self):
        self.assertEqual(self.ask("PRAGMA integrity_check"), [("ok",)])
        return self.ask("SELECT category, rating, id, favorite, joke FROM jokes ORDER BY oid")

    def count(self):
        with contextlib.suppress(sqlite3.OperationalError):  # the collection is still being made
            return self.ask("SELECT count(*) FROM jokes")[0][0]
        return 0

    def import_until(self, count, lingering=0):
        """Starts an import, and ends the process some seconds after that many jokes are stored."""
        process = self.start()
        self.press(self.button("OK", process))
        # The answer to the press comes when the import is over. Nothing else may be asked meanwhile.
        press = threading.Thread(target=self.press, args=(self.button("Import", process),), daemon=True)
        press.start()
        end = time.monotonic() + PATIENCE_SECONDS
        while self.count() < count:
            self.assertLess(time.monotonic(), end, "the import does not get on")
            time.sleep(0.005)
            self.assertIsNone(process.poll())
        time.sleep(lingering)
        process.kill()
        process.wait()
        press.join(PATIENCE_SECONDS)

    def test_what_is_stored_is_a_whole_prefix_of_the_file_and_importing_again_completes_it(self):
        self.import_until(1)
        stored = self.stored()
        self.assertLess(len(stored), JOKES, "the import was over before it could be killed")
        self.assertEqual(stored, self.rows[: len(stored)])
        self.import_until(JOKES)
        self.assertEqual(self.stored(), self.rows)

    def test_killed_at_random_it_never_loses_what_it_had(self):
        moments = random.Random(20261121)
        cut_short = 0
        known = 0
        for kill in range(KILLS):
            if known == JOKES:
                shutil.rmtree(self.collection.parent)
                known = 0
            # Before the first joke as well as behind it.
            self.import_until(kill % 2, moments.uniform(0, 1 if kill % 2 == 0 else 0.4))
            stored = self.stored() if self.count() else []
            self.assertEqual(stored, self.rows[: len(stored)], f"kill {kill}")
            self.assertGreaterEqual(len(stored), known, f"kill {kill}")
            cut_short += 0 < len(stored) < JOKES
            known = len(stored)
        print(f"imports killed: {KILLS} tried, {KILLS} survived, {cut_short} of them cut short", flush=True)
        self.assertGreater(cut_short, 0, "no import was killed while it ran")


if __name__ == "__main__":
    unittest.main()
