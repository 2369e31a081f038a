# SPDX-License-Identifier: MIT
"""What the tests of the executable share: a home of its own for it, and its window as a screen reader sees it."""

import contextlib
import os
import pathlib
import subprocess
import sys
import tempfile
import time
import unittest

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

EXECUTABLE = pathlib.Path(sys.argv.pop())
PATIENCE_SECONDS = 30
READY = "Giggle Archives is ready."


def below(item):
    """Everything below an accessible."""
    for i in range(item.get_child_count()):
        child = item.get_child_at_index(i)
        if child is not None:
            yield child
            yield from below(child)


class ApplicationTest(unittest.TestCase):
    platform = "xcb"

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.home = pathlib.Path(folder.name)
        self.collection = self.home / "data/giggle-archives/Giggle_Archives.sqlite"
        self.environment = dict(
            os.environ,
            **{f"XDG_{name}_HOME": str(self.home / name.lower()) for name in ("DATA", "CONFIG", "STATE")},
            QT_QPA_PLATFORM=self.platform,
            QT_QUICK_BACKEND="software",
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
        )

    def start(self, *arguments):
        process = subprocess.Popen(
            [EXECUTABLE, *arguments], env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True
        )
        for cleanup in (process.stdout.close, process.stderr.close, process.wait, process.kill):
            self.addCleanup(cleanup)
        return process

    def said_until_ready(self, process):
        said = []
        for line in process.stdout:
            said.append(line.strip())
            if said[-1] == READY:
                return said
        self.fail(f"it ended with {process.wait()}: {process.stderr.read()}")

    def end(self, process):
        process.kill()
        process.wait()

    def wait_for(self, process, is_wanted, what):
        """What is wanted of the window's accessibles, once it is there."""
        end = time.monotonic() + PATIENCE_SECONDS
        while time.monotonic() < end and process.poll() is None:
            desktop = Atspi.get_desktop(0)
            for i in range(desktop.get_child_count()):
                application = desktop.get_child_at_index(i)
                with contextlib.suppress(GLib.GError):  # one that was killed may still be listed
                    if application is not None and application.get_process_id() == process.pid:
                        for item in below(application):
                            if is_wanted(item):
                                return item
            time.sleep(0.05)
        self.end(process)
        self.fail(f"there is no {what}: {process.stderr.read()}")
