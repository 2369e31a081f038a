#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Kills the executable in the middle of an import: killed_import.py <executable>

Needs a display and a session bus of its own; the application is used as a screen reader uses it."""

import contextlib
import os
import random
import shutil
import sqlite3
import threading
import time
import unittest

from application import PATIENCE_SECONDS, ApplicationTest, Atspi, GLib

JOKES = 30000
KILLS = 100 if os.environ.get("GIGGLE_LONG", "0") != "0" else 5


class KilledImport(ApplicationTest):
    def setUp(self):
        super().setUp()
        settings = self.home / "config/giggle-archives/preferences.json"
        settings.parent.mkdir(parents=True)
        settings.write_text('{"hasBeenLaunchedBeforeFlag":{"boolean":true}}')
        self.rows = [(f"Category {i % 20}", "Mild", i - 20000, i % 2, f"Joke {i} " + "x" * 300) for i in range(JOKES)]
        self.file = self.home / "jokes.csv"
        lines = (
            f"{category}^{rating}^{number}^{'FT'[favorite]}^{joke}\n"
            for category, rating, number, favorite, joke in self.rows
        )
        self.file.write_text("[GIGGLEARCHIVES]\n" + "".join(lines))

    def press(self, process, name):
        button = self.wait_for(
            process,
            lambda item: item.get_name() == name and item.get_role() == Atspi.Role.PUSH_BUTTON,
            f"button {name}",
        )
        # The answer to the press comes when an import is over. Nothing else may be asked meanwhile.
        press = threading.Thread(target=self.act, args=(button,), daemon=True)
        press.start()
        return press

    def act(self, button):
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
        process = self.start(self.file)
        self.press(process, "OK").join(PATIENCE_SECONDS)
        press = self.press(process, "Import")
        end = time.monotonic() + PATIENCE_SECONDS
        while self.count() < count:
            self.assertLess(time.monotonic(), end, "the import does not get on")
            time.sleep(0.005)
            self.assertIsNone(process.poll())
        time.sleep(lingering)
        self.end(process)
        press.join(PATIENCE_SECONDS)

    def test_it_never_loses_what_it_had_and_importing_again_completes_it(self):
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
        print(f"imports killed: {KILLS} tried, all survived, {cut_short} of them cut short", flush=True)
        self.assertGreater(cut_short, 0, "no import was killed while it ran")
        self.import_until(JOKES)
        self.assertEqual(self.stored(), self.rows)


if __name__ == "__main__":
    unittest.main()
