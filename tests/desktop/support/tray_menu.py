"""The menu that a right click on the icon in the tray opens, on the screen."""

from support.case import DesktopTest
from support.painting import wait_until_at_rest
from support.waiting import NotObserved, wait_for


class TrayMenuTest(DesktopTest):
    def open_menu(self, tray):
        """Right-clicks the icon; the window of the menu that this opens. A host that has not fetched our
        menu yet shows one of its own, which is narrower than our longest line, and a second click within
        the time of a double click is the other half of the first and opens nothing: then once more."""
        def our_menu():
            menu = self.opened_by(lambda: tray.click(button=3))
            if menu is None:
                return None
            if self.screen.box(menu).width > 200:
                return menu
            self.keys.press("Escape")
            wait_for("the host's menu is closed", lambda: not self.screen.is_viewable(menu))
            return None

        return wait_for("our menu opens", our_menu)

    def opened_by(self, act):
        """The window of the menu that an act opens; None when none opens within a second."""
        before = {window.id for window in self.screen.below(self.screen.root, 1) if self.screen.is_viewable(window)}
        act()
        try:
            return wait_for("a menu opens", lambda: [
                window for window in self.screen.below(self.screen.root, 1)
                if window.id not in before and self.screen.is_viewable(window) and self.screen.box(window).height > 60], 1)[0]
        except NotObserved:
            return None

    def choose_by_keys(self, menu, number):
        """Chooses a line of the menu, counted from 1 without the separators. Keys before the host has made
        the menu's lines, which it may do anew when it has opened it, would go to nobody."""
        wait_until_at_rest(self.screen)
        box = self.screen.box(menu)
        for _ in range(number):
            before = self.screen.pixels(box)
            self.keys.press("Down")
            wait_for("the next line is lit", lambda before=before: self.screen.pixels(box) != before)
        self.keys.press("Return")
        wait_for("the menu closes", lambda: not self.screen.is_viewable(menu))

    def choose(self, menu, place):
        """Clicks a line of the menu, given from the menu's top, or from its bottom if it is negative.
        A menu that has only just opened takes a click for a part of the one that opened it, so the
        line is lit first."""
        box = self.screen.box(menu)
        before = self.screen.pixels(box)
        x, y = box.x + box.width // 2, box.y + place if place > 0 else box.bottom + place
        for step in (40, 20, 0):
            self.keys.point(x - step, y)
        wait_for("the line is lit", lambda: self.screen.pixels(box) != before)
        self.keys.click(x, y)
        wait_for("the menu closes", lambda: not self.screen.is_viewable(menu))
