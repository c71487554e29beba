"""When a window is painted, by the clock of the server."""

import struct

from Xlib.display import Display
from Xlib.ext import damage, ge, xinput

from support.waiting import wait_for

# A blinking text cursor is less than this, a row of the list is more.
LEAST = 4000
# Milliseconds without any painting after which the screen is at rest. More than the longest pause within
# a change: the list of another tab appears 240 ms after the tab.
REST = 350


class Painting:
    """Watches one window (DAMAGE extension), and all keys (XInput 2), on a connection of its own."""

    def __init__(self, window):
        self.display = Display()
        self.display.damage_query_version()
        self.code = self.display.extension_event.DamageNotify
        self.display.create_resource_object("window", window.id).damage_create(damage.DamageReportRawRectangles)
        self.display.xinput_query_version()
        self.display.screen().root.xinput_select_events([(xinput.AllMasterDevices, xinput.RawKeyPressMask)])
        self.display.sync()

    def close(self):
        self.display.close()

    def after_key(self, press):
        """Has a key pressed; how many milliseconds later more than a text cursor is painted. Both moments
        are told by the server, whatever else keeps this process busy."""
        self.drop_events()
        press()
        pressed = wait_for("the key is pressed", lambda: self.next_event(self.time_of_key))
        return wait_for("the window is painted", lambda: self.next_event(self.time_of_painting)) - pressed

    def drop_events(self):
        self.display.sync()
        while self.display.pending_events():
            self.display.next_event()

    def next_event(self, time_of):
        while self.display.pending_events():
            if time := time_of(self.display.next_event()):
                return time
        return None

    def time_of_key(self, event):
        if event.type == ge.GenericEventCode and event.evtype == xinput.RawKeyPress:
            # The device's number, then the time.
            return struct.unpack_from("=HI", event.data)[1]
        return None

    def time_of_painting(self, event):
        is_painting = event.type == self.code and event.area.width * event.area.height > LEAST
        return event.timestamp if is_painting else None


def wait_until_at_rest(screen):
    """Waits until nothing has been painted anywhere on the screen for a while, by the server's clock: the
    windows that have opened have drawn themselves, and nothing moves any more."""
    display = Display()
    display.damage_query_version()
    code = display.extension_event.DamageNotify
    # What a compositor paints is painted on the root window's own overlay.
    display.screen().root.damage_create(damage.DamageReportRawRectangles)
    display.sync()
    last = screen.server_time()

    def is_at_rest():
        nonlocal last
        display.sync()
        while display.pending_events():
            event = display.next_event()
            if event.type == code:
                last = max(last, event.timestamp)
        return screen.server_time() - last > REST

    try:
        wait_for("the screen is at rest", is_at_rest)
    finally:
        display.close()
