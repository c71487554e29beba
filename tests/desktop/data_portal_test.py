"""The export and import of the history in the desktop's own file dialogs, which its portal shows."""

import json
import os

from Xlib import Xatom

from support.data_page import DataPageTest, captured
from support.history import clip
from support.portal import Portal, first, is_field
from support.waiting import wait_for


class DataPortalTest(DataPageTest):
    def start_with_portal(self, *clips):
        self.portal = Portal(self.desk, self.reader)
        self.start_at_data(*clips)

    def wait_for_settings(self):
        wait_for("the settings have the keyboard", lambda: self.screen.has_keyboard(self.settings()))

    def expect_nothing_left(self):
        wait_for("no temporary file", lambda: not os.listdir(self.temporary))

    def test_an_export_lies_where_the_user_wants_it_and_nowhere_else(self):
        self.start_with_portal(captured("newer", 2, pinned=True), captured("older", 1))
        target = self.desk.folder / "100 % mine" / "a b.json"
        target.parent.mkdir()

        self.press("Export history...")
        self.portal.wait_for_dialog("Save As")
        self.clipboard.set("copied while the dialog is open")
        self.history.wait_for_texts(["copied while the dialog is open", "newer", "older"])
        self.portal.enter("Save As", target)

        wait_for("the export", target.exists)
        self.expect_nothing_left()
        self.assertEqual([record["text"] for record in json.loads(target.read_text())], ["newer", "older"])
        self.wait_for_settings()

    def test_a_dialog_stands_over_the_settings_and_begins_at_home_with_the_name_that_is_proposed(self):
        self.start_with_portal(clip("one"))
        self.press("Export history...")

        dialog = self.portal.wait_for_dialog("Save As")

        above = self.screen.property(self.portal.window("Save As"), "WM_TRANSIENT_FOR", Xatom.WINDOW)
        self.assertEqual(list(above), [self.settings().id])
        wait_for("the name stands in its field", lambda: first(
            dialog.descendants, lambda each: is_field(each) and each.text() == "Korvane_export.json"))
        wait_for("its folder is the home", lambda: first(
            dialog.descendants, lambda each: each.role == "toggle button" and each.name == self.korvane.home.name
            and "checked" in each.states()))

    def test_an_open_panel_closes_as_it_would_keep_the_keyboard_from_the_dialog(self):
        self.start_with_portal(clip("one"))
        self.go_back_to_panel()

        self.press("Export history...")

        self.korvane.wait_until_closed()
        self.portal.wait_for_dialog("Save As")

    def test_what_is_new_in_a_file_is_imported(self):
        self.start_with_portal(captured("ours", 10))
        source = self.desk.folder / "theirs.json"
        source.write_text(json.dumps([captured("newest", 20), captured("oldest", 1)]))

        self.press("Import history...")
        self.portal.enter("Open", source)

        self.history.wait_for_texts(["newest", "ours", "oldest"], 10)
        self.wait_for_settings()

    def test_a_dialog_that_is_given_up_leaves_nothing_and_the_next_one_opens(self):
        self.start_with_portal(clip("one"))
        self.press("Export history...")
        self.portal.wait_for_dialog("Save As")
        self.assertEqual(len(os.listdir(self.temporary)), 1)

        self.keys.press("Escape")

        self.portal.wait_until_gone("Save As")
        self.expect_nothing_left()
        self.press("Import history...")
        self.portal.wait_for_dialog("Open")

    def test_the_settings_take_their_dialog_along(self):
        self.start_with_portal(clip("one"))
        self.press("Export history...")
        self.portal.wait_for_dialog("Save As")

        self.screen.close(self.settings())

        self.wait_until_hidden()
        self.portal.wait_until_gone("Save As")
        self.expect_nothing_left()

    def test_a_session_that_ends_while_the_dialog_is_open_leaves_nothing(self):
        self.start_with_portal(clip("one"))
        self.press("Export history...")
        self.portal.wait_for_dialog("Save As")

        self.korvane.process.terminate()

        self.assertEqual(self.korvane.process.wait(10), 0)
        self.assertFalse(os.listdir(self.temporary))
        self.portal.wait_until_gone("Save As")

    def test_a_portal_that_hangs_is_not_waited_for_and_its_late_dialog_goes(self):
        self.start_with_portal(clip("one"))
        target = self.desk.folder / "mine.json"
        self.portal.portal.stop()

        self.press("Export history...")
        self.answer_dialog("Save As", target)
        wait_for("the export", target.exists)
        self.portal.portal.go_on()

        self.press("Import history...")
        self.portal.wait_for_dialog("Open")
        self.portal.wait_until_gone("Save As")

    def test_a_dialog_that_never_comes_goes_with_the_settings(self):
        self.start_with_portal(clip("one"))
        self.portal.dialogs.stop()
        self.press("Export history...")
        wait_for("the export is made", lambda: os.listdir(self.temporary))

        self.screen.close(self.settings())

        self.wait_until_hidden()
        self.expect_nothing_left()

    def test_after_the_end_of_the_portal_the_dialog_is_korvanes_own(self):
        self.start_with_portal(clip("one"))
        self.press("Export history...")
        self.portal.wait_for_dialog("Save As")

        self.portal.end()

        self.expect_nothing_left()
        self.wait_for_settings()
        self.press("Export history...")
        wait_for("the dialog", lambda: self.screen.find("korvane", title="Save As"))
