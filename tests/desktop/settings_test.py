"""The settings window on the desktop: the ways to it, its place, and that what is set acts at once."""

import subprocess

from support.editors import Mousepad
from support.history import clip
from support.painting import wait_until_at_rest
from support.panel_parts import GEAR, PanelParts
from support.settings import SettingsTest
from support.tray import Tray
from support.waiting import wait_for

PREFERENCES_LINE = 2  # of the icon's menu


class SettingsWindowTest(SettingsTest):
    def open_from_icon(self):
        self.choose_by_keys(self.open_menu(self.tray), PREFERENCES_LINE)

    def open_from_panel(self):
        parts = PanelParts(self.screen, self.korvane.open())
        self.keys.click(*parts.button(GEAR))
        return parts.box

    def start(self, *clips, **preferences):
        self.tray = Tray(self.desk)
        self.start_korvane(list(clips), **preferences)

    def test_the_icons_menu_opens_it_and_the_same_line_closes_it(self):
        self.start()
        self.open_from_icon()
        self.wait_until_shown()
        self.assertEqual(self.screen.wm_class(self.settings()), ("korvane", "Korvane"))
        self.open_from_icon()
        self.wait_until_hidden()

    def test_the_panels_button_opens_it_beside_the_panel_and_brings_it_back(self):
        self.start(clip("one"))
        panel = self.open_from_panel()
        self.wait_until_shown()

        def stands_beside():
            return self.screen.framed(self.settings()).right == panel.x - 8

        wait_for(lambda: f"it stands beside the panel {panel}: {self.screen.framed(self.settings())}", stands_beside)
        self.assertTrue(self.korvane.is_open())
        parts = PanelParts(self.screen, panel)
        self.keys.click(*parts.button(GEAR))
        self.wait_until_shown()
        wait_for("it stands beside the panel again", stands_beside)

    def test_it_has_one_size_and_escape_closes_it(self):
        self.start()
        self.open_from_icon()
        self.wait_until_shown()
        box = self.screen.box(self.settings())
        self.assertEqual((box.width, box.height), (520, 482))
        self.keys.press("Escape")
        self.wait_until_hidden()
        self.assertTrue(self.korvane.is_running())

    def test_a_switch_that_is_turned_by_the_keyboard_is_in_the_file_and_acts(self):
        self.start(clip("one"), clip("two"))
        self.open_from_icon()
        self.wait_until_shown()
        wait_until_at_rest(self.screen)  # the list of windows in the bar has moved the icon
        icon = self.tray.icon()
        before = self.screen.pixels(icon)

        switch = self.go_to("check box", "Show clip count in menu bar")
        self.keys.press("space")

        self.wait_for_preference("showCountInMenuBar", True)
        wait_for("the switch is on", lambda: "checked" in switch.states())
        wait_for("the icon has the count", lambda: self.screen.pixels(icon) != before)

    def test_a_choice_by_the_arrows_is_in_the_file_and_acts(self):
        self.start(clip("one"), theme="light")
        self.open_from_icon()
        self.wait_until_shown()
        box = self.screen.box(self.settings())
        corner = type(box)(box.x + 2, box.bottom - 4, 2, 2)
        light = bytes(self.screen.pixels(corner)[0])[0]

        self.go_to("radio button", "Light")
        self.keys.press("Right")

        self.wait_for_preference("theme", "dark")
        wait_for("the window is dark", lambda: bytes(self.screen.pixels(corner)[0])[0] < light - 100)
        self.korvane.quit()
        self.korvane.start()
        self.open_from_icon()
        self.wait_until_shown()
        wait_for("it is dark again", lambda: bytes(self.screen.pixels(corner)[0])[0] < light - 100)

    def test_a_change_of_the_file_shows_in_the_open_window(self):
        self.start()
        self.open_from_icon()
        self.wait_until_shown()
        switches = ("Show clip count in menu bar", "Play sound on copy", "Play sound on select in list", "Play sound on paste")
        pickers = {"Chevron scrolling:": "On click", "Theme:": "Dark", "Panel alignment below icon:": "Right",
                   "Preview side:": "Left", "Preview position:": "Follow"}
        self.assertFalse([name for name in switches if self.is_on(name)])
        self.assertFalse([name for name, title in pickers.items() if self.chosen(name) == title])

        self.korvane.set_preferences(
            showCountInMenuBar=True, playSoundOnCopy=True, playSoundOnSelect=True, playSoundOnPaste=True,
            copySoundName="Basso", selectSoundName="Funk", pasteSoundName="Frog", chevronActivation="click", theme="dark",
            panelAlignment="right", previewSide="left", previewPosition="follow", enableTabCycling=False, enableDirectPaste=False)

        for name in switches:
            wait_for(f"{name!r} is on", lambda name=name: self.is_on(name))
        for name, title in pickers.items():
            wait_for(f"{name!r} shows {title!r}", lambda name=name, title=title: self.chosen(name) == title)
        wait_for(lambda: f"the three sounds; there are {self.chosen_sounds()}",
                 lambda: self.chosen_sounds() == ["Basso", "Funk", "Frog"])
        self.keys.press("Alt_L", "s")
        for name in ("Enable Tab / ⇧Tab to cycle filter tabs", "Enable ⌘1–⌘0 direct select"):
            wait_for(f"{name!r} is off", lambda name=name: not self.is_on(name))

    def is_on(self, name):
        return "checked" in self.control("check box", name).states()

    def chosen_sounds(self):
        """What each row of a sound that is to be seen has chosen, from the top."""
        rows = [each for each in self.window.descendants()
                if each.role == "panel" and each.name == "Sound:" and "showing" in each.states()]
        return [next((choice.name for choice in row.children() if "checked" in choice.states()), None) for row in rows]

    def test_a_limit_that_is_changed_in_the_file_shows_when_the_page_appears_again(self):
        self.start()
        self.open_from_icon()
        self.wait_until_shown()
        field = self.control("text", "Max clips:")
        switch = self.control("check box", "Play sound on paste")

        self.korvane.set_preferences(maxClips=300, playSoundOnPaste=True)
        wait_for("the program has read the file", lambda: "checked" in switch.states())
        self.assertEqual(field.text(), "500")
        self.keys.press("Alt_L", "s")
        self.keys.press("Alt_L", "g")

        wait_for(lambda: f"the field follows; it holds {field.text()!r}", lambda: field.text() == "300")

    def put_away(self):
        """Minimizes the window. A manager that minimizes nothing moves it to where nobody looks."""
        if self.desk.kind == "i3":
            subprocess.run(["i3-msg", "move container to workspace elsewhere"], check=True, stdout=subprocess.DEVNULL, timeout=20)
        else:
            self.screen.minimize(self.settings())
        self.wait_until_hidden()

    def test_what_was_being_typed_into_a_minimized_window_is_not_there_when_it_is_opened_again(self):
        self.start()
        self.open_from_icon()
        self.wait_until_shown()
        field = self.control("text", "Max clips:")
        self.go_to("text", "Max clips:")
        self.keys.press("Control_L", "a")
        self.keys.type("60")
        wait_for("it is typed", lambda: field.text() == "60")

        self.put_away()
        self.open_from_panel()
        self.wait_until_shown()

        wait_for(lambda: f"the field holds the limit; it holds {field.text()!r}", lambda: field.text() == "500")
        self.assertNotIn("maxClips", self.korvane.preferences())

    def test_at_twice_the_scale_it_is_no_larger_than_the_screen(self):
        self.tray = Tray(self.desk)
        self.start_korvane(environment={"QT_SCALE_FACTOR": "2"})
        self.open_from_icon()
        self.wait_until_shown()
        window = self.settings()

        def fits():
            frame, whole = self.screen.framed(window), self.screen.all()
            return (frame.x >= 0 and frame.right <= whole.width
                    and frame.y >= self.screen.top_bar() and frame.bottom <= whole.height)

        wait_for(lambda: f"it stands on the screen: {self.screen.framed(window)}", fits)

    def test_launch_at_login_makes_an_entry_that_is_still_on_after_a_restart(self):
        self.start()
        entry = self.korvane.preferences_path.parents[1] / "autostart/com.VNT.Korvane.desktop"
        self.open_from_icon()
        self.wait_until_shown()
        self.go_to("check box", "Launch at login")
        self.keys.press("space")
        wait_for("the entry is there", entry.exists)
        self.assertIn("X-GNOME-Autostart-enabled=true", entry.read_text())

        self.korvane.quit()
        self.korvane.start()
        self.open_from_icon()
        self.wait_until_shown()
        self.assertIn("checked", self.control("check box", "Launch at login").states())
        self.go_to("check box", "Launch at login")
        self.keys.press("space")
        wait_for("the entry is gone", lambda: not entry.exists())

    def test_the_pages_are_chosen_by_keys_and_the_last_one_stays(self):
        self.start()
        self.open_from_icon()
        self.wait_until_shown()
        self.keys.press("Alt_L", "h")
        wait_for("the help is shown", lambda: "selected" in self.control("page tab", "Help").states())
        self.keys.press("Escape")
        self.wait_until_hidden()

        self.open_from_icon()
        self.wait_until_shown()

        self.assertIn("selected", self.control("page tab", "Help").states())

    def test_what_closes_the_panel_leaves_the_keyboard_with_the_window(self):
        self.start(clip("one"))
        self.open_from_panel()
        self.wait_until_shown()
        self.korvane.command("--hide")
        self.korvane.wait_until_closed()
        self.wait_until_shown()
        self.keys.press("Escape")
        self.wait_until_hidden()

    def test_what_closes_the_panel_hands_the_keyboard_to_no_program_under_the_pointer(self):
        for way in ("the shortcut", "the command"):
            with self.subTest(way):
                editor = Mousepad(self.desk).to_front()
                self.start(clip("one"))
                self.open_from_panel()
                self.wait_until_shown()

                if way == "the command":
                    self.korvane.command("--hide")
                else:
                    self.keys.press("Control_L", "space")
                self.korvane.wait_until_closed()
                self.screen.wait_for_manager()

                self.assertTrue(self.screen.is_in_front(self.settings()))
                self.keys.press("Escape")
                self.wait_until_hidden()
                self.korvane.quit()
                editor.end()
