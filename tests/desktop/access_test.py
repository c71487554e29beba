"""The panel without seeing it: by what assistive technology is shown and told alone."""

import datetime
import os
import unittest.mock

from support.case import DesktopTest
from support.editors import Mousepad
from support.history import clip
from support.reader import Reader
from support.waiting import wait_for

TABS = ["All", "Pinned", "Text", "URL", "Code", "Email", "Files", "Emoji", "Large"]
LIMIT = 9999


def aged(text, **fields):
    """A clip that stays "2h" old for as long as a test may take."""
    moment = datetime.datetime.now(datetime.timezone.utc) - datetime.timedelta(hours=2, minutes=5)
    return clip(text, createdAt=moment.strftime("%Y-%m-%dT%H:%M:%SZ"), **fields)


class AccessTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.reader = Reader()
        self.addCleanup(self.reader.close)

    def start_korvane(self, clips=(), **options):
        # The script of the desktop sets this, so that no other test has a reader's share in it.
        with unittest.mock.patch.dict(os.environ):
            del os.environ["NO_AT_BRIDGE"]
            return super().start_korvane(clips, **options)

    def start(self, *clips, **preferences):
        """Korvane with a panel that a reader has heard open."""
        self.reader.listen()
        self.start_korvane(list(clips), **preferences)
        self.open()

    def meet(self):
        self.program = wait_for("the program shows itself", lambda: self.reader.program(self.korvane.process.pid))

    def open(self):
        self.meet()
        self.korvane.command("--show")
        self.korvane.wait_until_open()
        self.window = wait_for("its window shows itself", lambda: self.program.find("frame", "Korvane"))
        wait_for(lambda: f"the opening is announced; heard was {self.reader.heard}", self.reader.announced)
        self.clips = self.window.find("list", "Clips")
        self.reader.forget()

    def start_with_three(self):
        self.start(aged("apple"), aged("let x = 1;", kind="code", pinned=True, sourceApp="Editor"), aged("cherry"))

    def tab(self, name):
        return self.window.find("page tab", name)

    def expect_rows(self, *names):
        wait_for(lambda: f"the rows {names}; there are {self.clips.names()}", lambda: self.clips.names() == list(names))

    def test_the_opening_is_announced_once_with_the_clip_that_return_would_paste(self):
        self.reader.listen()
        self.start_korvane([aged("apple"), aged("cherry")])
        self.meet()
        for _ in range(2):
            self.korvane.command("--show")
            self.reader.expect_announced("All, 2 clips, apple, Text, 2h, 1 of 2")
            self.reader.expect_focused("Search")
            self.assertEqual(len(self.reader.announced()), 1, self.reader.heard)
            self.korvane.command("--hide")
            self.korvane.wait_until_closed()
            self.reader.forget()

    def test_every_part_of_the_panel_has_a_role_and_a_name(self):
        self.start_with_three()

        self.assertIn("active", self.window.states())
        search = self.window.find("text", "Search")
        self.assertTrue({"editable", "focused", "showing"} <= search.states(), search.states())
        tabs = self.window.find("page tab list", "Filter")
        self.assertEqual(tabs.names(), TABS)
        self.assertEqual([tab.name for tab in tabs.children() if "selected" in tab.states()], ["All"])
        totals = self.window.find("label", "3 clips / 1 KB")
        self.assertEqual(totals.description, "Total: 3 / 500 clips · 500 MB limit")

    def test_a_row_tells_what_it_is_and_where_it_stands(self):
        self.start_with_three()

        self.assertEqual(self.clips.names(), ["apple, Text, 2h, 1 of 3", "let x = 1;, Code, Editor, 2h, pinned, 2 of 3",
                                              "cherry, Text, 2h, 3 of 3"])
        first, second, third = self.clips.children()
        self.assertEqual({row.role for row in (first, second, third)}, {"list item"})
        self.assertTrue({"selected", "selectable", "showing"} <= first.states(), first.states())
        self.assertNotIn("selected", second.states())
        self.assertEqual((second.index, second.parent.name), (1, "Clips"))
        x, y, width, height = second.extents()
        self.assertEqual(self.clips.at(x + width // 2, y + height // 2).name, second.name)

    def test_whatever_can_be_used_has_a_name(self):
        self.start_with_three()

        used = [element for element in self.window.descendants() if element.actions()]
        self.assertGreater(len(used), 12)
        self.assertEqual([(element.role, element.extents()) for element in used if not element.name], [])

    def test_a_file_that_is_gone_is_told_with_its_row(self):
        there = self.desk.folder / "there.txt"
        there.write_text("here I am")
        self.start(aged(str(there), kind="file"), aged(str(self.desk.folder / "gone.txt"), kind="file"))

        wait_for("the missing file is told", lambda: self.clips.child(1).description == "The file is no longer there")
        self.assertEqual(self.clips.child(0).description, "")

    def test_an_empty_history_says_what_to_do(self):
        self.start()

        self.assertEqual(self.clips.description, "No clips yet. Copy something, and it appears here.")

    def test_the_arrow_keys_are_followed(self):
        self.start_with_three()

        self.keys.press("Down")
        self.reader.expect_focused("let x = 1;, Code, Editor, 2h, pinned, 2 of 3")
        self.keys.press("Down")
        self.reader.expect_focused("cherry, Text, 2h, 3 of 3")

        self.assertEqual(self.reader.selected(), self.reader.focused())
        self.assertTrue({"focused", "selected"} <= self.clips.child(2).states())
        self.assertNotIn("selected", self.clips.child(0).states())

    def test_typing_is_answered_by_what_is_found(self):
        self.start_with_three()

        self.keys.type("c")
        self.reader.expect_announced("1 clip, cherry, Text, 2h, 1 of 1")
        self.keys.type("h")
        self.reader.expect_announced("1 clip")
        self.expect_rows("cherry, Text, 2h, 1 of 1")
        self.keys.type("q")
        self.reader.expect_announced("No clips")
        self.assertEqual(self.clips.count, 0)
        self.keys.press("Escape")
        self.reader.expect_announced("3 clips, apple, Text, 2h, 1 of 3")

    def test_a_tab_is_pressed_and_tells_what_it_shows(self):
        self.start_with_three()

        self.tab("Code").act("Press")

        self.reader.expect_announced("Code, 1 clip")
        self.reader.expect_focused("let x = 1;, Code, Editor, 2h, pinned, 1 of 1")
        self.expect_rows("let x = 1;, Code, Editor, 2h, pinned, 1 of 1")
        self.assertIn("selected", self.tab("Code").states())
        self.assertNotIn("selected", self.tab("All").states())

    def test_a_row_is_focused_and_pressed_and_its_text_is_on_the_clipboard(self):
        self.start_with_three()
        row = self.clips.child(2)
        before = self.clipboard.count()

        row.grab_focus()
        self.reader.expect_focused("cherry, Text, 2h, 3 of 3")
        self.assertEqual(self.clipboard.count(), before)
        row.act("Press")

        self.korvane.wait_until_closed()
        wait_for("its text is on the clipboard", lambda: self.clipboard.get() == b"cherry")

    def test_a_row_is_pasted_into_the_program_that_was_in_front(self):
        editor = Mousepad(self.desk)
        self.start_with_three()

        self.clips.child(2).act("Paste")

        self.korvane.wait_until_closed()
        wait_for("the editor is in front again", editor.is_in_front)
        editor.shows("cherry")

    def test_a_rows_menu_is_opened_and_pins_it(self):
        self.start_with_three()

        self.clips.child(0).act("ShowMenu")
        self.reader.expect_focused("Copy")
        self.reader.menu().find("menu item", "Pin").act("Press")

        self.reader.expect_announced("apple, Text, 2h, pinned, 1 of 3")
        self.assertEqual(self.clips.child(0).name, "apple, Text, 2h, pinned, 1 of 3")

    def test_a_preview_is_read_out_though_it_never_has_the_focus(self):
        self.start_with_three()
        self.keys.press("space")
        self.reader.expect_announced("Preview: apple")
        self.keys.press("space")
        self.keys.press("Down")
        self.keys.press("space")
        self.reader.expect_announced("Preview: let x = 1;")

    def test_the_head_tells_what_its_buttons_are_and_whether_private_mode_is_on(self):
        self.start_with_three()
        lock = self.window.find("check box", "Private Mode")
        self.assertNotIn("checked", lock.states())
        for name in ("Preferences", "Menu"):
            self.assertIn("showing", self.window.find("push button", name).states())
        lock.act("Toggle")
        wait_for("the lock is checked", lambda: "checked" in lock.states())

    def test_a_rename_has_a_field_with_a_name_and_ends_at_the_row(self):
        self.start_with_three()
        self.clips.child(0).act("ShowMenu")
        self.reader.expect_focused("Copy")
        self.reader.menu().find("menu item", "Rename...").act("Press")
        self.reader.expect_focused("Name")
        self.assertEqual(self.clips.child(3).name, "Name")

        self.keys.type("fruit")
        self.keys.press("Return")

        self.reader.expect_focused("Search")
        self.reader.expect_announced("fruit, Text, 2h, 1 of 3")
        self.expect_rows("fruit, Text, 2h, 1 of 3", "let x = 1;, Code, Editor, 2h, pinned, 2 of 3", "cherry, Text, 2h, 3 of 3")

    def test_after_a_deletion_the_next_row_has_the_focus_and_the_deleted_one_is_gone(self):
        self.start_with_three()
        self.keys.press("Down")
        self.reader.expect_focused("let x = 1;, Code, Editor, 2h, pinned, 2 of 3")
        deleted = self.clips.child(1)

        self.keys.press("Control_L", "BackSpace")

        self.reader.expect_focused("cherry, Text, 2h, 2 of 2")
        self.assertEqual(deleted.states(), {"defunct"})
        self.assertTrue(self.korvane.is_running())

    def test_the_longest_history_is_read_from_its_end(self):
        self.start(*(aged(f"clip {number}") for number in range(LIMIT)), maxClips=LIMIT)

        self.assertEqual(self.clips.count, LIMIT)
        last = self.clips.child(LIMIT - 1)
        self.assertEqual(last.name, f"clip {LIMIT - 1}, Text, 2h, {LIMIT} of {LIMIT}")
        self.assertNotIn("showing", last.states())
        last.grab_focus()
        self.reader.expect_focused(last.name)
        self.assertIn("showing", last.states())

    def test_a_reader_that_starts_later_is_told_from_then_on(self):
        self.start_korvane([aged("apple"), aged("cherry")])
        self.meet()
        self.reader.listen()
        self.open()
        self.keys.press("Down")
        self.reader.expect_focused("cherry, Text, 2h, 2 of 2")

    def test_where_the_bridge_is_switched_off_it_shows_itself_to_nobody(self):
        super().start_korvane([aged("apple")])
        self.korvane.turn()
        self.assertIsNone(self.reader.program(self.korvane.process.pid))
