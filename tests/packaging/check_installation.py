#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Installs the build and looks at it as a desktop does: check_installation.py <source folder> <build folder>"""

import functools
import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import threading
import unittest

BUILD = pathlib.Path(sys.argv.pop())
SOURCE = pathlib.Path(sys.argv.pop())
ID = "org.gigglearchives.GiggleArchives"
EXPECTED = {
    "bin/giggle-archives",
    f"share/applications/{ID}.desktop",
    f"share/dbus-1/services/{ID}.service",
    "share/doc/giggle-archives/CHANGELOG.md",
    "share/doc/giggle-archives/exchange-format.md",
    "share/doc/giggle-archives/recovery.md",
    f"share/icons/hicolor/scalable/apps/{ID}.svg",
    f"share/icons/hicolor/symbolic/apps/{ID}-symbolic.svg",
    "share/man/man1/giggle-archives.1.gz",
    f"share/metainfo/{ID}.metainfo.xml",
    f"share/mime/packages/{ID}.xml",
}

# The system's Python has the bindings.
SYSTEM_PYTHON = "/usr/bin/python3"
OPENING = f"""
import signal
from gi.repository import Gio, GLib
bus = Gio.bus_get_sync(Gio.BusType.SESSION)
uris = GLib.Variant("(asa{{sv}})", (["file:///no%20such.csv"], {{}}))
try:
    bus.call_sync("{ID}", "/{ID.replace('.', '/')}", "org.freedesktop.Application", "Open", uris, None, 0, 30000)
except GLib.Error as error:
    print("refused:", error.message, flush=True)
signal.pause()
"""


def run(*command, **options):
    result = subprocess.run(command, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=60, **options)
    if result.returncode != 0:
        raise AssertionError(f"{' '.join(map(str, command))} ended with {result.returncode}:\n{result.stdout}")
    return result.stdout


class Installation(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        # Where a packager puts files together, and where somebody without root installs.
        staged = cls.folder / "staged"
        run("cmake", "--install", BUILD, "--prefix", "/usr", env=dict(os.environ, DESTDIR=str(staged)))
        cls.staged = staged / "usr"
        cls.own = cls.folder / "own place"
        run("cmake", "--install", BUILD, "--prefix", cls.own, env={k: v for k, v in os.environ.items() if k != "DESTDIR"})
        cls.share = cls.own / "share"

    def test_everything_is_there_and_nothing_else(self):
        for root in (self.staged, self.own):
            files = {f.relative_to(root).as_posix() for f in root.rglob("*") if f.is_file()}
            self.assertEqual(files, EXPECTED)
        self.assertEqual([f.name for f in self.staged.parent.iterdir()], ["usr"])

    def test_the_bus_is_told_where_the_executable_will_be(self):
        service = f"share/dbus-1/services/{ID}.service"
        self.assertIn('\nExec="/usr/bin/giggle-archives"\n', (self.staged / service).read_text())

    def test_the_desktop_accepts_what_it_reads(self):
        run("desktop-file-validate", self.share / f"applications/{ID}.desktop")
        findings = run("appstreamcli", "validate", "--no-net", "--pedantic", self.share / f"metainfo/{ID}.metainfo.xml")
        # The id has its capitals for good, and newer tools want a tag for the developer that Debian 12's rejects.
        allowed = re.compile(r"cid-contains-uppercase-letter|developer-(name-tag-deprecated|info-missing)$")
        rest = [line for line in findings.splitlines() if line[1:3] == ": " and not allowed.search(line)]
        self.assertEqual(rest, [], findings)
        for picture in (self.share / "icons").rglob("*.svg"):
            run("xmllint", "--noout", "--nonet", picture)

    def test_exchange_files_are_known_by_name_and_by_content(self):
        kind = "application/vnd.gigglearchives.jokes"
        mime = self.share / "mime"
        run("xmllint", "--noout", "--nonet", mime / f"packages/{ID}.xml")
        complaints = run("update-mime-database", mime, env=dict(os.environ, XDG_DATA_DIRS=str(self.share)))
        self.assertEqual(complaints, "")
        globs = (mime / "globs2").read_text()
        self.assertIn(f"80:{kind}:gigglearchives.csv\n", globs)
        self.assertIn(f"10:{kind}:*.csv\n", globs)  # below the 50 of tables, which stay tables
        magic = (mime / "magic").read_bytes()
        self.assertIn(f"[80:{kind}]".encode(), magic)
        for start in (b"[GIGGLEARCHIVES]", b"\xef\xbb\xbf[GIGGLEARCHIVES]"):
            self.assertIn(b">0=" + len(start).to_bytes(2, "big") + start, magic)
        for file in (f"applications/{ID}.desktop", f"metainfo/{ID}.metainfo.xml"):
            self.assertIn(kind, (self.share / file).read_text())

    def open_through_bus(self, **display):
        """What the application says when a file manager has a file opened with it that is not there."""
        home = pathlib.Path(tempfile.mkdtemp(dir=self.folder))
        settings = home / ".config/giggle-archives/preferences.json"
        settings.parent.mkdir(parents=True)
        settings.write_text('{"hasBeenLaunchedBeforeFlag":{"boolean":true}}')  # else it greets the user first
        environment = {
            "PATH": os.environ["PATH"],
            "HOME": str(home),
            "XDG_RUNTIME_DIR": str(home),
            "XDG_DATA_DIRS": str(self.share),
            "LC_ALL": "C.UTF-8",
        }
        # A process group of its own, because what the bus starts outlives the bus.
        session = subprocess.Popen(
            ["dbus-run-session", "--", SYSTEM_PYTHON, "-c", OPENING],
            env=environment | display,
            text=True,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            start_new_session=True,
        )
        end = functools.partial(os.killpg, session.pid, signal.SIGKILL)
        patience = threading.Timer(30, end)
        patience.start()
        said = []
        with session:
            for line in session.stdout:
                said.append(line)
                if "no such.csv" in line or line.startswith("refused"):
                    break
            if patience.is_alive():
                patience.cancel()
                end()
        return "".join(said)

    def test_the_bus_starts_it_and_hands_over_a_file(self):
        self.assertIn('"/no such.csv" cannot be read', self.open_through_bus(QT_QPA_PLATFORM="offscreen"))

    def test_the_bus_starts_nothing_that_cannot_be_seen(self):
        said = self.open_through_bus()
        self.assertIn("There is no display", said)
        self.assertIn("refused", said)

    def test_the_package_depends_on_what_is_loaded_at_run_time(self):
        packages = (SOURCE / "tools/packages.sh").read_text()
        described = (SOURCE / "packaging/Package.cmake").read_text()
        lists = re.findall(r"^(?:application|wayland)=\(\n(.*?)^\)", packages, re.DOTALL | re.MULTILINE)
        wanted = " ".join(lists).split()
        self.assertIn("qml6-module-qtquick", wanted)
        self.assertEqual([p for p in wanted if not re.search(rf"(?<![\w-]){p}(?![\w-])", described)], [])

    def test_every_place_tells_the_same_version(self):
        version = re.search(r"^CMAKE_PROJECT_VERSION:STATIC=(.*)$", (BUILD / "CMakeCache.txt").read_text(), re.M)[1]
        self.assertIn(f'<release version="{version}"', (self.share / f"metainfo/{ID}.metainfo.xml").read_text())
        self.assertTrue((SOURCE / "packaging/debian/changelog").read_text().startswith(f"giggle-archives ({version}) "))


if __name__ == "__main__":
    unittest.main()
