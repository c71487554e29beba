"""A program that owns the clipboard and hangs never holds up the panel, nor the next copy."""

import os
import pathlib
import signal

from support.case import DesktopTest
from support.history import clip
from support.painting import Painting
from support.processor import ProcessorWaits
from support.programs import Program, state_of
from support.waiting import wait_for

OWNER = str(pathlib.Path(__file__).with_name("support") / "owner.py")
# A time-out of two seconds is under way while the keys are typed.
HANGING = 2000
DEADLINE = 50


class HostileOwnerTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.start_korvane([clip(text) for text in ("abc", "bcd", "cde")])
        self.waits = ProcessorWaits(self.korvane.process.pid, self.desk.server())

    def expect_lively_panel(self, hang):
        """Every key is painted in time while an owner hangs."""
        hang()
        times = self.times_of_keys()
        late = [f"{key} {time:.1f}" for key, time in times if time >= DEADLINE]
        self.assertEqual(late, [], f"milliseconds, of {len(times)} keys")

    def times_of_keys(self):
        """Types into the search for as long as the hanging owner is waited for, and measures each key
        from its press to its painting: the pairs of key and milliseconds."""
        began = self.screen.server_time()
        self.korvane.open()
        painting = Painting(self.korvane.panel())
        times = []
        while self.screen.server_time() - began < HANGING + 500:
            for key in ("b", "BackSpace"):
                times.append((key, self.time_of_key(painting, key)))
        painting.close()
        self.korvane.close()
        return times

    def time_of_key(self, painting, key):
        """What a busy machine adds is taken off: the time for which the panel, or the server that brings
        it the key, was ready to run while other programs had the processor. A panel that waits for an
        owner is not ready to run."""
        before = self.waits.total()
        took = painting.after_key(lambda: self.keys.press(key))
        return took - (self.waits.total() - before)

    def expect_next_copy(self):
        self.clipboard.set("after all that")
        self.history.wait_for_texts(["after all that", "abc", "bcd", "cde"])

    def freeze_xclip(self):
        """xclip, real but stopped before anyone has asked it for anything."""
        os.kill(self.korvane.process.pid, signal.SIGSTOP)
        wait_for("Korvane sleeps", lambda: state_of(self.korvane.process.pid) == "T")
        before = self.clipboard.count()
        owner = Program(self.desk, ["xclip", "-selection", "clipboard", "-quiet", "-i"], stdin=b"never given")
        wait_for("xclip owns the clipboard", lambda: self.clipboard.count() > before)
        owner.stop()
        os.kill(self.korvane.process.pid, signal.SIGCONT)
        return owner

    def test_an_owner_that_is_stopped_holds_up_neither_keys_nor_painting(self):
        self.expect_lively_panel(self.freeze_xclip)
        self.expect_next_copy()

    def test_an_owner_that_never_answers_holds_up_neither_keys_nor_painting(self):
        self.expect_lively_panel(lambda: self.own("silent"))
        self.expect_next_copy()

    def test_an_owner_that_stops_in_mid_transfer_holds_up_neither_keys_nor_painting(self):
        def stop_in_mid_transfer():
            owner = self.own("stops")
            wait_for("the owner has stopped in mid-transfer", lambda: state_of(owner.process.pid) == "T")

        self.expect_lively_panel(stop_in_mid_transfer)
        self.expect_next_copy()

    def test_the_next_copy_is_captured_while_the_hanging_owner_is_still_waited_for(self):
        self.freeze_xclip()
        self.expect_next_copy()

    def test_pasting_works_while_an_owner_hangs(self):
        self.freeze_xclip()
        hanging = self.screen.owner()
        self.korvane.open()
        self.keys.press("Return")
        wait_for("Korvane owns the clipboard", lambda: self.screen.owner() not in (0, hanging))
        self.assertEqual(self.clipboard.get(), b"abc")
        self.expect_no_new_clip(["abc", "bcd", "cde"])

    def test_pasting_into_the_search_field_does_not_wait_for_the_hanging_owner(self):
        self.freeze_xclip()
        self.korvane.open()
        painting = Painting(self.korvane.panel())
        self.addCleanup(painting.close)
        self.keys.press("Control_L", "v")
        self.assertLess(self.time_of_key(painting, "b"), DEADLINE)

    def own(self, manner):
        before = self.clipboard.count()
        owner = Program(self.desk, [OWNER, manner])
        wait_for("it owns the clipboard", lambda: self.clipboard.count() > before)
        return owner
