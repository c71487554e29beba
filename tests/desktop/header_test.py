"""The panel's head: private mode, the way to the preferences, the menu of the whole program."""

from support.case import DesktopTest
from support.history import clip
from support.panel_menu import PanelMenu
from support.panel_parts import GEAR, LOCK, MENU, PanelParts
from support.tray import Tray
from support.waiting import wait_for

HANDLER = """[Desktop Entry]
Type=Application
Name=A browser
Exec=/bin/sh -c 'printf %%s "$1" >"{target}"' browser %u
MimeType=x-scheme-handler/https;
"""


class HeaderTest(DesktopTest):
    def open(self, *texts, **options):
        self.start_korvane([clip(text) for text in texts or ("one", "two")], **options)
        self.parts = PanelParts(self.screen, self.korvane.open())

    def click(self, button):
        self.keys.click(*self.parts.button(button))

    def wait_for_private_mode(self, is_on):
        wait_for(f"private mode is {is_on}", lambda: self.korvane.preferences().get("privateModeEnabled") is is_on)

    def windows(self):
        """Our windows on the screen, the panel left out."""
        panel = self.korvane.panel().id
        return [window for window in self.screen.below(self.screen.root, 1)
                if window.id != panel and self.screen.is_viewable(window) and "korvane" in self.screen.wm_class(window)]

    # --- private mode

    def test_the_lock_begins_private_mode_in_which_no_copy_is_captured_and_ends_it(self):
        self.open()
        self.click(LOCK)
        self.wait_for_private_mode(True)
        self.korvane.close()
        self.clipboard.set("private")

        self.korvane.open()
        self.click(LOCK)
        self.wait_for_private_mode(False)
        self.korvane.close()

        self.expect_no_new_clip(["one", "two"])

    def test_in_private_mode_there_is_a_badge_and_the_lock_is_orange(self):
        self.open()
        lock = self.parts.button(LOCK)
        around = type(self.parts.header)(lock[0] - 14, lock[1] - 14, 28, 28)
        self.assertFalse(self.parts.has_badge())

        self.click(LOCK)
        wait_for("the badge", self.parts.has_badge)
        self.assertGreater(self.parts.orange_pixels(around), 20)
        self.click(LOCK)

        wait_for("no badge", lambda: not self.parts.has_badge())
        self.assertEqual(self.parts.orange_pixels(around), 0)

    def test_the_tray_icon_changes_with_it(self):
        tray = Tray(self.desk)
        self.start_korvane([clip("one")])
        icon = tray.icon()
        # The icon's picture may be wider with the lock than without.
        box = type(icon)(icon.x - 3, icon.y, icon.width + 6, icon.height)
        wait_for("the icon is painted", lambda: len({bytes(row) for row in self.screen.pixels(icon)}) > 1)
        plain = self.screen.pixels(box)
        self.parts = PanelParts(self.screen, self.korvane.open())

        self.click(LOCK)
        wait_for("another icon", lambda: self.screen.pixels(box) != plain)
        self.click(LOCK)

        wait_for("the icon of before", lambda: self.screen.pixels(box) == plain)

    def test_a_preference_that_is_changed_by_hand_is_seen_in_the_open_panel(self):
        self.open()
        self.korvane.set_preferences(privateModeEnabled=True)
        wait_for("the badge", self.parts.has_badge)
        self.korvane.set_preferences(privateModeEnabled=False)
        wait_for("no badge", lambda: not self.parts.has_badge())

    def test_typing_goes_on_after_a_click(self):
        self.open("apple", "banana", "bandana")
        self.keys.type("ba")
        self.click(LOCK)
        self.wait_for_private_mode(True)
        self.keys.type("nd")
        # The selection has gone to the only hit, which a key puts on the clipboard.
        self.keys.press("Down")
        wait_for("the hit of the whole word", lambda: self.clipboard.get() == b"bandana")

    # --- tool tips

    def tool_tip(self, button):
        self.keys.point(self.parts.box.x + 180, self.parts.box.y + 60)
        wait_for("no tool tip", lambda: not self.windows())
        x, y = self.parts.button(button)
        # Not where it has been clicked: to be at the same place again is no movement.
        self.keys.point(x + 4, y + 2)
        return self.screen.box(wait_for("a tool tip", self.windows)[0])

    def test_lock_and_gear_tell_what_they_do(self):
        self.open()
        enable = self.tool_tip(LOCK)
        gear = self.tool_tip(GEAR)
        self.assertGreater(enable.width, gear.width)

        self.click(LOCK)
        self.wait_for_private_mode(True)

        # "Disable …" is longer than "Enable …".
        self.assertGreater(self.tool_tip(LOCK).width, enable.width)

    # --- the menu

    def open_menu(self):
        self.click(MENU)
        menu = wait_for("the menu", self.windows)[0]
        box = self.screen.box(menu)
        self.assertEqual(box.right, self.parts.box.x + 352)
        return menu, box

    def choose(self, line):
        PanelMenu(self.desk, self.korvane).choose(line)

    def expect_panel_hears_keys(self):
        self.assertTrue(self.korvane.is_open())
        self.keys.press("Down")
        wait_for("the panel hears keys", lambda: self.clipboard.get() == b"two")

    def test_escape_closes_the_menu_and_the_panel_stays(self):
        self.open()
        menu, _ = self.open_menu()
        self.assertTrue(self.korvane.is_open())
        self.keys.press("Escape")
        wait_for("the menu closes", lambda: not self.screen.is_viewable(menu))
        self.expect_panel_hears_keys()

    def test_a_second_click_on_its_button_closes_the_menu(self):
        self.open()
        menu, _ = self.open_menu()
        self.click(MENU)
        wait_for("the menu closes", lambda: not self.screen.is_viewable(menu))
        self.expect_panel_hears_keys()
        self.assertEqual(self.windows(), [])

    def test_a_click_elsewhere_in_the_panel_closes_the_menu(self):
        self.open()
        menu, _ = self.open_menu()
        self.keys.click(self.parts.box.x + 180, self.parts.box.bottom - 10)
        wait_for("the menu closes", lambda: not self.screen.is_viewable(menu))
        self.expect_panel_hears_keys()

    def test_its_first_line_opens_the_settings_and_leaves_the_panel_open(self):
        self.open()
        self.choose(0)

        def settings_have_keyboard():
            found = self.screen.find("korvane", title="Korvane Settings")
            return found and self.screen.has_keyboard(found[0])

        wait_for("the settings have the keyboard", settings_have_keyboard)
        self.assertTrue(self.korvane.is_open())

    def test_its_third_line_opens_the_makers_page_in_the_browser(self):
        self.start_korvane([clip("one"), clip("two")], starts=False)
        target = self.desk.folder / "address"
        applications = self.korvane.home / "data/applications"
        applications.mkdir(parents=True)
        (applications / "a-browser.desktop").write_text(HANDLER.format(target=target))
        self.korvane.preferences_path.parent.parent.mkdir(parents=True, exist_ok=True)
        (self.korvane.preferences_path.parent.parent / "mimeapps.list").write_text(
            "[Default Applications]\nx-scheme-handler/https=a-browser.desktop\n")
        self.korvane.start()
        self.parts = PanelParts(self.screen, self.korvane.open())

        self.choose(2)

        wait_for("the browser is given the address", lambda: target.exists() and target.read_text().endswith("/more"))

    def test_its_last_line_quits(self):
        self.open()
        self.choose(3)
        wait_for("Korvane has ended", lambda: not self.korvane.is_running())
        self.assertEqual(self.korvane.process.returncode, 0)


class RowMenuTest(DesktopTest):
    def test_a_rows_menu_closes_by_escape_and_the_panel_stays(self):
        self.start_korvane([clip("one"), clip("two")])
        panel = self.korvane.open()
        before = {window.id for window in self.screen.below(self.screen.root, 1) if self.screen.is_viewable(window)}
        self.keys.click(panel.x + 180, panel.y + 121 + 28, button=3)
        menu = wait_for("a menu opens", lambda: [
            window for window in self.screen.below(self.screen.root, 1)
            if window.id not in before and self.screen.is_viewable(window)])[0]
        self.keys.press("Escape")
        wait_for("the menu closes", lambda: not self.screen.is_viewable(menu))
        self.keys.press("Down")
        wait_for("the panel hears keys", lambda: self.clipboard.get() == b"two")
