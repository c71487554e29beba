"""Plays scenes on the desktop that this process is on."""

from screenshots.scene import THEMES
from support.background import Background
from support.compositor import Compositor
from support.desk import Desk
from support.display import Box
from support.fonts import environment_with_font
from support.korvane import Korvane
from support.painted import DARK, LIGHT, PaintedPanel
from support.painting import wait_until_at_rest
from support.tray import Tray
from support.waiting import wait_for

# How much of the desktop is seen around the windows, in points: their shadows, and a little more.
AROUND = 44
# A compositor lets a little of the background through the panel.
TOLERANCE = 10
# Pixels of the panel's name, which is all that an empty history has in the colour of texts.
NAME = 40


class Stage:
    """A scene while it is played; the program's windows are there until `close`."""

    def __init__(self, scene, theme, scale):
        self.scene, self.theme, self.scale = scene, theme, scale
        self.desk = Desk()
        self.keys, self.screen = self.desk.keys, self.desk.screen
        self.buttons = []
        self.dialogs = []  # the titles of those that the scene has opened

    def close(self):
        for button in self.buttons:
            self.keys.let_go_button(button)
        self.desk.close()

    def play(self):
        """Opens the panel under its icon and does the scene's steps; the part of the screen to be shown."""
        _, top, bottom = THEMES[self.theme]
        Background(self.screen, top, bottom)
        if self.scene.is_composited:
            Compositor(self.desk)
        self.rest_pointer()
        tray = Tray(self.desk)
        files = self.desk.folder / "files"
        files.mkdir()
        environment = {**environment_with_font(self.desk.folder, self.scene.font), "QT_SCALE_FACTOR": f"{self.scale:g}"}
        self.korvane = Korvane(self.desk, self.scene.clips(files), environment=environment, theme=self.theme,
                               **self.scene.preferences)
        tray.click()
        self.korvane.wait_until_open()
        # The tray would explain its icon to a pointer that rests on it.
        self.rest_pointer()
        self.painted().wait_until_painted(NAME)
        for step in self.scene.steps:
            step(self)
        wait_until_at_rest(self.screen)
        return self.shown()

    def rest_pointer(self):
        everything = self.screen.all()
        self.keys.point(5, everything.height - 5)

    def shown(self):
        """The program's windows, with the desktop around them up to the bar."""
        frames = [self.screen.frame(window) for window in self.korvane.windows()]
        # The window manager's own frame is around them.
        frames += [self.screen.box(window).around(round(2 * self.scale)) for window in self.managed()]
        whole = frames[0]
        for frame in frames[1:]:
            whole = whole.joined(frame)
        return whole.around(round(AROUND * self.scale)).within(self.screen.all())

    # --- where things are

    def panel(self):
        return self.screen.frame(self.korvane.panel(viewable=True))

    def managed(self, title=None):
        """The program's windows that the window manager looks after: the settings, alerts and dialogs."""
        titles = [title] if title else ["Korvane Settings", *self.dialogs]
        return [window for each in titles for window in self.screen.find("korvane", title=each)]

    def settings(self):
        """The settings window; None while it is not to be seen."""
        return next(iter(self.managed("Korvane Settings")), None)

    def others(self):
        """What of the program's windows is not the panel: menus, tips, the preview."""
        panel = self.korvane.panel(viewable=True)
        return [window for window in self.korvane.windows() if window.id != panel.id]

    def at(self, x, y):
        """A place on the screen, in pixels, given from the panel's top left corner in points. What is less
        than nothing counts from the other side."""
        panel, x, y = self.panel(), round(x * self.scale), round(y * self.scale)
        return (panel.x if x >= 0 else panel.right) + x, (panel.y if y >= 0 else panel.bottom) + y

    def part(self, x, y, width, height):
        """A part of the panel, given in the same way."""
        left, top = self.at(x, y)
        return Box(left, top, round(width * self.scale), round(height * self.scale)).within(self.panel())

    # --- what is painted

    def painted(self, box=None):
        colours = DARK if self.theme == "dark" else LIGHT
        return PaintedPanel(self.screen, box or self.panel(), colours, TOLERANCE)

    def has_colour(self, name, box):
        """Whether more than a stray pixel of a part of the screen has the colour of this name."""
        return self.painted(box).count(self.screen.pixels(box), name) > 2

    def has_ink(self, box):
        """Whether something stands out from the ground of a part of the screen."""
        rows = [bytes(row) for row in self.screen.pixels(box)]
        return any(max(map(max, part)) - min(map(min, part)) > 60
                   for part in ([row[channel::4] for row in rows] for channel in range(3)))

    def is_mirrored(self, box):
        """Whether the left half of a part of the screen looks like its right half turned over, as a symbol
        does that stands in its middle, and no text."""
        off = [abs(one - other) for row in self.screen.pixels(box)
               for one, other in zip(bytes(row)[1::4], bytes(row)[-3::-4])]
        return sum(off) / len(off) < 15
