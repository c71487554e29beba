"""When a window is painted, by the clock of the server."""

from Xlib.display import Display
from Xlib.ext import damage

from support.waiting import wait_for

# A blinking text cursor is less than this, a row of the list is more.
LEAST = 4000


class Painting:
    """Watches one window (DAMAGE extension) on a connection of its own."""

    def __init__(self, window):
        self.display = Display()
        self.display.damage_query_version()
        self.code = self.display.extension_event.DamageNotify
        self.display.create_resource_object("window", window.id).damage_create(damage.DamageReportRawRectangles)
        self.display.sync()

    def close(self):
        self.display.close()

    def first_after(self, began):
        """How many milliseconds after `began` (CLOCK_MONOTONIC) more than a text cursor was painted."""
        painted = wait_for("the window is painted", lambda: self.next_after(began))
        return painted - began

    def next_after(self, began):
        while self.display.pending_events():
            event = self.display.next_event()
            # The server counts whole milliseconds.
            if event.type == self.code and event.timestamp >= int(began) and event.area.width * event.area.height > LEAST:
                return event.timestamp
        return None
