#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the executable as a user's session would, without a display: start_and_stop.py <executable>"""

import contextlib
import sqlite3
import unittest

from application import READY, ApplicationTest


class StartAndStop(ApplicationTest):
    platform = "offscreen"

    def setUp(self):
        super().setUp()
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={self.home}/no-bus"
        self.environment["XDG_RUNTIME_DIR"] = str(self.home)

    def count(self, table):
        with contextlib.closing(sqlite3.connect(self.collection)) as database:
            return database.execute(f"SELECT count(*) FROM {table}").fetchone()[0]

    def test_only_the_first_launch_seeds_even_if_it_was_killed(self):
        process = self.start()
        self.assertEqual(self.said_until_ready(process), [READY])
        self.end(process)
        tables = {table: self.count(table) for table in ("jokes", "category", "rating")}
        self.assertEqual(tables, {"jokes": 188, "category": 36, "rating": 8})
        process = self.start()
        self.assertEqual(self.said_until_ready(process), ["Not First Launch", READY])
        self.end(process)
        self.assertEqual(self.count("rating"), 8)

    def test_a_second_instance_says_that_one_is_running_and_ends(self):
        first = self.start()
        self.said_until_ready(first)
        second = self.start()
        _, said = second.communicate(timeout=30)
        self.assertEqual(second.returncode, 1)
        self.assertIn("already running", said)
        self.assertIsNone(first.poll())


if __name__ == "__main__":
    unittest.main()
