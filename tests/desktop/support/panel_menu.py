"""The menu of the panel's head, worked with the mouse."""

from support.panel_parts import MENU, PanelParts
from support.waiting import wait_for

LINE, DIVIDER, EDGE = 28, 9, 6


class PanelMenu:
    """Of a panel that is open."""

    def __init__(self, desk, korvane):
        self.screen, self.keys, self.korvane = desk.screen, desk.keys, korvane
        self.parts = PanelParts(self.screen, self.screen.box(korvane.panel()))

    def windows(self):
        """Our windows on the screen that no window manager looks after, the panel left out."""
        panel = self.korvane.panel().id
        return [window for window in self.screen.below(self.screen.root, 1)
                if window.id != panel and self.screen.is_viewable(window) and "korvane" in self.screen.wm_class(window)]

    def choose(self, line):
        """Clicks a line, counted from 0."""
        self.keys.click(*self.parts.button(MENU))
        menu = wait_for("the menu", self.windows)[0]
        box = self.screen.box(menu)
        before = self.screen.pixels(box)
        x, y = box.x + box.width // 2, box.y + EDGE + line * (LINE + DIVIDER) + LINE // 2
        self.keys.point(x - 20, y)
        self.keys.point(x, y)
        wait_for("the line is lit", lambda: self.screen.pixels(box) != before)
        self.keys.click(x, y)
        wait_for("the menu closes", lambda: not self.screen.is_viewable(menu))
