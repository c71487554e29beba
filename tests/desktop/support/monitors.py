"""Monitors as a user has them side by side, made on one screen (RandR 1.5)."""

import subprocess

from Xlib import error

from support.waiting import wait_for


class Monitors:
    """Divides the screen into these rectangles until the test ends."""

    def __init__(self, desk, *boxes):
        self.desk = desk
        self.names = []
        self.bars_before = self.bars()
        desk.programs.append(self)
        for number, box in enumerate(boxes):
            # The screen has one output, which can be a part of one monitor only.
            output, name = ("screen" if number == 0 else "none"), f"part{number}"
            run("--setmonitor", name, f"{box.width}/{box.width // 4}x{box.height}/{box.height // 4}+{box.x}+{box.y}", output)
            self.names.append(name)
        if desk.kind == "i3":
            # Its bar is a window of its own on each monitor, and the tray is moved from one to another.
            wait_for("each monitor has its bar", lambda: self.bars() == sorted((box.x, box.y, box.width) for box in boxes))

    def bars(self):
        """The corners and widths of i3's bars."""
        screen = self.desk.screen
        try:
            boxes = [screen.box(window) for window in screen.find("i3bar", depth=3)]
        except error.XError:
            return []  # one of them is just going
        return sorted((box.x, box.y, box.width) for box in boxes)

    def end(self):
        while self.names:
            run("--delmonitor", self.names.pop())
        wait_for("the bars stand as before", lambda: self.bars() == self.bars_before)


def run(*arguments):
    subprocess.run(["xrandr", *arguments], check=True, stdout=subprocess.DEVNULL, timeout=20)
