"""What is painted of the panel, by its pixels: a window is on the screen before it shows anything."""

import collections

from support.waiting import wait_for

# Colours as (red, green, blue): the panel's ground, its text, the ground of the selected row, the accent, the
# badge of the private mode, and the totals when the history is nearly full and when it is full.
LIGHT = {"ground": (251, 251, 250), "text": (29, 31, 33), "selection": (220, 238, 231), "accent": (28, 158, 117),
         "orange": (217, 115, 13), "nearly full": (166, 75, 0), "full": (191, 40, 33)}
DARK = {"ground": (33, 35, 38), "text": (236, 238, 239), "selection": (32, 67, 58), "accent": (28, 158, 117),
        "orange": (217, 115, 13), "nearly full": (240, 146, 58), "full": (255, 125, 115)}
# The letters of one row are more than this, and so is a line of pixels across the selected row.
FEW = 150


def wait_until_paper(screen, box):
    """Waits until a window of an editor shows its paper: most of it is white, or nearly so."""
    def is_paper():
        pixels = collections.Counter()
        for row in screen.pixels(box):
            pixels.update(memoryview(row).cast("I"))
        white = sum(number for pixel, number in pixels.items()
                    if min(pixel >> 16 & 255, pixel >> 8 & 255, pixel & 255) > 235)
        return white > box.width * box.height / 2

    wait_for("the editor is painted", is_paper)


class PaintedPanel:
    """The panel's place on the screen, and how it looks there.

    `tolerance` is how far each part of a colour may be off: little where the panel is opaque, for
    the white of a window behind it is not its ground; more where a compositor lets that through."""

    def __init__(self, screen, box, colours=LIGHT, tolerance=2):
        self.screen, self.box, self.colours, self.tolerance = screen, box, colours, tolerance

    def is_painted(self, few=FEW):
        """Most of it is ground or selected row, and there are letters on it, of more than so many pixels."""
        rows = self.screen.pixels(self.box)
        plain = self.count(rows, "ground") + self.count(rows, "selection")
        return plain > self.box.width * self.box.height / 2 and self.count(rows, "text") > few

    def wait_until_painted(self, few=FEW):
        wait_for("the panel is painted", lambda: self.is_painted(few))

    def selected_row(self):
        """The middle of the row that is painted as the selected one, in pixels from the panel's top."""
        rows = enumerate(self.screen.pixels(self.box))
        lines = [number for number, row in rows if self.count([row], "selection") > FEW]
        return (lines[0] + lines[-1]) / 2 if lines else None

    def count(self, rows, name):
        """How many pixels have the colour of this name."""
        found = collections.Counter()
        for row in rows:
            found.update(memoryview(row).cast("I"))
        return sum(number for pixel, number in found.items() if self.is_about(pixel, name))

    def is_about(self, pixel, name):
        parts = (pixel >> 16 & 255, pixel >> 8 & 255, pixel & 255)
        off = [part - wanted for part, wanted in zip(parts, self.colours[name])]
        # Its tint is no further off than its brightness: a grey line is no green row.
        return max(map(abs, off)) <= self.tolerance and max(off) - min(off) <= self.tolerance
