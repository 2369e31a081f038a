#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the executable as a user's session would, without a display: start_and_stop.py <executable>"""

import os
import pathlib
import signal
import sqlite3
import subprocess
import sys
import tempfile
import unittest

READY = "Giggle Archives is ready."
EXECUTABLE = pathlib.Path(sys.argv.pop())


class StartAndStop(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.home = pathlib.Path(folder.name)
        runtime = self.home / "runtime"
        runtime.mkdir(mode=0o700)
        self.environment = {
            "PATH": os.environ["PATH"],
            "HOME": str(self.home),
            "XDG_RUNTIME_DIR": str(runtime),
            "DBUS_SESSION_BUS_ADDRESS": f"unix:path={self.home}/no-bus",
            "QT_QPA_PLATFORM": "offscreen",
            "LC_ALL": "C.UTF-8",
        }
        self.collection = self.home / ".local/share/giggle-archives/Giggle_Archives.sqlite"

    def start(self):
        """The running application and what it said until it was ready."""
        process = subprocess.Popen(
            [EXECUTABLE], env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True
        )
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.stderr.close)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        said = []
        for line in process.stdout:
            said.append(line.strip())
            if said[-1] == READY:
                return process, said
        self.fail(f"it ended with {process.wait()}: {process.stderr.read()}")

    def end(self, process):
        process.kill()
        process.wait()

    def count(self, table):
        with sqlite3.connect(self.collection) as database:
            return database.execute(f"SELECT count(*) FROM {table}").fetchone()[0]

    def test_only_the_first_launch_seeds_even_if_it_was_killed(self):
        process, said = self.start()
        self.assertEqual(said, [READY])
        self.end(process)
        tables = {table: self.count(table) for table in ("jokes", "category", "rating")}
        self.assertEqual(tables, {"jokes": 188, "category": 36, "rating": 8})

        process, said = self.start()
        self.assertEqual(said, ["Not First Launch", READY])
        self.end(process)
        self.assertEqual(self.count("rating"), 8)

    def test_a_second_instance_says_that_one_is_running_and_ends(self):
        first, _ = self.start()
        second = subprocess.run([EXECUTABLE], env=self.environment, capture_output=True, text=True, timeout=30)
        self.assertEqual(second.returncode, 1)
        self.assertIn("already running", second.stderr)
        self.assertIsNone(first.poll())

    def test_a_collection_that_cannot_be_opened_ends_the_first_launch_in_words(self):
        self.collection.parent.mkdir(parents=True)
        self.collection.write_text("This is no collection. " * 20)
        process = subprocess.run([EXECUTABLE], env=self.environment, capture_output=True, text=True, timeout=30)
        self.assertEqual(process.returncode, -signal.SIGABRT)
        self.assertIn("Unresolved error", process.stderr)
        self.assertIn("file AppDelegate, line 45", process.stderr)
        self.assertEqual(self.collection.read_text(), "This is no collection. " * 20)


if __name__ == "__main__":
    unittest.main()
