"""A copy in a program becomes a clip on the disk."""

from support.browser import Chromium
from support.case import DesktopTest
from support.editors import FeatherPad, Mousepad
from support.files import FileManager
from support.terminals import XTerm
from support.waiting import wait_for

PROSE = "Grüße aus Köln, 漢字 und 😀\n\tnext line  "
CODE = "let x = 1;\nreturn x\n"


class CaptureTest(DesktopTest):
    def expect_one_clip(self, text, kind, source):
        [record] = self.history.wait_for_texts([text])
        self.assertEqual(record["type"], kind)
        self.assertEqual(record.get("sourceApp"), source)

    def test_a_copy_in_a_gtk_editor_becomes_one_clip(self):
        self.start_korvane()
        Mousepad(self.desk, PROSE).copy_all()
        self.expect_one_clip(PROSE, "plainText", "Mousepad")

    def test_a_copy_in_a_qt_editor_becomes_one_clip(self):
        self.start_korvane()
        FeatherPad(self.desk, CODE).copy_all()
        self.expect_one_clip(CODE, "code", "FeatherPad")

    def test_a_copy_in_a_browsers_text_area_becomes_one_clip(self):
        self.start_korvane()
        text = "  https://example.org/ä?b=c d"
        Chromium(self.desk, text).copy_all()
        self.expect_one_clip(text, "url", "Chromium Web Browser")

    def test_a_text_that_a_command_sets_becomes_one_clip(self):
        self.start_korvane()
        self.clipboard.set("somebody@example.org")
        self.expect_one_clip("somebody@example.org", "email", None)

    def test_a_text_of_a_background_program_is_ascribed_to_the_program_in_front(self):
        XTerm(self.desk)
        self.start_korvane()
        self.clipboard.set("from behind")
        self.expect_one_clip("from behind", "plainText", "XTerm")

    def test_three_files_become_three_clips_in_their_order(self):
        folder = self.desk.folder / "three files"
        folder.mkdir()
        paths = [folder / name for name in ("a one.txt", "b 100%.txt", "c ü.txt")]
        for path in paths:
            path.write_text(path.name)
        manager = FileManager(self.desk, folder)
        self.start_korvane()

        manager.copy()

        # Each is inserted at the top: the first of the files ends below the others.
        records = self.history.wait_for_texts([str(path) for path in reversed(paths)])
        self.assertEqual({record["type"] for record in records}, {"file"})
        self.assertEqual({record.get("sourceApp") for record in records}, {"Thunar File Manager"})

    def test_blank_text_becomes_no_clip(self):
        self.start_korvane()
        self.clipboard.set(" \t\n\u3000 ")
        self.expect_no_new_clip([])

    def test_the_same_text_twice_becomes_one_clip(self):
        self.start_korvane()
        self.clipboard.set("once")
        self.history.wait_for_texts(["once"])
        self.clipboard.set("once")
        self.expect_no_new_clip(["once"])

    def test_what_is_on_the_clipboard_at_the_start_is_not_captured(self):
        self.clipboard.set("from before")
        self.start_korvane()
        self.expect_no_new_clip([])

    def test_a_mere_selection_is_not_a_copy(self):
        self.start_korvane()
        self.clipboard.set("only selected", "primary")
        self.expect_no_new_clip([])

    def test_a_text_outlives_the_program_that_it_was_copied_in(self):
        self.start_korvane()
        editor = Mousepad(self.desk, "to be outlived")
        editor.copy_all()
        self.history.wait_for_texts(["to be outlived"])

        owner = self.screen.owner()
        editor.process.kill()

        wait_for("somebody else owns the clipboard", lambda: self.screen.owner() not in (0, owner))
        self.assertEqual(self.clipboard.get(), b"to be outlived")
        self.expect_no_new_clip(["to be outlived"])

    def test_the_history_is_readable_by_its_user_alone(self):
        self.start_korvane(maxClipSizeKB=8)
        self.clipboard.set("small")
        self.history.wait_for_texts(["small"])
        self.clipboard.set("large " * 5000)
        self.history.wait_for("two clips", lambda clips: len(clips) == 2)
        modes = self.history.modes()
        self.assertEqual({mode for name, mode in modes.items() if name.endswith((".json", ".txt"))}, {0o600}, modes)
        self.assertEqual(modes["com.VNT.Korvane"], 0o700, modes)
