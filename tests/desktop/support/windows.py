"""Windows of our own that stand in for what a desktop has around the panel."""

from Xlib import X

from support.waiting import wait_for


class PlainWindow:
    """A window of one colour, outside the window manager's reach."""

    def __init__(self, desk, box, colour=0xFFFFFF, stack_mode=X.Below):
        self.desk = desk
        root = desk.screen.root
        self.window = root.create_window(box.x, box.y, box.width, box.height, 0, X.CopyFromParent, X.InputOutput,
                                         background_pixel=colour, override_redirect=True)
        self.window.configure(stack_mode=stack_mode)
        self.prepare(box)
        self.window.map()
        desk.screen.display.sync()
        desk.programs.append(self)
        wait_for("the window is shown", lambda: desk.screen.is_viewable(self.window))

    def prepare(self, box):
        """What it says of itself before it is shown."""

    def end(self):
        self.window.destroy()
        self.desk.screen.display.sync()


class BarBelow(PlainWindow):
    """A bar at the lower edge of the screen that keeps its room free (EWMH, _NET_WM_STRUT_PARTIAL)."""

    def prepare(self, box):
        atom = self.desk.screen.atom
        self.window.change_property(atom("_NET_WM_STRUT_PARTIAL"), atom("CARDINAL"), 32,
                                    [0, 0, 0, box.height, 0, 0, 0, 0, 0, 0, box.x, box.right - 1])
