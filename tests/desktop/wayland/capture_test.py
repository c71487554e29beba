"""A copy in a program becomes a clip on the disk."""

from support.waiting import wait_for
from support.wayland_case import WaylandTest
from support.wayland_clipboard import UTF8
from support.wayland_editors import WaylandFeatherPad, WaylandMousepad, XMousepad

PROSE = "Grüße aus Köln, 漢字 und 😀\n\tnext line  "


class CaptureTest(WaylandTest):
    def expect_one_clip(self, text, kind, source):
        [record] = self.history.wait_for_texts([text], 5)
        self.assertEqual(record["type"], kind)
        self.assertEqual(record.get("sourceApp"), source)

    def test_a_text_that_a_program_without_a_window_sets_becomes_one_clip(self):
        self.start_korvane()
        self.clipboard.set("somebody@example.org")
        self.expect_one_clip("somebody@example.org", "email", None)

    def test_a_text_of_a_background_program_is_ascribed_to_the_program_in_front(self):
        WaylandMousepad(self.desk)
        self.start_korvane()
        self.clipboard.set(PROSE)
        self.expect_one_clip(PROSE, "plainText", "Mousepad")

    def test_a_copy_in_a_gtk_editor_becomes_one_clip(self):
        self.start_korvane()
        WaylandMousepad(self.desk, PROSE).copy_all()
        self.expect_one_clip(PROSE, "plainText", "Mousepad")

    def test_a_copy_in_an_editor_that_is_an_x_client_becomes_one_clip(self):
        self.start_korvane()
        XMousepad(self.desk, PROSE).copy_all()
        self.expect_one_clip(PROSE, "plainText", "Mousepad")

    def test_a_copy_in_a_qt_editor_becomes_one_clip(self):
        self.start_korvane()
        WaylandFeatherPad(self.desk, PROSE).copy_all()
        self.expect_one_clip(PROSE, "plainText", "FeatherPad")

    def test_three_files_become_three_clips_in_their_order(self):
        paths = [self.desk.folder / name for name in ("a one.txt", "b 100%.txt", "c ü.txt")]
        for path in paths:
            path.write_text(path.name)
        self.start_korvane()
        self.clipboard.set("".join(path.as_uri() + "\r\n" for path in paths), "text/uri-list")
        # Each is inserted at the top: the first of the files ends below the others.
        records = self.history.wait_for_texts([str(path) for path in reversed(paths)], 5)
        self.assertEqual({record["type"] for record in records}, {"file"})

    def test_the_same_text_twice_becomes_one_clip(self):
        self.start_korvane()
        self.clipboard.set("once")
        self.history.wait_for_texts(["once"], 5)
        self.clipboard.set("once")
        self.expect_no_new_clip(["once"])

    def test_what_is_on_the_clipboard_at_the_start_is_not_captured(self):
        self.clipboard.set("from before")
        self.start_korvane()
        self.expect_no_new_clip([])

    def test_a_restart_keeps_the_history(self):
        self.start_korvane()
        self.clipboard.set("to be kept")
        self.history.wait_for_texts(["to be kept"], 5)
        self.assertEqual(self.korvane.quit(), 0)
        self.korvane.start()
        self.korvane.open()
        self.assertEqual(len(self.korvane.rows()), 1)
        self.korvane.close()
        self.expect_no_new_clip(["to be kept"])

    def test_a_text_outlives_the_program_that_it_was_copied_in(self):
        self.start_korvane()
        editor = WaylandMousepad(self.desk, "to be outlived")
        editor.copy_all()
        self.history.wait_for_texts(["to be outlived"], 5)
        editor.process.kill()
        editor.process.wait()
        wait_for("the text is there still", lambda: self.clipboard.get() == b"to be outlived")
        self.expect_no_new_clip(["to be outlived"])


class RefusalTest(WaylandTest):
    def expect_refused(self, text):
        self.expect_no_new_clip([])
        self.assertFalse(self.history.holds_anywhere(text))
        self.assertNotIn(text, self.korvane.log())

    def test_an_ignored_applications_copies_are_refused(self):
        self.start_korvane(ignoredBundleIDs=["org.xfce.mousepad"])
        WaylandMousepad(self.desk, "a secret of mine").copy_all()
        # Another program is in front before the next copy.
        WaylandFeatherPad(self.desk)
        self.expect_refused("a secret of mine")

    def test_what_its_owner_marks_as_a_secret_is_refused(self):
        self.start_korvane()
        self.clipboard.set_types({UTF8: "S3cret-pässword", "x-kde-passwordManagerHint": "secret"})
        self.expect_refused("S3cret-pässword")

    def test_what_its_owner_marks_as_no_secret_is_a_copy_like_any_other(self):
        self.start_korvane()
        self.clipboard.set_types({UTF8: "said aloud", "x-kde-passwordManagerHint": "public"})
        self.history.wait_for_texts(["said aloud"], 5)

    def test_in_private_mode_copies_are_refused_until_it_ends(self):
        self.start_korvane(privateModeEnabled=True)
        self.clipboard.set("between us")
        self.korvane.wait_until_private_is(True)
        self.korvane.turn()
        self.korvane.set_preferences(privateModeEnabled=False)
        self.korvane.wait_until_private_is(False)
        self.expect_refused("between us")
