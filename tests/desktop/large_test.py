"""A hundred megabytes of text, in and out."""

import hashlib
import pathlib

from support.case import DesktopTest
from support.editors import Mousepad
from support.programs import Program
from support.waiting import wait_for

REQUESTOR = str(pathlib.Path(__file__).with_name("support") / "requestor.py")
SIZE = 100 * 1024 * 1024
LONG = 60


def large_text():
    """100 MB of lines that all differ, so that a piece that is lost or doubled is seen."""
    line = "{:09d} of many, ünïcödé\n"
    text = "".join(line.format(number) for number in range(SIZE // len(line.format(0).encode()) + 1)).encode()
    return text[:SIZE - 1] + b"."


def digest(path):
    return hashlib.sha256(pathlib.Path(path).read_bytes()).hexdigest()


class LargeTest(DesktopTest):
    def capture(self, text):
        """Copies it with xclip, which hands it over in pieces; the record of the clip."""
        self.start_korvane()
        self.clipboard.set(text)
        self.history.wait_for("the large clip", lambda clips: len(clips) == 1, LONG)
        return self.history.clips()[0]

    def expect_on_the_clipboard(self, text):
        """Return puts the text there, where another program finds it."""
        owner = self.screen.owner()
        self.keys.press("Return")
        wait_for("Korvane owns the clipboard", lambda: self.screen.owner() not in (0, owner), LONG)
        self.assertEqual(hashlib.sha256(self.clipboard.get(seconds=LONG)).digest(), hashlib.sha256(text).digest())

    def test_it_is_captured_into_a_file_of_its_own_and_pasted_back_byte_for_byte(self):
        text = large_text()
        wanted = hashlib.sha256(text).hexdigest()
        record = self.capture(text)
        self.assertTrue(record["isOverflow"])
        self.assertEqual(record["overflowByteCount"], len(text))
        self.assertEqual(digest(record["overflowPath"]), wanted)
        self.assertLessEqual(len(record["text"].encode()), 4096)
        self.assertTrue(text.startswith(record["text"].encode()))

        taken = self.desk.folder / "taken"
        target = Program(self.desk, [REQUESTOR, str(taken)], "requestor").to_front()
        self.korvane.open()
        self.keys.press("Return")

        wait_for("all of it is pasted", taken.exists, LONG)
        self.assertEqual(digest(taken), wanted)
        wait_for("the target is in front", target.is_in_front)
        # The text of a large clip is not remembered as our own: it comes back as a clip, once.
        self.history.wait_for("it has come back", lambda clips: len(clips) == 2, LONG)
        self.assertEqual(digest(self.history.clips()[0]["overflowPath"]), wanted)
        self.korvane.turn()
        self.clipboard.set("the next copy")
        self.history.wait_for("once", lambda clips: len(clips) == 3 and clips[0]["text"] == "the next copy", LONG)

    def test_ten_megabytes_on_one_line_are_a_row_like_any_other_and_are_there_after_a_restart(self):
        text = b"x" * (10 * 1024 * 1024)
        record = self.capture(text)
        self.assertEqual(record["overflowByteCount"], len(text))
        self.korvane.quit()
        self.assertEqual(digest(record["overflowPath"]), hashlib.sha256(text).hexdigest())

        self.korvane.start()
        self.assertEqual(self.history.clips(), [record])
        self.assertEqual(self.korvane.open().height, 250)
        self.expect_on_the_clipboard(text)

    def test_another_program_reads_it_from_korvane_byte_for_byte(self):
        text = large_text()
        self.capture(text)
        self.korvane.open()
        self.expect_on_the_clipboard(text)

    def test_a_large_clip_whose_file_is_gone_pastes_its_beginning(self):
        editor = Mousepad(self.desk)
        self.start_korvane(maxClipSizeKB=8)
        self.clipboard.set("a line of many\n" * 1000)
        self.history.wait_for("the large clip", lambda clips: len(clips) == 1)
        [record] = self.history.clips()
        pathlib.Path(record["overflowPath"]).unlink()
        self.korvane.open()
        self.keys.press("Return")
        editor.shows(record["text"])
