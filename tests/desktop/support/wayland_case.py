"""What every test on a Wayland desktop begins and ends with."""

import unittest

from support.wayland_desk import WaylandDesk
from support.wayland_korvane import WaylandKorvane


class WaylandTest(unittest.TestCase):
    """A test with a desk of its own."""

    def setUp(self):
        self.desk = WaylandDesk()
        self.addCleanup(self.desk.close)
        self.keys, self.screen, self.clipboard = self.desk.keys, self.desk.screen, self.desk.clipboard

    def start_korvane(self, clips=(), **options):
        self.korvane = WaylandKorvane(self.desk, clips, **options)
        self.history = self.korvane.history
        return self.korvane

    def expect_no_new_clip(self, texts):
        """Proves that nothing but these texts was captured until now: the next copy is the next clip."""
        self.korvane.turn()
        self.clipboard.set("the next copy")
        self.history.wait_for_texts(["the next copy", *texts], 5)
