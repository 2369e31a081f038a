# SPDX-License-Identifier: MIT
"""Uses the running executable as a screen reader does: over the accessibility bus, by roles and names.

Needs a display and a session bus of its own."""

import contextlib
import os
import pathlib
import signal
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

Role = Atspi.Role
PATIENCE_SECONDS = 20
# A program for messages, so that everything can be handed on.
POSTMAN = """[Desktop Entry]
Type=Application
Name=Postman
Exec=/bin/true %u
MimeType=x-scheme-handler/sms;x-scheme-handler/mailto;
"""


class Missing(AssertionError):
    """Nothing of that role and name shows."""


def has_state(item, state):
    return item.get_state_set().contains(state)


def is_there(item):
    """Whether it shows, or would if it were scrolled into the window."""
    return has_state(item, Atspi.StateType.SHOWING) or item.get_extents(Atspi.CoordType.SCREEN).width > 0


def showing(item):
    """What shows below an accessible, parents first; what has scrolled out of sight as well."""
    with contextlib.suppress(GLib.GError):  # what goes away meanwhile does not answer
        for i in range(item.get_child_count()):
            child = item.get_child_at_index(i)
            if child is not None and is_there(child):
                yield child
                yield from showing(child)


class Application:
    """The executable with folders of its own and its starter collection; `environment` is added to what it inherits."""

    def __init__(self, executable, home, **environment):
        home = pathlib.Path(home)
        postman = home / "data/applications/postman.desktop"
        postman.parent.mkdir(parents=True, exist_ok=True)
        postman.write_text(POSTMAN)
        self.root = None
        # So that the accessibility bus is there before the program looks for it.
        Atspi.get_desktop(0).get_child_count()
        self.process = subprocess.Popen(
            [executable],
            env=dict(
                os.environ,
                **{f"XDG_{name}_HOME": str(home / name.lower()) for name in ("DATA", "CONFIG", "STATE")},
                HOME=str(home),
                QT_QPA_PLATFORM="xcb",
                QT_QUICK_BACKEND="software",
                QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                **environment,
            ),
            stdout=subprocess.DEVNULL,
        )
        try:
            self.root = self._await(self._find_root, "the application is not on the accessibility bus")
        except BaseException:
            self.end()
            raise

    def end(self):
        """Closes it as a session does, and tells its exit status."""
        self.process.send_signal(signal.SIGTERM)
        try:
            return self.process.wait(PATIENCE_SECONDS)
        except subprocess.TimeoutExpired:
            self.process.kill()
            return self.process.wait()

    def showing(self):
        return list(showing(self.root))

    def find(self, role, name=None, within=None):
        """Waits for the first that shows with this role and name."""
        return self._await(lambda: self.look(role, name, within), f"no {role.value_nick} {name or ''} shows")

    def look(self, role, name=None, within=None):
        """The first that shows with this role and name, or None."""
        with contextlib.suppress(GLib.GError):
            for item in showing(within or self.root):
                if item.get_role() == role and (name is None or item.get_name() == name):
                    return item
        return None

    def await_gone(self, role, name):
        self._await(lambda: not self.look(role, name), f"{role.value_nick} {name} does not go away")

    def await_count(self, role, count):
        """Waits until so many of that role show."""
        self._await(
            lambda: sum(item.get_role() == role for item in self.showing()) == count, f"no {count} {role.value_nick}"
        )

    def await_title(self, title):
        """Waits until the page or dialog of this title is alone on top."""

        def has_arrived():
            titles = [item for item in self.showing() if item.get_role() in (Role.DIALOG, Role.PAGE_TAB)]
            titles = [item for item in titles if not press_actions(item)]  # a tab proper can be pressed
            return titles and titles[-1].get_name() == title and (len(titles) == 1 or is_dialog(titles[-1]))

        self._await(has_arrived, f"{title} does not show")

    def press(self, name, role=Role.PUSH_BUTTON, within=None):
        """Does what a press of the control does, once it shows."""
        press(self.find(role, name, within))

    def _find_root(self):
        if self.process.poll() is not None:
            raise AssertionError(f"it has ended with {self.process.returncode}")
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()  # of applications that have ended
        for i in range(desktop.get_child_count()):
            with contextlib.suppress(GLib.GError):
                application = desktop.get_child_at_index(i)
                if application is not None and application.get_process_id() == self.process.pid:
                    return application if application.get_child_count() > 0 else None
        return None

    def _await(self, condition, failure):
        end = time.monotonic() + PATIENCE_SECONDS
        while time.monotonic() < end:
            with contextlib.suppress(GLib.GError):
                if result := condition():
                    return result
            wait(0.03)
        there = [describe(item) for item in self.showing()[:60]] if self.root else "nothing"
        raise Missing(f"{failure}; there is {there}")


class Hearing:
    """Writes down the names of the alerts that begin to show, in `names`, while it is entered."""

    KIND = "object:state-changed:showing"

    def __init__(self):
        self.names = []
        self._listener = Atspi.EventListener.new(self._hear)

    def __enter__(self):
        self._listener.register(self.KIND)
        wait(0.3)  # until the application knows that somebody listens
        return self

    def __exit__(self, *_):
        self._listener.deregister(self.KIND)

    def await_count(self, count):
        """Waits until so many were heard, and a moment more for one too many."""
        end = time.monotonic() + PATIENCE_SECONDS
        while len(self.names) < count and time.monotonic() < end:
            wait(0.05)
        wait(0.3)

    def _hear(self, event):
        with contextlib.suppress(GLib.GError):
            if event.detail1 and event.source.get_role() == Role.ALERT:
                self.names.append(event.source.get_name())


def wait(seconds):
    """Lets time pass, in which events arrive."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        while GLib.MainContext.default().iteration(False):
            pass
        time.sleep(0.01)


def press_actions(item):
    """The positions of the actions that press or toggle."""
    return [i for i in range(item.get_n_actions()) if item.get_action_name(i) in ("Press", "Toggle")]


def is_dialog(item):
    return item.get_role() == Role.DIALOG


def text_of(item):
    return Atspi.Text.get_text(item, 0, -1)


def press(item):
    if not press_actions(item):
        raise Missing(f"{describe(item)} cannot be pressed")
    item.do_action(press_actions(item)[0])


def describe(item):
    return f"{item.get_role().value_nick} “{item.get_name()}”"
