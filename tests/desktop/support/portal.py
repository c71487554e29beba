"""The desktop's portal, with the file dialogs of GTK."""

import contextlib
import os
import subprocess
import unittest.mock

from gi.repository import GLib

from support.programs import Program
from support.waiting import wait_for

DIALOG = "xdg-desktop-portal-gtk"


class Portal:
    """Started by hand, as the virtual desktop's bus starts none; it is there when this has been made, and ends with
    the test."""

    def __init__(self, desk, reader):
        self.desk, self.reader = desk, reader
        # The one that shows the dialogs comes first, and the other one finds it. Its dialogs are looked at.
        with unittest.mock.patch.dict(os.environ):
            os.environ.pop("NO_AT_BRIDGE", None)
            self.dialogs = Program(desk, ["/usr/libexec/xdg-desktop-portal-gtk"])
        wait_for_name("org.freedesktop.impl.portal.desktop.gtk")
        self.portal = Program(desk, ["/usr/libexec/xdg-desktop-portal"], XDG_CURRENT_DESKTOP="GNOME")
        wait_for_name("org.freedesktop.portal.Desktop")

    def window(self, title):
        """The window of a dialog; None while there is none."""
        found = self.desk.screen.find(DIALOG, title=title)
        return found[0] if found else None

    def wait_for_dialog(self, title):
        """Its element, once it has the keyboard."""
        def is_in_front():
            window = self.window(title)
            return window is not None and self.desk.screen.has_keyboard(window)

        wait_for(f"the portal's dialog {title!r} has the keyboard", is_in_front)
        program = wait_for("the portal shows itself", lambda: self.reader.program(self.dialogs.process.pid))
        return wait_for(f"the portal's dialog {title!r} shows itself",
                        lambda: first(program.children, lambda each: each.role == "file chooser" and each.name == title))

    def wait_until_gone(self, title):
        wait_for(f"the portal's dialog {title!r} is gone", lambda: self.window(title) is None)

    def enter(self, title, path):
        """Writes the path of a file into a dialog, and takes it."""
        dialog = self.wait_for_dialog(title)
        # A dialog for a file that is there has a field from the first stroke on.
        self.desk.keys.press("Control_L", "a")
        self.desk.keys.type(str(path)[0])
        wait_for("the field for the file", lambda: first(dialog.descendants, is_field))
        self.desk.keys.type(str(path)[1:])
        wait_for(f"{path} stands in the field",
                 lambda: first(dialog.descendants, lambda each: is_field(each) and each.text() == str(path)))
        self.desk.keys.press("Return")
        self.wait_until_gone(title)

    def end(self):
        for program in (self.portal, self.dialogs):
            program.end()


def wait_for_name(name):
    """Waits until somebody has a name on the session bus, without having anybody started for it."""
    subprocess.run(["gdbus", "wait", "--session", "--timeout", "30", name], check=True)


def is_field(element):
    """Whether it is the field that is written into."""
    return element.role == "text" and "focused" in element.states()


def first(elements, is_meant):
    """The first one that is meant of what a function gives; None where there is none, or where some went while they
    were looked at: a dialog makes its list anew, and one of several may just be closing."""
    with contextlib.suppress(GLib.Error):
        return next((each for each in elements() if is_meant(each)), None)
    return None
