#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What the executable says of a collection that it cannot use: refused_collection.py <executable>

Needs a display and a session bus of its own, on which it stands in for the desktop's notifications."""

import contextlib
import os
import pathlib
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import threading
import time
import unittest

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

EXECUTABLE = pathlib.Path(sys.argv.pop())
PATIENCE_SECONDS = 30
NOTIFICATIONS = """<node><interface name='org.freedesktop.Notifications'><method name='Notify'>
  <arg type='s' direction='in'/><arg type='u' direction='in'/><arg type='s' direction='in'/>
  <arg type='s' direction='in'/><arg type='s' direction='in'/><arg type='as' direction='in'/>
  <arg type='a{sv}' direction='in'/><arg type='i' direction='in'/><arg type='u' direction='out'/>
</method></interface></node>"""
notified = []


def serve_notifications():
    """Writes down what is shown, in a thread of its own."""

    def answer(_connection, _sender, _path, _interface, _method, arguments, invocation):
        notified.append(arguments.unpack()[4])
        invocation.return_value(GLib.Variant("(u)", (1,)))

    loop = GLib.MainLoop.new(context := GLib.MainContext.new(), False)

    def run():
        context.push_thread_default()
        bus = Gio.DBusConnection.new_for_address_sync(
            os.environ["DBUS_SESSION_BUS_ADDRESS"],
            Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION,
            None,
            None,
        )
        interface = Gio.DBusNodeInfo.new_for_xml(NOTIFICATIONS).interfaces[0]
        bus.register_object("/org/freedesktop/Notifications", interface, answer, None, None)
        Gio.bus_own_name_on_connection(
            bus, "org.freedesktop.Notifications", Gio.BusNameOwnerFlags.NONE, lambda *_: ready.set(), None
        )
        loop.run()

    ready = threading.Event()
    threading.Thread(target=run, daemon=True).start()
    ready.wait(PATIENCE_SECONDS)


def texts(item):
    """The names of everything below an accessible."""
    for i in range(item.get_child_count()):
        child = item.get_child_at_index(i)
        if child is not None:
            yield child.get_name() or ""
            yield from texts(child)


class RefusedCollection(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        serve_notifications()
        # So that the accessibility bus is there before the first program looks for it.
        Atspi.get_desktop(0).get_child_count()

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.home = pathlib.Path(folder.name)
        self.collection = self.home / "data/giggle-archives/Giggle_Archives.sqlite"
        self.environment = dict(
            os.environ,
            **{f"XDG_{name}_HOME": str(self.home / name.lower()) for name in ("DATA", "CONFIG", "STATE")},
            QT_QPA_PLATFORM="xcb",
            QT_QUICK_BACKEND="software",
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
        )
        notified.clear()

    def start(self, **arguments):
        process = subprocess.Popen(
            [EXECUTABLE], env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, **arguments
        )
        for cleanup in (process.stdout.close, process.stderr.close, process.wait, process.kill):
            self.addCleanup(cleanup)
        return process

    def wait_for_text(self, process, words):
        end = time.monotonic() + PATIENCE_SECONDS
        while time.monotonic() < end:
            desktop = Atspi.get_desktop(0)
            for i in range(desktop.get_child_count()):
                application = desktop.get_child_at_index(i)
                with contextlib.suppress(GLib.GError):
                    if application is not None and application.get_process_id() == process.pid:
                        for text in texts(application):
                            if all(word in text for word in words):
                                return
            time.sleep(0.1)
        self.fail(f"the window does not say {words}")

    def make_collection(self):
        """A collection at rest, with the starter jokes."""
        process = self.start()
        for line in process.stdout:
            if "ready" in line:
                break
        process.kill()
        process.wait()
        with contextlib.closing(sqlite3.connect(self.collection)) as database:
            database.execute("PRAGMA wal_checkpoint(TRUNCATE)")
        shutil.rmtree(self.home / "config")  # so that the next start looks into the collection at once

    def test_it_is_said_at_once_and_again_by_the_next_start(self):
        def damage():
            with open(self.collection, "r+b") as file:
                file.seek(4096 * 3)
                file.write(b"\xff" * 4096)

        def replace_by_text():
            self.collection.write_text("Dear diary, " * 500)

        def replace_by_folder():
            self.collection.unlink()
            self.collection.mkdir()

        def lock():
            other = sqlite3.connect(self.collection, isolation_level=None)
            self.addCleanup(other.close)
            other.execute("PRAGMA locking_mode = EXCLUSIVE")
            other.execute("BEGIN EXCLUSIVE")

        copies = str(self.collection.parent / "copies")
        for prepare, words in [
            (damage, ["it is damaged", copies]),
            (replace_by_text, ["is not a joke collection", copies]),
            (replace_by_folder, ["cannot be read", copies]),
            (lock, ["locked", "Close the other program"]),
        ]:
            with self.subTest(prepare.__name__):
                shutil.rmtree(self.home / "data", ignore_errors=True)
                notified.clear()
                self.make_collection()
                prepare()
                process = self.start()
                _, said = process.communicate(timeout=PATIENCE_SECONDS)
                self.assertEqual(process.returncode, -signal.SIGABRT)
                self.assertEqual(len(notified), 1, said)
                for word in [str(self.collection), *words]:
                    self.assertIn(word, said)
                    self.assertIn(word.replace("'", "&#39;"), notified[0])
                # It is no first launch any more: the window opens, and reminds of what has happened.
                process = self.start()
                self.wait_for_text(process, [str(self.collection), *words])
                process.kill()
                process.wait()


if __name__ == "__main__":
    unittest.main()
