"""The history as a whole, in the settings window: its numbers, its export and import, its end, and its limits."""

import json
import os
import pathlib
import sys
import time

from support.data_page import DataPageTest, captured
from support.history import clip
from support.panel_parts import GEAR, PanelParts
from support.programs import Program
from support.waiting import wait_for

OWNER = str(pathlib.Path(__file__).with_name("support") / "owner.py")


class DataTest(DataPageTest):
    def numbers(self):
        self.reader.turn()
        labels = [each.name for each in self.window.descendants() if each.role == "label" and "showing" in each.states()]
        return tuple(labels[labels.index(label) + 1] for label in ("Total clips:", "Pinned:"))

    def expect_numbers(self, total, pinned):
        wait_for(lambda: f"{total} clips, {pinned} pinned; it says {self.numbers()}",
                 lambda: self.numbers() == (str(total), str(pinned)))

    def enter(self, label, number):
        """Types a number into the field of a limit."""
        self.go_to("text", label)
        self.keys.press("Control_L", "a")
        self.keys.type(str(number))
        self.keys.press("Return")

    # --- the Data page

    def test_the_numbers_follow_what_is_copied(self):
        self.start_at_data(clip("one", pinned=True), clip("two"))
        self.expect_numbers(2, 1)

        self.clipboard.set("three")

        self.expect_numbers(3, 1)

    def test_an_export_lies_where_the_user_wants_it_and_nowhere_else(self):
        self.start_at_data(captured("newer", 2, pinned=True), captured("older", 1))
        target = self.desk.folder / "mine.json"

        self.press("Export history...")
        wait_for("the dialog", lambda: self.screen.find("korvane", title="Save As"))
        self.clipboard.set("copied while the dialog is open")
        self.history.wait_for_texts(["copied while the dialog is open", "newer", "older"])
        self.answer_dialog("Save As", target)

        wait_for("the export", lambda: target.exists() and not os.listdir(self.temporary))
        self.assertEqual([record["text"] for record in json.loads(target.read_text())], ["newer", "older"])
        self.assertEqual(target.stat().st_mode & 0o777, 0o600)

    def test_a_dialog_that_is_given_up_leaves_nothing(self):
        self.start_at_data(clip("one"))
        self.press("Export history...")
        wait_for("the dialog has the keyboard", lambda: self.has_keyboard("Save As"))
        self.assertEqual(len(os.listdir(self.temporary)), 1)

        self.keys.press("Escape")

        wait_for("no temporary file", lambda: not os.listdir(self.temporary))

    def test_a_session_that_ends_while_the_dialog_is_open_leaves_nothing(self):
        self.start_at_data(clip("one"))
        self.press("Export history...")
        wait_for("the dialog has the keyboard", lambda: self.has_keyboard("Save As"))
        self.assertEqual(len(os.listdir(self.temporary)), 1)

        self.korvane.process.terminate()

        self.assertEqual(self.korvane.process.wait(10), 0)
        self.assertFalse(os.listdir(self.temporary))

    def test_what_is_new_in_a_file_is_imported_in_the_order_of_the_copies(self):
        ours = captured("ours", 10)
        self.start_at_data(ours)
        source = self.desk.folder / "theirs.json"
        source.write_text(json.dumps([captured("newest", 20), {**ours, "text": "theirs"}, captured("oldest", 1)]))

        self.press("Import history...")
        self.answer_dialog("Open", source)

        self.history.wait_for_texts(["newest", "ours", "oldest"], 10)
        self.expect_numbers(3, 0)

    def test_a_bad_file_changes_nothing_and_says_nothing(self):
        self.start_at_data(clip("one"))
        source = self.desk.folder / "bad.json"
        source.write_text(json.dumps([clip("two"), clip("three", kind="image")]))

        self.press("Import history...")
        self.answer_dialog("Open", source)

        wait_for("the settings have the keyboard", lambda: self.screen.has_keyboard(self.settings()))
        self.clipboard.set("after")
        self.history.wait_for_texts(["after", "one"])

    def test_clearing_leaves_the_pinned_clips_once_it_is_agreed_to(self):
        self.start_at_data(clip("one"), clip("pinned", pinned=True))
        self.press("Clear history")
        self.press("Cancel")
        wait_for("the question is gone", lambda: self.named("Clear all") is None)
        self.assertEqual(self.history.texts(), ["one", "pinned"])

        self.press("Clear history")
        wait_for("the question", lambda: self.named("Clear all"))
        self.clipboard.set("copied while it is asked")
        self.history.wait_for_texts(["copied while it is asked", "one", "pinned"])
        self.press("Clear all")

        self.history.wait_for_texts(["pinned"])
        self.expect_numbers(1, 1)

    def click(self, name):
        """Clicks a button of the page by the mouse."""
        x, y, width, height = wait_for(f"the button {name!r}", lambda: self.named(name, "button") or self.named(name, "push button")).extents()
        self.keys.click(x + width // 2, y + height // 2)

    def test_a_question_of_the_settings_stays_when_the_panel_goes(self):
        self.start_at_data(clip("one"))
        self.go_back_to_panel()

        self.click("Clear history")
        wait_for("the question", lambda: self.named("Clear all"))
        self.korvane.command("--hide")
        self.korvane.wait_until_closed()

        wait_for("the question has the keyboard", lambda: self.has_keyboard("Clear history?"))
        self.press("Clear all")
        self.history.wait_for_texts([])

    def test_the_panels_gear_brings_the_window_back_with_its_question(self):
        self.start_at_data(clip("one"))
        self.press("Clear history")
        wait_for("the question", lambda: self.named("Clear all"))
        before = self.screen.find("korvane", title="Clear history?")

        parts = PanelParts(self.screen, self.korvane.box())
        self.keys.click(*parts.button(GEAR))

        wait_for("the question has the keyboard", lambda: self.has_keyboard("Clear history?"))
        self.korvane.command("--hide")
        self.korvane.wait_until_closed()
        self.assertEqual(self.screen.find("korvane", title="Clear history?"), before)
        self.press("Clear all")
        self.history.wait_for_texts([])

    def test_each_button_is_pressed_by_alt_and_its_letter(self):
        self.start_at_data(clip("one"))
        for letter, title in (("e", "Save As"), ("i", "Open"), ("c", "Clear history?")):
            with self.subTest(letter):
                self.keys.press("Alt_L", letter)
                wait_for(f"{title!r} has the keyboard", lambda title=title: self.has_keyboard(title))
                self.keys.press("Escape")
                wait_for("the window has the keyboard again", lambda: self.screen.has_keyboard(self.settings()))

    def test_a_paste_into_a_file_dialog_waits_for_no_owner_that_hangs(self):
        self.start_at_data(clip("one"))
        self.press("Export history...")
        wait_for("the dialog has the keyboard", lambda: self.has_keyboard("Save As"))
        before = self.clipboard.count()
        Program(self.desk, [sys.executable, OWNER, "silent"])
        wait_for("the owner that hangs has the clipboard", lambda: self.clipboard.count() > before)

        began = time.monotonic()
        self.keys.press("Control_L", "v")
        self.korvane.command("--hide")
        self.korvane.wait_until_closed()

        self.assertLess(time.monotonic() - began, 2)
        self.assertTrue(self.has_keyboard("Save As"))

    # --- the limits of the General page

    def test_a_limit_that_costs_nothing_holds_at_once_and_after_a_restart(self):
        self.start(clip("one"))

        self.enter("Max clips:", 20)
        self.wait_for_preference("maxClips", 50)
        self.enter("Max clip size (KB):", 4)

        self.wait_for_preference("maxClipSizeKB", 8)
        self.korvane.quit()
        self.korvane.start()
        self.clipboard.set("x" * 9000)
        self.history.wait_for("a large clip", lambda clips: clips[0]["isOverflow"])

    def test_a_click_on_a_page_that_brings_up_the_question_about_a_limit_chooses_the_page(self):
        self.start(*(clip(str(number)) for number in range(60)))
        self.go_to("text", "Max clips:")
        self.keys.press("Control_L", "a")
        self.keys.type("55")

        x, y, width, height = self.control("page tab", "Data").extents()
        self.keys.click(x + width // 2, y + height // 2)
        wait_for("the question", lambda: self.named("Reduce clip limit?"))
        self.press("Cancel")

        wait_for("the Data page", lambda: self.named("Statistics"))
        self.assertNotIn("maxClips", self.korvane.preferences())

    def test_a_limit_that_costs_clips_is_asked_about_and_silenced_for_good(self):
        self.start(*(clip(str(number)) for number in range(60)))

        self.enter("Max clips:", 55)
        wait_for("the question", lambda: self.named("Reduce clip limit?"))
        self.press("Cancel")
        wait_for("the question is gone", lambda: self.named("Reduce clip limit?") is None)
        self.assertNotIn("maxClips", self.korvane.preferences())
        self.enter("Max clips:", 55)
        wait_for("the check box", lambda: self.named("Don't show again", "check box")).act("Toggle")
        self.press("Apply")

        self.wait_for_preference("maxClips", 55)
        self.wait_for_preference("skipMaxClipsWarning", True)
        self.history.wait_for("55 clips", lambda clips: len(clips) == 55)
        self.enter("Max clips:", 50)
        self.history.wait_for("50 clips", lambda clips: len(clips) == 50)
