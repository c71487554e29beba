"""The display as a user sees it: its windows, the keyboard's owner, the pixels."""

import contextlib

from Xlib import X, Xatom, Xutil, error
from Xlib.display import Display
from Xlib.protocol import event

from support import png
from support.waiting import NotObserved, wait_for


class Box:
    """A rectangle in pixels, from the top left corner of the screen."""

    def __init__(self, x, y, width, height):
        self.x, self.y, self.width, self.height = x, y, width, height

    right = property(lambda self: self.x + self.width)
    bottom = property(lambda self: self.y + self.height)
    middle = property(lambda self: (self.x + self.width // 2, self.y + self.height // 2))

    def around(self, pixels):
        """The rectangle that is larger by so many pixels on each side."""
        return Box(self.x - pixels, self.y - pixels, self.width + 2 * pixels, self.height + 2 * pixels)

    def joined(self, other):
        """The smallest rectangle that holds both."""
        x, y = min(self.x, other.x), min(self.y, other.y)
        return Box(x, y, max(self.right, other.right) - x, max(self.bottom, other.bottom) - y)

    def within(self, other):
        """What lies inside of another one."""
        x, y = max(self.x, other.x), max(self.y, other.y)
        return Box(x, y, min(self.right, other.right) - x, min(self.bottom, other.bottom) - y)

    def __eq__(self, other):
        return isinstance(other, Box) and (self.x, self.y, self.width, self.height) == (other.x, other.y, other.width, other.height)

    def __repr__(self):
        return f"{self.width}×{self.height}+{self.x}+{self.y}"


class Screen:
    """One connection to the X server, for looking and for asking window managers."""

    def __init__(self):
        self.display = Display()
        self.root = self.display.screen().root
        # A window that goes while it is looked at is nothing worth telling.
        self.display.set_error_handler(lambda *_: None)

    def atom(self, name):
        return self.display.get_atom(name)

    def window(self, number):
        return self.display.create_resource_object("window", number)

    def property(self, window, name, kind=X.AnyPropertyType):
        """The value of a property as Xlib gives it; None where there is none, or no such window."""
        try:
            answer = window.get_full_property(self.atom(name), kind)
        except error.XError:
            return None
        return answer.value if answer else None

    def title(self, window):
        value = self.property(window, "_NET_WM_NAME") or self.property(window, "WM_NAME")
        return value.decode("utf-8", "replace") if isinstance(value, bytes) else value or ""

    def wm_class(self, window):
        """(instance, class), or two empty texts."""
        try:
            return window.get_wm_class() or ("", "")
        except error.XError:
            return ("", "")

    def is_viewable(self, window):
        try:
            return window.get_attributes().map_state == X.IsViewable
        except error.XError:
            return False

    def box(self, window):
        """Where a window stands on the screen, without a frame that a window manager has put around it."""
        geometry = window.get_geometry()
        place = window.translate_coords(self.root, 0, 0)
        return Box(-place.x, -place.y, geometry.width, geometry.height)

    def frame(self, window):
        """Where it is seen to stand: a window that paints its own shadow tells how much of it that is."""
        box = self.box(window)
        extents = self.property(window, "_GTK_FRAME_EXTENTS")
        if extents is None:
            return box
        left, right, top, bottom = extents
        return Box(box.x + left, box.y + top, box.width - left - right, box.height - top - bottom)

    def framed(self, window):
        """Where it stands with the frame that the window manager has put around it: a window of its own."""
        return self.box(self.outermost(window))

    def outermost(self, window):
        """The window itself, or the one of the window manager that it stands in."""
        while (parent := window.query_tree().parent).id != self.root.id:
            window = parent
        return window

    def is_above(self, window, other):
        """Whether one window covers the other where they meet."""
        order = [each.id for each in self.root.query_tree().children]
        return order.index(self.outermost(window).id) > order.index(self.outermost(other).id)

    def below(self, window, depth):
        """The windows below one, down to a depth."""
        with contextlib.suppress(error.XError):
            for child in window.query_tree().children:
                yield child
                if depth > 1:
                    yield from self.below(child, depth - 1)

    def find(self, name, title=None, depth=3, viewable=True):
        """The windows of a class (either part of WM_CLASS, caseless), by title if one is given."""
        return [window for window in self.below(self.root, depth)
                if name.lower() in (part.lower() for part in self.wm_class(window))
                and (title is None or self.title(window) == title)
                and (not viewable or self.is_viewable(window))]

    def active(self):
        """The number of the window that the window manager calls active; 0: none."""
        value = self.property(self.root, "_NET_ACTIVE_WINDOW", Xatom.WINDOW)
        return value[0] if value else 0

    def focused(self):
        """The number of the window that has the keyboard."""
        focus = self.display.get_input_focus().focus
        return focus if isinstance(focus, int) else focus.id

    def has_keyboard(self, window):
        """Whether a key press would reach the window: it, or one below it, has the input focus."""
        focus = self.focused()
        return focus == window.id or any(child.id == focus for child in self.below(window, 3))

    def activate(self, window):
        """Asks the window manager, as a task bar does, and waits until it has done so. It is asked
        again where a program that is only just starting has taken the front for itself meanwhile."""
        def asked():
            now = self.server_time()
            data = (32, [2, now, 0, 0, 0])
            message = event.ClientMessage(window=window, client_type=self.atom("_NET_ACTIVE_WINDOW"), data=data)
            self.root.send_event(message, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
            self.display.flush()
            try:
                wait_for("it is in front", lambda: self.is_in_front(window), 1)
            except NotObserved:
                return False
            # A program takes the keyboard once more when it hears of this, with the time given here: it
            # is too late for that once the server has counted on and somebody else has taken it.
            return wait_for("the server's time goes on", lambda: self.server_time() > now + 1)

        if not self.is_in_front(window):
            wait_for(lambda: f"{self.title(window)!r} is in front", asked)

    def minimize(self, window):
        """Asks the window manager, as the button of the frame does (ICCCM 4.1.4)."""
        message = event.ClientMessage(window=window, client_type=self.atom("WM_CHANGE_STATE"),
                                      data=(32, [Xutil.IconicState, 0, 0, 0, 0]))
        self.root.send_event(message, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.display.flush()

    def close(self, window):
        """Asks the window manager to have it closed, as a task bar does."""
        message = event.ClientMessage(window=window, client_type=self.atom("_NET_CLOSE_WINDOW"),
                                      data=(32, [self.server_time(), 2, 0, 0, 0]))
        self.root.send_event(message, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.display.flush()

    def is_in_front(self, window):
        return self.active() == window.id and self.has_keyboard(window)

    def wait_for_manager(self):
        """Waits until the window manager has dealt with all that has happened so far: it answers a question
        only after that. One that cannot be asked is not waited for."""
        question = self.atom("_NET_REQUEST_FRAME_EXTENTS")
        if question not in (self.property(self.root, "_NET_SUPPORTED", Xatom.ATOM) or ()):
            return
        window = self.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        message = event.ClientMessage(window=window, client_type=question, data=(32, [0] * 5))
        self.root.send_event(message, event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        wait_for("the window manager answers", lambda: self.property(window, "_NET_FRAME_EXTENTS") is not None)
        window.destroy()

    def owner(self, selection="CLIPBOARD"):
        """The number of the window that owns a selection; 0: none."""
        owner = self.display.get_selection_owner(self.atom(selection))
        return owner if isinstance(owner, int) else owner.id

    def top_bar(self):
        """How much of the screen's top the bars keep for themselves (EWMH, _NET_WM_STRUT_PARTIAL)."""
        struts = (self.property(window, "_NET_WM_STRUT_PARTIAL") for window in self.below(self.root, 3))
        return max((strut[2] for strut in struts if strut is not None), default=0)

    def server_time(self):
        """The server's time in milliseconds, by a property that changes on a window of ours."""
        window = self.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent, X.InputOnly, event_mask=X.PropertyChangeMask)
        window.change_property(Xatom.WM_NAME, Xatom.STRING, 8, b"now")
        while True:
            happened = self.display.next_event()
            # The number of the window is that of the one before, whose end has taken its property away.
            if happened.type == X.PropertyNotify and happened.window == window and happened.state == X.PropertyNewValue:
                window.destroy()
                return happened.time

    def pixels(self, box):
        """The pixels of a part of the screen: rows of (blue, green, red, unused) bytes."""
        image = self.root.get_image(box.x, box.y, box.width, box.height, X.ZPixmap, 0xFFFFFFFF)
        data, stride = image.data, box.width * 4
        return [data[row * stride:(row + 1) * stride] for row in range(box.height)]

    def all(self):
        """The whole screen."""
        geometry = self.root.get_geometry()
        return Box(0, 0, geometry.width, geometry.height)

    def save(self, path, box=None):
        """Writes a picture of the screen, or of a part of it, as PNG."""
        png.write(path, self.pixels(box or self.all()))
