"""Where the parts of the open panel are on the screen, and what is seen of them."""

from support.display import Box

HEADER = 42
LIST_TOP = 121
FOOTER = 43
ORANGE = (0xD9, 0x73, 0x0D)
LOCK, GEAR, MENU = 278, 308, 338  # the middles of the buttons, from the panel's left edge


class PanelParts:
    """Of a panel that stands in a box; one point is one pixel here."""

    def __init__(self, screen, box):
        self.screen, self.box = screen, box
        self.header = Box(box.x, box.y, box.width, HEADER)
        self.list = Box(box.x, box.y + LIST_TOP, box.width, box.height - LIST_TOP - FOOTER)
        # The titles of the rows, left of the chevrons: nothing lies over them.
        self.titles = Box(box.x + 50, self.list.y, 110, self.list.height)
        middle = box.x + box.width // 2 - 14
        self.up = Box(middle, self.list.y + 6, 28, 20)
        self.down = Box(middle, self.list.bottom - 26, 28, 20)

    def button(self, x):
        return self.box.x + x, self.box.y + HEADER // 2

    def orange_pixels(self, box):
        """How many pixels are orange, or nearly so."""
        rows = (bytes(row) for row in self.screen.pixels(box))
        return sum(1 for row in rows for at in range(0, len(row), 4)
                   if all(abs(row[at + channel] - ORANGE[2 - channel]) < 30 for channel in range(3)))

    def has_badge(self):
        return self.orange_pixels(Box(self.box.x + 60, self.box.y, 150, HEADER)) > 150

    def has_chevron(self, box):
        """Whether the straight parts of a chevron's edge are seen, one line above its ground and one below."""
        rows = [bytes(row) for row in self.screen.pixels(Box(box.x + 11, box.y, 6, box.height))]
        colours = [{row[at:at + 3] for at in range(0, len(row), 4)} for row in rows]
        # The shadow under its edge makes one line darker than the other.
        edges, grounds = colours[0] | colours[-1], colours[2] | colours[-3]
        return (all(len(colours[line]) == 1 for line in (0, 2, -1, -3)) and len(grounds) == 1
                and max(edges) < min(grounds) and min(grounds)[0] - max(edges)[0] > 15)

    def chevrons(self):
        return "".join(name for name, box in (("up ", self.up), ("down", self.down)) if self.has_chevron(box)).strip()

    def look(self):
        """The pixels of the titles, to be compared with later ones."""
        return [bytes(row) for row in self.screen.pixels(self.titles)]


def shift(before, after):
    """By how many pixels what was seen has moved up (down where negative); None where it is not the same."""
    height = len(before)
    for points in sorted(range(-height + 60, height - 60), key=abs):
        kept = before[points:] if points >= 0 else before[:points]
        seen = after[:height - points] if points >= 0 else after[-points:]
        if kept == seen:
            return points
    return None
