"""Keyboard and mouse, by the XTEST extension: for every program the same as the user's own."""

import subprocess
import time

from Xlib import XK, X
from Xlib.ext import xtest

from support.waiting import NotObserved, wait_for

XK.load_keysym_group("xf86")
XK.load_keysym_group("xkb")
# How characters that are no names of keys are called.
NAMES = {" ": "space", "\n": "Return", "-": "minus", ".": "period", "/": "slash", "@": "at", ":": "colon", "_": "underscore",
         "%": "percent"}


class Keys:
    def __init__(self, screen):
        self.screen = screen
        self.display = screen.display
        self.held = []

    def code(self, name):
        """The key code of a key's name, and whether Shift is part of it."""
        symbol = XK.string_to_keysym(NAMES.get(name, name))
        for code, level in self.display.keysym_to_keycodes(symbol) or ():
            if level in (0, 1):
                return code, level == 1
        raise LookupError(f"no key on this keyboard says {name!r}")

    def lay_out(self, *layout):
        """Gives the keyboard a layout, and a variant of it if one is named."""
        subprocess.run(["setxkbmap", *layout], check=True)
        self.display.sync()
        # The display answers by its own copy of the map until it hears of another.
        while self.display.pending_events():
            event = self.display.next_event()
            if event.type == X.MappingNotify:
                self.display.refresh_keyboard_mapping(event)

    def event(self, kind, detail, x=0, y=0):
        xtest.fake_input(self.display, kind, detail, x=x, y=y)

    def hold(self, name):
        self.event(X.KeyPress, self.code(name)[0])
        self.display.sync()
        self.held.append(name)

    def let_go(self, name):
        self.event(X.KeyRelease, self.code(name)[0])
        self.display.sync()
        self.held.remove(name)

    def let_go_all(self):
        for name in list(self.held):
            self.let_go(name)

    def press(self, *names):
        """Presses a chord, the last key being the one that the others modify. Returns the time just
        before, on the clock of the server (CLOCK_MONOTONIC), in milliseconds."""
        codes = [self.code(name)[0] for name in names]
        if self.code(names[-1])[1]:
            codes.insert(0, self.code("Shift_L")[0])
        began = time.clock_gettime(time.CLOCK_MONOTONIC) * 1000
        for code in codes:
            self.event(X.KeyPress, code)
        for code in reversed(codes):
            self.event(X.KeyRelease, code)
        self.display.sync()
        return began

    def press_until(self, what, chord, state):
        """Presses a chord that does no harm when repeated, until a state is reached: for a program
        that gives no sign from which moment on it hears keys."""
        def reached():
            self.press(*chord)
            try:
                return wait_for(what, state, 0.3)
            except NotObserved:
                return False

        wait_for(what, reached)

    def type(self, text):
        for character in text:
            self.press(character)

    def point(self, x, y):
        """Moves the pointer there."""
        self.event(X.MotionNotify, 0, x=x, y=y)
        self.display.sync()

    def click(self, x, y, button=1):
        self.point(x, y)
        self.event(X.ButtonPress, button)
        self.event(X.ButtonRelease, button)
        self.display.sync()

    def hold_button(self, button=1):
        """Presses a button of the mouse, without letting it go."""
        self.event(X.ButtonPress, button)
        self.display.sync()

    def let_go_button(self, button=1):
        self.event(X.ButtonRelease, button)
        self.display.sync()
