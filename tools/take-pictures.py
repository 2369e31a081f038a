#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Takes pictures of every screen of the real executable, in light and dark, on a display in memory.

    tools/take-pictures.py [--executable FILE] [--folder FOLDER] [--sizes WxH ...] [--text-size FACTOR]

They are there to be looked at, in docs/images/reference/ unless said otherwise: a folder for each size and style."""

import argparse
import os
import pathlib
import subprocess
import sys
import tempfile
import threading

ROOT = pathlib.Path(__file__).resolve().parent.parent
SYSTEM_PYTHON = "/usr/bin/python3"  # the accessibility bindings are for it
sys.path.insert(0, str(ROOT / "tests/executable"))

SETTINGS = """<node><interface name='org.freedesktop.portal.Settings'>
  <method name='Read'><arg type='s' direction='in'/><arg type='s' direction='in'/><arg type='v' direction='out'/></method>
</interface></node>"""


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--executable", type=pathlib.Path, default=ROOT / "build/release/bin/giggle-archives")
    parser.add_argument("--folder", type=pathlib.Path, default=ROOT / "docs/images/reference")
    parser.add_argument("--sizes", nargs="+", default=["360x640", "800x1280", "1280x800"])
    parser.add_argument("--text-size", type=float, default=1)
    parser.add_argument("--style", choices=["light", "dark"], help=argparse.SUPPRESS)  # within a display
    return parser.parse_args()


def within_displays(wanted):
    """Runs this script again for each size and style, with a display and a session bus of its own."""
    for size in wanted.sizes:
        for style in ("light", "dark"):
            folder = wanted.folder / f"{size}-{style}"
            folder.mkdir(parents=True, exist_ok=True)
            display = ["xvfb-run", "-a", "-s", f"-screen 0 {size}x24"]
            this = [SYSTEM_PYTHON, __file__, "--style", style, "--folder", folder, "--executable", wanted.executable]
            this += ["--text-size", str(wanted.text_size)]
            subprocess.run(["dbus-run-session", "--", *display, *this], check=True)
            pictures = list(folder.glob("*.png"))
            print(f"{folder}: {len(pictures)} pictures, {sum(p.stat().st_size for p in pictures) >> 10} KiB", flush=True)


def serve_settings(style):
    """A settings portal that asks for the style, and for nothing to move."""
    from gi.repository import Gio, GLib

    values = {"color-scheme": 1 if style == "dark" else 2, "reduced-motion": 1}

    def answer(_connection, _sender, _path, _interface, _method, parameters, invocation):
        key = parameters.unpack()[1]
        if key in values:
            value = GLib.Variant("v", GLib.Variant("u", values[key]))
            invocation.return_value(GLib.Variant("(v)", (value,)))
        else:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", key)

    loop = GLib.MainLoop.new(context := GLib.MainContext.new(), False)

    def run():
        context.push_thread_default()
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        bus = Gio.DBusConnection.new_for_address_sync(os.environ["DBUS_SESSION_BUS_ADDRESS"], flags, None, None)
        interface = Gio.DBusNodeInfo.new_for_xml(SETTINGS).interfaces[0]
        bus.register_object("/org/freedesktop/portal/desktop", interface, answer, None, None)
        name = "org.freedesktop.portal.Desktop"
        Gio.bus_own_name_on_connection(bus, name, Gio.BusNameOwnerFlags.NONE, lambda *_: ready.set(), None)
        loop.run()

    ready = threading.Event()
    threading.Thread(target=run, daemon=True).start()
    ready.wait(10)


class Tour:
    """Leads through the screens; `stop` is called at each with its name."""

    def __init__(self, app, stop):
        self.app = app
        self.stop = stop

    def show(self, name, title):
        self.app.await_title(title)
        self.stop(name)

    def go(self, name, button, title=None, role=None):
        self.app.press(button, *([role] if role else []))
        self.show(name, title or button)

    def back(self, *titles):
        for title in titles:
            self.app.press("Back")
            self.app.await_title(title)
        if titles[-1] == "Giggle Archives":
            self.app.press("Menu")

    def open_row(self, name, title):
        from screen_reader import Role, press

        press(self.app.find(Role.LIST_ITEM))
        self.show(name, title)

    def pick(self, name, field):
        from screen_reader import Role, press

        press(self.app.find(Role.TEXT, field))
        self.app.find(Role.LIST, f"{field} choices")
        self.stop(name)
        self.app.press("Done")

    def open_sheets(self, name, title):
        for button in ("Share", "Print"):
            self.go(f"{name}-{button.lower()}", button)
            self.go(None, "Cancel", title)

    def walk(self):
        self.show("alert", "Initial Setup Recomendations?")
        self.go("menu-folded", "Ok", "Giggle Archives")
        self.go("menu", "Menu", "Giggle Archives")
        self.jokes()
        self.lists()
        self.files()
        for name, area, title in [
            ("joke-of-the-day", "Joke of the Day", None),
            ("print", "Print", None),
            ("rate-share", "Rate / Share", None),
            ("overview", "Overview", "Parchment Trove Overview"),
        ]:
            self.go(name, area, title)
            self.back("Giggle Archives")

    def jokes(self):
        from screen_reader import Role

        self.go("joke-list", "Joke List")
        self.app.find(Role.TEXT, "Search by Category").set_text_contents("zzz")
        self.stop("joke-list-nothing-found")
        self.app.press("Clear search")
        self.open_row("edit-joke", "Edit Joke")
        self.open_sheets("joke", "Edit Joke")
        self.back("Joke List", "Giggle Archives")
        self.go("add-joke", "Add Joke")
        self.pick("category-choices", "Category")
        self.back("Giggle Archives")
        self.go("user-defaults", "Default Settings", "User Defaults")
        self.pick("font-choices", "Font")
        self.back("Giggle Archives")

    def lists(self):
        from screen_reader import Role

        self.go("categories", "Jokes by Category")
        self.open_row("breakdown", "(Anecdotal)")
        self.back("Jokes by Category")
        self.go("ratings", "Ratings", "Jokes by Category", Role.PAGE_TAB)
        self.back("Giggle Archives")
        self.go("reference-lists", "Reference Lists")
        self.go(None, "Categories")
        self.app.press("Sort")  # those without a name go to the end
        self.show("category-list", "Categories")
        self.open_row("edit-category", "Edit Category")
        self.back("Categories", "Reference Lists")
        self.go("rating-list", "Ratings")
        self.go("add-rating", "Add", "Add Rating")
        self.back("Ratings", "Reference Lists", "Giggle Archives")

    def files(self):
        self.go("import-export", "Import / Export")
        self.go("import", "Import Jokes")
        self.go("load-file", "Load File")
        self.go(None, "Cancel", "Import Jokes")
        self.back("Import / Export")
        self.go("export", "Export Jokes")
        self.go("export-done", "Export", "Data Export")
        self.go(None, "OK", "Export Jokes")
        self.back("Import / Export", "Giggle Archives")


def take_all(wanted):
    from screen_reader import Application, wait

    serve_settings(wanted.style)
    manager = subprocess.Popen(["matchbox-window-manager", "-use_titlebar", "no"])

    def take(name):
        if not name:
            return
        wait(0.4)  # until it is drawn
        small = ["+dither", "-colors", "64", "-define", "png:compression-level=9"]
        picture = f"PNG8:{wanted.folder}/{name}.png"
        subprocess.run(["import", "-window", "root", *small, picture], check=True)

    text = {"QT_FONT_DPI": str(round(96 * wanted.text_size)), "QT_ENABLE_HIGHDPI_SCALING": "0"}
    with tempfile.TemporaryDirectory() as home:
        app = Application(wanted.executable, home, LC_ALL="C.UTF-8", **(text if wanted.text_size != 1 else {}))
        try:
            Tour(app, take).walk()
        finally:
            app.end()
            manager.terminate()
            manager.wait()


if __name__ == "__main__":
    wanted = arguments()
    if wanted.style:
        take_all(wanted)
    else:
        within_displays(wanted)
