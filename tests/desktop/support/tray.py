"""The desktop's bar with its tray, and Korvane's icon in it."""

import contextlib

from Xlib import X, Xatom, error
from Xlib.protocol import event

from support.display import Box
from support.painting import wait_until_at_rest
from support.waiting import wait_for

ASSUMED = 22  # how wide an icon is taken to be where the tray does not tell
GAP = 20  # pixels that stay as they are between two things in the bar


class Tray:
    """Make it before Korvane starts: the icon is what has come into the bar since."""

    def __init__(self, desk):
        self.desk = desk
        self.screen = desk.screen
        # Both bars stand at the top; at the right end of one there is a clock, which changes by itself.
        self.bar = Box(0, 0, self.screen.all().width * 9 // 10, self.screen.top_bar())
        self.fillers = []
        if desk.kind == "i3":
            self.fill(25)
        self.before = self.screen.pixels(self.bar)

    def fill(self, count):
        """Puts icons of ours into the tray: the others stand further from the screen's edge then."""
        owner = self.screen.window(self.screen.owner("_NET_SYSTEM_TRAY_S0"))
        self.fillers = [self.dock(owner) for _ in range(count)]
        wait_for("the tray shows our icons", lambda: all(self.screen.is_viewable(window) for window in self.fillers))

    def dock(self, owner):
        """One icon, by the System Tray Protocol of freedesktop."""
        root = self.screen.root
        window = root.create_window(0, 0, 16, 16, 0, X.CopyFromParent, background_pixel=0x3377AA)
        information = self.screen.atom("_XEMBED_INFO")
        window.change_property(information, information, 32, [0, 1])
        window.change_property(Xatom.WM_CLASS, Xatom.STRING, 8, b"zfiller\0Zfiller\0")
        data = (32, [X.CurrentTime, 0, window.id, 0, 0])
        owner.send_event(event.ClientMessage(window=owner, client_type=self.screen.atom("_NET_SYSTEM_TRAY_OPCODE"), data=data))
        self.screen.display.flush()
        return window

    def icon(self):
        """Where Korvane's icon is: its window where the tray holds one, else the pixels that changed."""
        return wait_for("Korvane's icon in the tray", self.embedded if self.desk.kind == "i3" else self.painted)

    def as_told(self):
        """The icon's rectangle as Korvane can know it. i3's bar holds the icon's own window. The tray of
        xfce4-panel paints the icon itself and tells no place: what is seen there is the glyph, narrower
        than its icon; it is clicked in its middle, and the icon is taken to be 22 pixels wide around the
        click and to reach down to the bar's edge."""
        seen = self.icon()
        if self.desk.kind == "i3":
            return seen
        x, bottom = seen.middle[0] - ASSUMED // 2, self.screen.top_bar()
        icon = Box(x, bottom - ASSUMED, ASSUMED, ASSUMED)
        assert icon.x <= seen.x and seen.right <= icon.right, f"the glyph {seen} is not within {icon}"
        return icon

    def embedded(self):
        panels = {window.id for window in self.screen.find("korvane", depth=1, viewable=False)}
        icons = [window for window in self.screen.find("korvane", depth=5) if window.id not in panels]
        with contextlib.suppress(error.XError):  # the bar that held it has just gone
            if icons and not self.stands_first(icons[0]):
                wait_until_at_rest(self.screen)
            return self.screen.box(icons[0]) if icons else None
        return None

    def stands_first(self, icon):
        """Whether an icon stands before ours. The bar sorts its icons by class, but only some time after it
        has taken one in; where it has moved to another monitor it does not sort them again."""
        return all(self.screen.box(icon).right <= self.screen.box(filler).x for filler in self.fillers)

    def painted(self):
        """The last of what has come into the bar: a window's button in the list of windows stands before it."""
        now = self.screen.pixels(self.bar)
        columns = sorted({column for rows in zip(self.before, now) for column in differing_columns(*rows)})
        if not columns:
            return None
        first = next((right for left, right in zip(columns[-2::-1], columns[::-1]) if right - left > GAP), columns[0])
        place = Box(self.bar.x + first, self.bar.y, self.bar.width - first, self.bar.height)
        return changed_box([row[first * 4:] for row in self.before], [row[first * 4:] for row in now], place)

    def click(self, button=1):
        box = self.icon()
        self.desk.keys.click(*box.middle, button=button)
        return box


def changed_box(before, after, area):
    """The smallest rectangle that holds every pixel that differs; None: nothing differs."""
    differing = [(number, columns) for number, rows in enumerate(zip(before, after)) if (columns := differing_columns(*rows))]
    if not differing:
        return None
    top, bottom = differing[0][0], differing[-1][0] + 1
    left = min(columns[0] for _, columns in differing)
    right = max(columns[-1] for _, columns in differing) + 1
    return Box(area.x + left, area.y + top, right - left, bottom - top)


def differing_columns(old, new):
    """The columns in which two rows of pixels differ in colour."""
    if old == new:
        return []
    return [column for column in range(len(old) // 4) if old[column * 4:column * 4 + 3] != new[column * 4:column * 4 + 3]]
