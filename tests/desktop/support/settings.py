"""The settings window as a user of assistive technology and of the keyboard meets it."""

import os
import unittest.mock

from support.panel_parts import GEAR, PanelParts
from support.reader import Reader
from support.tray_menu import TrayMenuTest
from support.waiting import wait_for

TITLE = "Korvane Settings"


class SettingsTest(TrayMenuTest):
    """Tests that look at the window by what it tells assistive technology."""

    def setUp(self):
        super().setUp()
        self.reader = Reader()
        self.addCleanup(self.reader.close)

    def start_korvane(self, clips=(), **options):
        # The script of the desktop sets this, so that no other test has a reader's share in it.
        with unittest.mock.patch.dict(os.environ):
            os.environ.pop("NO_AT_BRIDGE", None)
            return super().start_korvane(clips, **options)

    def open_alone(self, letter):
        """Opens the window by the panel's button, closes the panel, and goes to the page of a letter."""
        parts = PanelParts(self.screen, self.korvane.open())
        self.keys.click(*parts.button(GEAR))
        self.wait_until_shown()
        self.korvane.command("--hide")
        self.korvane.wait_until_closed()
        # Where the focus follows the pointer, the window that was under the panel may have it now.
        self.screen.activate(self.settings())
        self.wait_until_shown()
        self.keys.press("Alt_L", letter)
        wait_for("the page is shown", lambda: any(
            each.role == "page tab" and each.name.lower().startswith(letter) and "selected" in each.states()
            for each in self.window.descendants()))

    def settings(self):
        """The window on the screen; None while it is not to be seen."""
        found = self.screen.find("korvane", title=TITLE)
        return found[0] if found else None

    def wait_until_shown(self):
        """Waits until it is there and has the keyboard; its element."""
        def is_in_front():
            window = self.settings()
            return window is not None and self.screen.has_keyboard(window)

        wait_for("the settings window is shown and has the keyboard", is_in_front)
        program = wait_for("the program shows itself", lambda: self.reader.program(self.korvane.process.pid))
        self.window = wait_for("the settings window shows itself", lambda: program.find("frame", TITLE))
        return self.window

    def wait_until_hidden(self):
        wait_for("the settings window is hidden", lambda: self.settings() is None)

    def control(self, role, name):
        return wait_for(f"{name!r} is there", lambda: self.window.find(role, name))

    def go_to(self, role, name):
        """Gives a control the keyboard, by the Tab key alone."""
        return self.bring_to(self.control(role, name))

    def bring_to(self, control):
        """Gives an element the keyboard, by the Tab key alone."""
        def reached():
            if "focused" in control.states():
                return True
            self.keys.press("Tab")
            return False

        wait_for(f"the Tab key comes to {control.name!r}", reached)
        return control

    def turn(self, name, is_on):
        """Turns a switch by the keyboard, which it is not to have been turned to before."""
        switch = self.go_to("check box", name)
        self.assertEqual("checked" in switch.states(), not is_on)
        self.keys.press("space")
        wait_for(f"{name!r} is turned", lambda: ("checked" in switch.states()) == is_on)

    def picker(self, name):
        """The choices of a picker that can be seen, by name."""
        def find():
            found = next((each for each in self.window.descendants()
                          if each.role == "panel" and each.name == name and "showing" in each.states()), None)
            return found and {choice.name: choice for choice in found.children()}

        return wait_for(f"the picker {name!r} is there", find)

    def chosen(self, name):
        """What a picker has chosen."""
        return next((title for title, choice in self.picker(name).items() if "checked" in choice.states()), None)

    def choose(self, name, title):
        """Chooses something else in a picker, by the arrows."""
        choices = self.picker(name)
        titles, before = list(choices), self.chosen(name)
        self.bring_to(choices[before])
        step = 1 if titles.index(title) > titles.index(before) else -1
        for at in range(titles.index(before) + step, titles.index(title) + step, step):
            self.keys.press("Right" if step > 0 else "Left")
            wait_for(f"{titles[at]!r} is chosen", lambda at=at: "checked" in choices[titles[at]].states())

    def wait_for_preference(self, key, value):
        wait_for(lambda: f"{key} is {value!r}; the preferences are {self.korvane.preferences()}",
                 lambda: self.korvane.preferences().get(key) == value)
