"""The panel: where it opens, what closes it, and the status item."""

import os
import signal

from support.case import DesktopTest
from support.display import Box
from support.editors import Mousepad
from support.history import clip
from support.status_menu import StatusMenu
from support.tray import Tray, changed_box
from support.tray_menu import TrayMenuTest
from support.waiting import wait_for

WIDTH = 360
SCREEN = Box(0, 0, 1440, 900)


class PlacementTest(DesktopTest):
    """The panel hangs below the icon, to the pixel."""

    def open_below_icon(self, alignment, clips=3):
        tray = Tray(self.desk)
        self.start_korvane([clip(f"clip {number}") for number in range(clips)], panelAlignment=alignment)
        icon = tray.as_told()
        before = self.screen.pixels(SCREEN)
        # Some trays do not tell where an icon is: there the panel opens where it was clicked.
        tray.click()
        panel = self.korvane.wait_until_open()
        # The bar lights up where the pointer is; what is above the panel is not compared.
        below = Box(0, panel.y, SCREEN.width, SCREEN.height - panel.y)
        wait_for(lambda: f"what has changed on the screen is the panel, {panel}",
                 lambda: changed_box(before[panel.y:], self.screen.pixels(below), below) == panel)
        return icon, panel

    def test_in_the_middle_it_is_centred_below_the_icon(self):
        icon, panel = self.open_below_icon("middle")
        # The middle of an odd width lies between two pixels.
        self.assertLessEqual(abs(panel.x + WIDTH / 2 - (icon.x + icon.width / 2)), 0.5, f"panel {panel}, icon {icon}")

    def test_to_the_left_its_right_edge_is_below_the_icons(self):
        icon, panel = self.open_below_icon("left")
        self.assertEqual(panel.right, icon.right, f"panel {panel}, icon {icon}")

    def test_to_the_right_its_left_edge_is_below_the_icons(self):
        icon, panel = self.open_below_icon("right")
        self.assertEqual(panel.x, icon.x, f"panel {panel}, icon {icon}")

    def test_its_top_touches_the_icons_underside(self):
        icon, panel = self.open_below_icon("middle")
        self.assertEqual(panel.y, icon.bottom, f"panel {panel}, icon {icon}")

    def test_the_shortcut_opens_it_where_the_click_did(self):
        _, panel = self.open_below_icon("left")
        self.korvane.close()
        self.assertEqual(self.korvane.open(), panel)

    def test_its_height_follows_the_number_of_clips(self):
        self.start_korvane()
        self.assertEqual(self.korvane.open().height, 250)
        self.korvane.close()
        for text in ("one", "two", "three"):
            self.clipboard.set(text)
            self.history.wait_for("the clip", lambda clips, text=text: clips and clips[0]["text"] == text)
        self.assertEqual(self.korvane.open().height, 320)

    def test_it_stays_within_the_screen_however_many_clips_there_are(self):
        self.start_korvane([clip(f"clip {number}") for number in range(100)])
        panel = self.korvane.open()
        self.assertEqual(panel.height, SCREEN.height - self.screen.top_bar() - 20)
        self.assertLessEqual(panel.bottom, SCREEN.height - 8)
        self.assertLessEqual(panel.right, SCREEN.width - 8)

    def test_a_change_of_the_preferences_by_hand_moves_it_at_its_next_opening(self):
        tray = Tray(self.desk)
        self.start_korvane([clip("one")], panelAlignment="right")
        tray.click()
        right = self.korvane.wait_until_open()
        self.korvane.close()

        self.korvane.set_preferences(panelAlignment="left")

        def opens_further_left():
            left = self.korvane.open()
            self.korvane.close()
            return left.x < right.x - WIDTH // 2

        wait_for("the panel opens on the other side", opens_further_left)


class OpeningTest(DesktopTest):
    def test_the_shortcut_opens_it_and_takes_the_keyboard(self):
        editor = Mousepad(self.desk)
        self.start_korvane([clip("one")])
        self.assertTrue(editor.is_in_front())
        self.korvane.open()
        self.assertFalse(self.screen.has_keyboard(editor.window))

    def test_the_shortcut_closes_it_again_and_gives_the_keyboard_back(self):
        editor = Mousepad(self.desk)
        self.start_korvane([clip("one")])
        self.korvane.open()
        self.keys.press("Control_L", "space")
        self.korvane.wait_until_closed()
        wait_for("the editor is in front", editor.is_in_front)

    def test_a_shortcut_that_is_held_opens_it_once(self):
        self.start_korvane([clip("one")])
        opened = []
        self.keys.hold("Control_L")
        self.keys.hold("space")
        self.korvane.wait_until_open()
        # A key that is held repeats some 25 times a second after two thirds of a second.
        deadline = self.screen.server_time() + 1200
        while self.screen.server_time() < deadline:
            opened.append(self.korvane.is_open())
        self.keys.let_go_all()
        self.assertTrue(all(opened), "the panel was closed by the key's repetition")

    def test_the_shortcut_works_with_caps_lock_and_num_lock_on(self):
        self.start_korvane([clip("one")])
        for lock in ("Caps_Lock", "Num_Lock"):
            self.keys.press(lock)
            self.addCleanup(self.keys.press, lock)
            self.korvane.open()
            self.korvane.close()

    def test_a_click_outside_closes_it_and_reaches_what_was_clicked(self):
        behind, front = Mousepad(self.desk, name="behind"), Mousepad(self.desk, name="front")
        self.start_korvane([clip("one")])
        panel = self.korvane.open()
        # The panel has come to rest: it answers to a key.
        self.keys.press("Up")
        wait_for("the panel hears keys", lambda: self.clipboard.get() == b"one")
        outside = self.point_in(self.screen.box(behind.window), besides=[self.screen.box(front.window), panel])

        self.keys.click(*outside)

        self.korvane.wait_until_closed()
        wait_for("the clicked window is in front", behind.is_in_front)

    def test_what_was_clicked_has_the_keyboard_with_a_slow_window_manager_too(self):
        behind, front = Mousepad(self.desk, name="behind"), Mousepad(self.desk, name="front")
        self.start_korvane([clip("one")])
        panel = self.korvane.open()
        outside = self.point_in(self.screen.box(behind.window), besides=[self.screen.box(front.window), panel])
        manager = self.desk.process(self.desk.kind)
        self.addCleanup(os.kill, manager, signal.SIGCONT)

        os.kill(manager, signal.SIGSTOP)
        self.keys.click(*outside)
        self.korvane.wait_until_closed()
        os.kill(manager, signal.SIGCONT)

        wait_for("the clicked window is in front", behind.is_in_front)

    def point_in(self, box, besides):
        """A point well inside a rectangle and well outside of others."""
        return next((x, y) for x in range(box.x + 10, box.right - 10, 5) for y in range(box.bottom - 60, box.y + 40, -5)
                    if not any(other.x - 20 <= x < other.right + 20 and other.y - 40 <= y < other.bottom + 20
                               for other in besides))

    def test_a_click_inside_leaves_it_open(self):
        self.start_korvane([clip("one"), clip("two")])
        panel = self.korvane.open()
        self.keys.click(panel.x + WIDTH // 2, panel.bottom - 6)
        self.keys.press("Down")
        wait_for("the panel still hears keys", lambda: self.clipboard.get() == b"two")
        self.assertTrue(self.korvane.is_open())


class StatusItemTest(TrayMenuTest):
    def test_a_left_click_on_the_icon_opens_the_panel_and_the_next_one_closes_it(self):
        tray = Tray(self.desk)
        self.start_korvane([clip("one")])
        tray.click()
        self.korvane.wait_until_open()
        tray.click()
        self.korvane.wait_until_closed()

    def test_a_right_click_on_the_icon_shows_the_menu_and_its_first_line_is_private_mode(self):
        tray = Tray(self.desk)
        self.start_korvane()
        self.choose(self.open_menu(tray), 14)
        wait_for("private mode is on", lambda: self.korvane.preferences().get("privateModeEnabled") is True)

        self.clipboard.set("private")
        self.korvane.turn()
        self.choose(self.open_menu(tray), 14)
        wait_for("private mode is off", lambda: self.korvane.preferences().get("privateModeEnabled") is False)
        self.expect_no_new_clip([])

    def test_the_menus_first_line_has_a_check_mark_while_private_mode_is_on(self):
        if self.desk.kind == "i3":
            self.expect_check_mark_in_pixels()
        else:
            self.expect_check_mark_in_texts()

    def expect_check_mark_in_texts(self):
        self.start_korvane()
        menu = StatusMenu(self.korvane.process.pid)
        others = menu.lines()[1:]
        for is_on, first in ((None, "   Private Mode"), (True, "✓ Private Mode"), (False, "   Private Mode")):
            if is_on is not None:
                self.korvane.set_preferences(privateModeEnabled=is_on)
            wait_for(lambda first=first: f"the first line {first!r}; the menu is {menu.lines()}",
                     lambda first=first: menu.lines() == [first, *others])

    def expect_check_mark_in_pixels(self):
        """i3's bar takes no menu over the bus: Korvane draws it."""
        tray = Tray(self.desk)
        self.start_korvane()
        self.assertFalse(self.mark_is_seen(tray))
        self.korvane.set_preferences(privateModeEnabled=True)
        wait_for("the mark", lambda: self.mark_is_seen(tray))
        self.korvane.set_preferences(privateModeEnabled=False)
        wait_for("no mark", lambda: not self.mark_is_seen(tray))

    def mark_is_seen(self, tray):
        """Whether something is painted before the words of the menu's first line, where its other lines
        begin."""
        menu = self.open_menu(tray)
        box = self.screen.box(menu)
        wait_for("the words are painted", lambda: self.has_ink(Box(box.x + 44, box.y + 3, 80, 16)))
        is_seen = self.has_ink(Box(box.x + 26, box.y + 3, 11, 16))
        self.keys.press("Escape")
        wait_for("the menu is closed", lambda: not self.screen.is_viewable(menu))
        return is_seen

    def has_ink(self, box):
        rows = [bytes(row) for row in self.screen.pixels(box)]
        return len({row[at:at + 3] for row in rows for at in range(0, len(row), 4)}) > 1

    def test_the_menus_last_line_quits(self):
        tray = Tray(self.desk)
        self.start_korvane()
        self.choose(self.open_menu(tray), -14)
        wait_for("Korvane has ended", lambda: not self.korvane.is_running())
        self.assertEqual(self.korvane.process.returncode, 0)

    def test_a_left_click_after_the_menu_opens_the_panel(self):
        tray = Tray(self.desk)
        self.start_korvane([clip("one")])
        menu = self.open_menu(tray)
        self.keys.press("Escape")
        wait_for("the menu is closed", lambda: not self.screen.is_viewable(menu))
        tray.click()
        self.korvane.wait_until_open()


class MissingFileTest(DesktopTest):
    """A clip of a file that is gone."""

    def picture_of_the_row(self):
        panel = self.screen.box(self.korvane.panel())
        return self.screen.pixels(Box(panel.x + 6, panel.y + 125, 348, 48))

    def settled_picture(self):
        """Of the row, when it is painted: it looks twice the same, and not like bare ground."""
        def looked():
            picture = self.picture_of_the_row()
            return picture if picture == self.picture_of_the_row() and len(set(picture[24])) > 3 else None
        self.korvane.open()
        return wait_for("the row is painted", looked)

    def test_it_says_so_by_its_look_as_soon_as_that_is_known_and_looks_well_again_when_it_is_back(self):
        path = self.desk.folder / "figures.ods"
        path.write_text("1")
        self.start_korvane([clip(str(path), "file")])
        there = self.settled_picture()
        self.korvane.close()

        path.unlink()
        self.korvane.open()
        wait_for("the row looks otherwise", lambda: self.picture_of_the_row() != there)
        self.keys.press("Control_L", "p")
        self.history.wait_for("it can be pinned all the same", lambda clips: clips[0]["isPinned"])
        self.keys.press("Control_L", "p")
        self.history.wait_for("and unpinned", lambda clips: not clips[0]["isPinned"])
        self.korvane.close()

        path.write_text("2")
        self.korvane.open()
        wait_for("the row looks as before", lambda: self.picture_of_the_row() == there)
