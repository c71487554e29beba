"""Korvane on a Wayland desktop: where its panel is and who has the keyboard is asked of the panel itself, by the
bus for assistive technology. What has come to the screen has a size there, and who has the keyboard is active."""

import os
import subprocess

from gi.repository import Atspi, GLib

from support.korvane import Korvane
from support.waiting import NotObserved, wait_for

SETTINGS = "Korvane Settings"


class WaylandKorvane(Korvane):
    def __init__(self, desk, clips=(), environment=(), **options):
        without_reader = {key: value for key, value in os.environ.items() if key == "NO_AT_BRIDGE"}
        os.environ.pop("NO_AT_BRIDGE", None)
        try:
            super().__init__(desk, clips, environment={"WAYLAND_DISPLAY": desk.socket(), **dict(environment)}, **options)
        finally:
            os.environ.update(without_reader)

    def start(self):
        """Starts it and waits until it does what it is asked to: its windows have been made by then."""
        with open(self.desk.folder / "korvane.log", "ab") as log:
            self.process = subprocess.Popen([self.program], env=self.environment, stdin=subprocess.DEVNULL, stdout=log,
                                            stderr=log if self.stderr is None else self.stderr)
        wait_for(lambda: f"Korvane is ready; it says {self.log()!r}", lambda: self.is_ready() or not self.is_running(), 20)
        if not self.is_running():
            raise NotObserved(f"not observed: Korvane is ready; it has ended and says {self.log()!r}")

    def is_ready(self):
        self.element = self.desk.reader.program(self.process.pid)
        if self.element is None:
            return False
        # What the bus told a moment ago would be taken for what is.
        self.element.accessible.set_cache_mask(Atspi.Cache.NONE)
        return self.window("Korvane") is not None

    def window(self, name):
        """The element of a window by its title; None where there is none."""
        try:
            return next((each for each in self.element.children() if each.name == name), None)
        except GLib.Error:  # one goes while it is looked at
            return None

    def states(self, name):
        window = self.window(name)
        return window.states() if window is not None else set()

    def panel(self, viewable=False):
        return self.window("Korvane") if not viewable or "showing" in self.states("Korvane") else None

    def has_keyboard(self, name="Korvane"):
        return {"showing", "active"} <= self.states(name)

    def wait_until_open(self):
        wait_for(lambda: f"the panel is open and has the keyboard; it says {self.log()!r}", self.has_keyboard)

    def open(self):
        """Opens the panel as a key binding of the compositor's does."""
        self.wait_until_closed()
        assert self.command("--toggle") == (0, "")
        self.wait_until_open()

    def part(self, role, name):
        """A part of the panel, once it is there."""
        return wait_for(f"the {role} {name!r}", lambda: self.found(role, name))

    def found(self, role, name):
        try:
            window = self.window("Korvane")
            return window.find(role, name) if window is not None else None
        except GLib.Error:
            return None

    def middle_of_row(self, number):
        """Where the middle of a row of the list is on the screen."""
        x, y, width, height = self.part("list", "Clips").child(number).extents()
        return x + width // 2, y + height // 2

    def shown_texts(self):
        """What the labels on the panel and beside it say."""
        try:
            return [each.name for each in self.window("Korvane").descendants() if "showing" in each.states() and each.role == "label"]
        except GLib.Error:
            return []

    def wait_until_private_is(self, is_on):
        """Waits until the panel's button tells so, which is when it holds."""
        wait_for(f"private mode is {is_on}", lambda: self.private_button() is not None
                 and ("checked" in self.private_button().states()) == is_on)

    def private_button(self):
        return self.named_part("Private Mode")

    def named_part(self, name):
        """A part of the panel of whatever role."""
        return next((each for each in self.window("Korvane").descendants() if each.name == name), None)

    def rows(self):
        return self.part("list", "Clips").names()
