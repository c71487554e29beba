"""Quick copies: each becomes a clip, in order."""

import pathlib

from support.case import DesktopTest
from support.history import clip
from support.programs import Program
from support.waiting import wait_for

COPIER = str(pathlib.Path(__file__).with_name("support") / "copier.py")
COUNT = 50
KIBIBYTE = 1024


def mixed_text(number, size):
    """A text of many scripts that no other number gives, of so many bytes at most."""
    text = f"{number} " + "let x = 1; the quick brown fox, 漢字 und Grüße, 😀 return\n" * (size // 60)
    return text.encode()[:size].decode(errors="ignore")


class PaceTest(DesktopTest):
    def expect_all_captured(self, milliseconds):
        """Three bursts, each of fifty copies at this pace. On a machine that had no time for the pace, a burst is
        captured all the same, and does not count."""
        counted, bursts = 0, 0
        while counted < 3:
            self.assertLess(bursts, 10, "the machine has had no time for this pace")
            average = self.copy_quickly(f"{bursts}. copy", milliseconds)
            wanted = [f"{bursts}. copy {number}" for number in reversed(range(COUNT))]
            missing = lambda: sorted(set(wanted) - set(self.history.texts()[:COUNT]))
            wait_for(lambda: f"fifty clips in order; missing are {missing()}",
                     lambda: self.history.texts()[:COUNT] == wanted)
            bursts += 1
            counted += average < milliseconds * 1.25

    def copy_quickly(self, word, milliseconds):
        """Fifty copies; the average of the milliseconds between them, which are never fewer."""
        path = self.desk.folder / "copier.py.log"
        path.unlink(missing_ok=True)
        copier = Program(self.desk, [COPIER, str(COUNT), str(milliseconds), word,
                                     str(self.korvane.process.pid), str(self.desk.server())])
        said = lambda: path.exists() and path.read_text()
        average = float(wait_for("all is copied", said, 60))
        self.assertGreaterEqual(average, milliseconds)
        self.addCleanup(copier.end)
        return average

    def test_fifty_copies_twenty_milliseconds_apart_are_fifty_clips(self):
        self.start_korvane([clip(f"old {number}") for number in range(500)])
        self.expect_all_captured(20)

    def test_with_32_megabytes_of_history_copies_a_tenth_of_a_second_apart_are_all_captured(self):
        self.start_korvane([clip(mixed_text(number, 64 * KIBIBYTE)) for number in range(500)])
        self.assertGreater(self.history.path.stat().st_size, 30_000_000)
        self.expect_all_captured(100)
