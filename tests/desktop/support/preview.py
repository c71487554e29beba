"""The preview beside the panel, as the tests look at it."""

from support.case import DesktopTest
from support.display import Box
from support.history import clip
from support.waiting import NotObserved, wait_for

TITLE = "Korvane Preview"
SCREEN = Box(0, 0, 1440, 900)
PANEL = 360
WIDTH = 484
GAP = 8
# Where the list begins, and where the middle of its first row is, from the panel's upper edge.
LIST_TOP = 121
FIRST_ROW = LIST_TOP + 4 + 24
PITCH = 50
LINE = 18
# The room that a shadow takes on the left, on top, on the right and below.
SHADOW = (32, 22, 32, 46)
# Letters are darker than this, on a ground that is nearly white.
DARK = 140
LONG = "".join(f"line {number}\n" for number in range(1, 500))


class PreviewTest(DesktopTest):
    def preview(self):
        """Where the preview is on the screen; None while it is not shown."""
        found = self.screen.find("korvane", title=TITLE, depth=1)
        return self.screen.box(found[0]) if found else None

    def wait_until_shown(self):
        return wait_for("the preview is shown", self.preview)

    def wait_until_hidden(self):
        wait_for("the preview is hidden", lambda: self.preview() is None)

    def show(self):
        self.keys.press("space")
        return self.wait_until_shown()

    def start(self, *clips, **preferences):
        self.start_korvane([clip(text) if isinstance(text, str) else text for text in clips], **preferences)

    def is_away_from_the_edges(self, icon):
        """Whether both sides of a panel that is centred below the icon have room for the preview."""
        reach = PANEL // 2 + GAP + WIDTH + 4
        return reach <= icon.middle[0] <= SCREEN.width - reach

    def open_below_icon(self, is_there):
        """Opens the panel below its icon, once that stands where it is expected; where the panel is."""
        wait_for(lambda: f"the icon has its place; it stands at {self.tray.icon()}", lambda: is_there(self.tray.icon()))

        def opened():
            # Some bars still move an icon that has only just come, and what is clicked then is the bar.
            self.tray.click()
            try:
                return wait_for("the panel is open", self.korvane.has_keyboard, 3)
            except NotObserved:
                return False

        wait_for("a click on the icon opens the panel", opened, 12)
        box = self.korvane.wait_until_open()
        # The bar explains an icon that the pointer rests on.
        self.keys.point(700, 800)
        return box

    def wait_until_painted(self, box):
        """Waits until there are letters on the ground; a window that was never painted may be black."""
        wait_for("the text is painted", lambda: 5 < self.ink(box) < box.width * box.height / 2)

    def ink(self, box):
        """How many pixels are of letters, not of the light ground."""
        rows = [bytes(row) for row in self.screen.pixels(box)]
        return sum(max(row[at:at + 3]) < DARK for row in rows for at in range(0, len(row), 4))
