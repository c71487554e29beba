"""What is set in the settings window is in the preferences, acts at once, and still does after a restart."""

import time

from support.editors import Mousepad
from support.history import clip
from support.loudspeaker import Loudspeaker
from support.painting import wait_until_at_rest
from support.panel_parts import PanelParts, shift
from support.preview import FIRST_ROW, GAP, LIST_TOP, PANEL
from support.preview import TITLE as PREVIEW
from support.settings import SettingsTest
from support.tray import Tray
from support.waiting import wait_for


class SettingsEffectTest(SettingsTest):
    def start(self, *clips, **options):
        self.tray = Tray(self.desk)
        if self.desk.kind == "i3":
            self.tray.fill(13)  # both sides of the panel have room for the preview
        self.start_korvane(list(clips), **options)

    def in_the_settings(self, act, key, value, letter="g"):
        """Does something in the window, which then is in the file; the window is closed after that."""
        self.open_alone(letter)
        act()
        self.wait_for_preference(key, value)
        self.keys.press("Escape")
        self.wait_until_hidden()

    def restart(self):
        self.korvane.quit()
        self.korvane.start()

    def open_below_icon(self):
        wait_until_at_rest(self.screen)  # the list of windows in the bar has moved the icon
        self.tray.click()
        box = self.korvane.wait_until_open()
        self.keys.point(700, 800)  # the bar explains an icon that the pointer rests on
        return box

    # --- the chevrons

    def test_the_chevrons_scroll_at_a_click_once_that_is_chosen(self):
        self.start(*(clip(f"{number} of the clips") for number in range(60)))

        self.in_the_settings(lambda: self.choose("Chevron scrolling:", "On click"), "chevronActivation", "click")

        self.expect_one_step_at_a_click()
        self.restart()
        self.expect_one_step_at_a_click()
        self.in_the_settings(lambda: self.choose("Chevron scrolling:", "On hover"), "chevronActivation", "hover")
        parts = PanelParts(self.screen, self.korvane.open())
        before = self.look_at_the_top(parts)
        self.keys.point(*parts.down.middle)
        wait_for("the list moves under the pointer", lambda: parts.look() != before)

    def look_at_the_top(self, parts):
        wait_for("the chevron", lambda: parts.chevrons() == "down")
        self.keys.point(parts.box.x + 180, parts.box.bottom - 10)
        return parts.look()

    def expect_one_step_at_a_click(self):
        parts = PanelParts(self.screen, self.korvane.open())
        before = self.look_at_the_top(parts)
        self.keys.click(*parts.down.middle)
        wait_for(lambda: f"the list has moved by one step; it has by {shift(before, parts.look())}",
                 lambda: shift(before, parts.look()) == 200)
        # Longer than a list that follows the pointer would stand still.
        until = time.monotonic() + 0.3
        while time.monotonic() < until:
            self.assertEqual(shift(before, parts.look()), 200)
        self.korvane.close()

    # --- where the panel and the preview stand

    def test_the_panel_stands_below_its_icon_as_is_chosen(self):
        self.start(clip("one"))
        middle = self.place_by_icon()

        for title, value, by in (("Left", "left", -1), ("Right", "right", 1)):
            self.in_the_settings(lambda title=title: self.choose("Panel alignment below icon:", title), "panelAlignment", value)
            self.expect_place_by_icon(middle, by)
        self.restart()
        self.expect_place_by_icon(middle, 1)

    def place_by_icon(self):
        """How far right of the icon's middle the panel's is."""
        panel = self.open_below_icon()
        icon = self.tray.as_told()
        self.korvane.close()
        self.icon_width = icon.width
        return panel.x + panel.width / 2 - (icon.x + icon.width / 2)

    def expect_place_by_icon(self, middle, by):
        self.assertLessEqual(abs(middle), 0.5)
        self.assertLessEqual(abs(self.place_by_icon() - by * (PANEL - self.icon_width) / 2), 0.5)

    def test_the_preview_stands_on_the_side_that_is_chosen(self):
        self.start(clip("one\ntwo"), clip("two"), clip("three"))

        self.in_the_settings(lambda: self.choose("Preview side:", "Left"), "previewSide", "left")

        self.expect_preview(lambda panel, preview: preview.right == panel.x - GAP)
        self.restart()
        self.expect_preview(lambda panel, preview: preview.right == panel.x - GAP)
        self.in_the_settings(lambda: self.choose("Preview side:", "Right"), "previewSide", "right")
        self.expect_preview(lambda panel, preview: preview.x == panel.right + GAP)

    def test_the_preview_stands_at_the_height_that_is_chosen(self):
        self.start(clip("one\ntwo"), clip("two"), clip("three"))

        self.in_the_settings(lambda: self.choose("Preview position:", "Top"), "previewPosition", "top")
        self.expect_preview(lambda panel, preview: preview.y == panel.y + LIST_TOP)
        self.in_the_settings(lambda: self.choose("Preview position:", "Follow"), "previewPosition", "follow")
        self.expect_preview(lambda panel, preview: preview.middle[1] == panel.y + FIRST_ROW)
        self.restart()
        self.expect_preview(lambda panel, preview: preview.middle[1] == panel.y + FIRST_ROW)
        self.in_the_settings(lambda: self.choose("Preview position:", "Middle"), "previewPosition", "middle")
        self.expect_preview(lambda panel, preview:
                            abs(preview.y + preview.height / 2 - (panel.y + panel.height / 2)) <= 0.5)

    def expect_preview(self, stands_well):
        panel = self.open_below_icon()
        self.keys.press("space")
        preview = self.screen.box(wait_for("the preview", lambda: self.screen.find("korvane", title=PREVIEW, depth=1))[0])
        self.assertTrue(stands_well(panel, preview), f"the panel is at {panel}, the preview at {preview}")
        self.korvane.close()

    # --- the count beside the icon

    def test_the_count_stands_beside_the_icon_after_a_restart_and_until_it_is_turned_off(self):
        self.start(clip("one"), clip("two"))
        wait_until_at_rest(self.screen)
        plain = self.icon_pixels()

        self.in_the_settings(lambda: self.turn("Show clip count in menu bar", True), "showCountInMenuBar", True)

        wait_for("the icon has the count", lambda: self.icon_pixels() != plain)
        wait_until_at_rest(self.screen)
        counted = self.icon_pixels()
        self.restart()
        wait_for("the icon has the count", lambda: self.icon_pixels() == counted)
        self.in_the_settings(lambda: self.turn("Show clip count in menu bar", False), "showCountInMenuBar", False)
        wait_for("the icon has no count", lambda: self.icon_pixels() == plain)

    def icon_pixels(self):
        return self.screen.pixels(self.tray.icon())


class SoundSettingsTest(SettingsTest):
    """Each sound is told by the microphone from all others."""

    def start(self, *clips):
        self.loudspeaker = Loudspeaker(self.desk)
        self.start_korvane(list(clips), environment=self.loudspeaker.environment)
        self.open_alone("g")

    def expect_sound(self, name, act):
        act()
        self.assertEqual(self.loudspeaker.next_sound(), name)

    def check(self, switch, keys, names, letter, act):
        """Turns a sound on, whose name is the first of three, and chooses the others; `act` has it played. The
        letter, together with Alt, presses the button that plays it."""
        def preview():
            self.keys.press("Alt_L", letter)

        default, other, third = names
        self.turn(switch, True)
        self.wait_for_preference(keys[0], True)
        self.expect_sound(default, act)
        self.screen.activate(self.settings())
        self.choose("Sound:", other)
        self.wait_for_preference(keys[1], other)
        self.expect_sound(other, act)

        self.korvane.quit()
        self.korvane.start()
        self.expect_sound(other, act)
        # What is turned off is not heard: the next sound is that of the button.
        self.open_alone("g")
        self.expect_sound(other, preview)
        self.choose("Sound:", third)
        self.korvane.set_preferences(**{keys[0]: False})
        wait_for("the row of the sound is gone", lambda: not any(
            each.name == "Sound:" and "showing" in each.states() for each in self.window.descendants()))
        act()
        self.screen.activate(self.settings())
        self.turn(switch, True)
        self.choose("Sound:", other)
        self.expect_sound(other, preview)

    def test_a_copy_is_heard_as_is_chosen(self):
        self.start(clip("one"))
        copies = iter(range(100))

        def copy():
            text = f"copy {next(copies)}"
            self.clipboard.set(text)
            self.history.wait_for("the copy", lambda clips: clips[0]["text"] == text)

        self.check("Play sound on copy", ("playSoundOnCopy", "copySoundName"), ("Tink", "Purr", "Sosumi"), "c", copy)

    def test_a_selection_in_the_list_is_heard_as_is_chosen(self):
        self.start(clip("one"))

        def select():
            self.korvane.open()
            self.keys.press("Return")
            self.korvane.wait_until_closed()

        self.check("Play sound on select in list", ("playSoundOnSelect", "selectSoundName"), ("Pop", "Morse", "Ping"), "l", select)

    def test_a_paste_anywhere_is_heard_as_is_chosen(self):
        editor = Mousepad(self.desk)
        self.start(clip("one"))
        self.clipboard.set("pasted")

        def paste():
            editor.to_front()
            self.keys.press("Control_L", "v")

        self.check("Play sound on paste", ("playSoundOnPaste", "pasteSoundName"), ("Hero", "Frog", "Funk"), "t", paste)
