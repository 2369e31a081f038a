#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What the executable says of a collection that it cannot use: refused_collection.py <executable>

Needs a display and a session bus of its own, on which it stands in for the desktop's notifications."""

import contextlib
import os
import shutil
import signal
import sqlite3
import threading
import unittest

from application import PATIENCE_SECONDS, ApplicationTest, Atspi, GLib
from gi.repository import Gio

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
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        address = os.environ["DBUS_SESSION_BUS_ADDRESS"]
        bus = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
        interface = Gio.DBusNodeInfo.new_for_xml(NOTIFICATIONS).interfaces[0]
        bus.register_object("/org/freedesktop/Notifications", interface, answer, None, None)
        Gio.bus_own_name_on_connection(
            bus, "org.freedesktop.Notifications", Gio.BusNameOwnerFlags.NONE, lambda *_: ready.set(), None
        )
        loop.run()

    ready = threading.Event()
    threading.Thread(target=run, daemon=True).start()
    ready.wait(PATIENCE_SECONDS)


class RefusedCollection(ApplicationTest):
    @classmethod
    def setUpClass(cls):
        serve_notifications()
        # So that the accessibility bus is there before the first program looks for it.
        Atspi.get_desktop(0).get_child_count()

    def make_collection(self):
        """A collection at rest, with the starter jokes."""
        process = self.start()
        self.said_until_ready(process)
        self.end(process)
        with contextlib.closing(sqlite3.connect(self.collection)) as database:
            database.execute("PRAGMA wal_checkpoint(TRUNCATE)")
        shutil.rmtree(self.home / "config")  # so that the next start looks into the collection at once

    def damage(self):
        with open(self.collection, "r+b") as file:
            file.seek(4096 * 3)
            file.write(b"\xff" * 4096)

    def replace_by_folder(self):
        self.collection.unlink()
        self.collection.mkdir()

    def lock(self):
        other = sqlite3.connect(self.collection, isolation_level=None)
        self.addCleanup(other.close)
        other.execute("PRAGMA locking_mode = EXCLUSIVE")
        other.execute("BEGIN EXCLUSIVE")

    def test_it_is_said_at_once_and_again_by_the_next_start(self):
        copies = str(self.collection.parent / "copies")
        for prepare, words in [
            (self.damage, ["it is damaged", copies]),
            (self.replace_by_folder, ["cannot be read", copies]),
            (self.lock, ["locked", "Close the other program"]),
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
                words = [str(self.collection), *words]
                for word in words:
                    self.assertIn(word, said)
                    self.assertIn(word.replace("'", "&#39;"), notified[0])
                # It is no first launch any more: the window opens, and reminds of what has happened.
                process = self.start()
                self.wait_for(process, lambda item: all(word in (item.get_name() or "") for word in words), words)
                self.end(process)


if __name__ == "__main__":
    unittest.main()
