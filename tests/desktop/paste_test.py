"""Return pastes the chosen clip into the program that was in front."""

from support.browser import Chromium
from support.case import DesktopTest
from support.editors import FeatherPad, Mousepad
from support.history import clip
from support.terminals import XfceTerminal, XTerm
from support.waiting import wait_for

LINE = "Grüße, 漢字 und 😀 'quoted' \\ $HOME `x`"
LINES = LINE + "\n\n\tsecond line\n"


class PasteTest(DesktopTest):
    def paste_into(self, target, text):
        """Chooses the second of three clips and presses Return. It is not the newest: captured anew, it
        would not be taken for a repetition."""
        self.start_korvane([clip("first"), clip(text), clip("third")])
        target.to_front()
        self.korvane.open()
        self.keys.press("Down")
        self.keys.press("Return")

        target.shows(text)
        self.korvane.wait_until_closed()
        wait_for("the target is in front again", target.is_in_front)
        self.assertEqual([record["useCount"] for record in self.history.clips()], [0, 1, 0])
        self.assertEqual(self.clipboard.get(), text.encode())
        self.expect_no_new_clip(["first", text, "third"])

    def test_it_pastes_into_a_gtk_editor(self):
        self.paste_into(Mousepad(self.desk), LINES)

    def test_it_pastes_into_a_qt_editor(self):
        self.paste_into(FeatherPad(self.desk), LINES)

    def test_it_pastes_into_a_browsers_text_area(self):
        self.paste_into(Chromium(self.desk), LINES)

    def test_it_pastes_into_xterm(self):
        self.paste_into(XTerm(self.desk), LINES)

    def test_it_pastes_into_a_terminal_with_gnomes_widget(self):
        # It asks before it takes several lines.
        self.paste_into(XfceTerminal(self.desk), LINE)

    def test_what_was_typed_in_the_search_reaches_no_one_else(self):
        editor = Mousepad(self.desk)
        self.start_korvane([clip("apple"), clip("banana")])
        self.korvane.open()
        self.keys.type("ban")
        self.keys.press("Return")
        editor.shows("banana")

    def test_a_second_paste_goes_where_the_first_did(self):
        editor = Mousepad(self.desk)
        self.start_korvane([clip("one "), clip("two ")])
        for key in ("Up", "Down"):
            self.korvane.open()
            self.keys.press("Up")
            self.keys.press(key)
            self.keys.press("Return")
            editor.shows("one " if key == "Up" else "one two ")

    def test_a_file_clip_is_shown_in_the_file_manager_and_nothing_is_typed(self):
        folder = self.desk.folder / "shown folder"
        folder.mkdir()
        (folder / "file.txt").write_text("contents")
        editor = Mousepad(self.desk, "unchanged")
        self.start_korvane([clip(str(folder / "file.txt"), "file")])
        self.clipboard.set("mine")
        self.history.wait_for("two clips", lambda clips: len(clips) == 2)
        self.korvane.open()
        self.keys.press("Down")
        wait_for("the path is on the clipboard", lambda: self.clipboard.text().endswith("file.txt"))
        before = self.clipboard.count()
        self.keys.press("Return")

        wait_for("a window of the folder", lambda: self.screen_shows(folder.name), 20)
        self.korvane.wait_until_closed()
        self.assertEqual(self.clipboard.count(), before)
        editor.to_front().shows("unchanged")

    def screen_shows(self, title):
        return any(title in self.screen.title(window) for window in self.screen.below(self.screen.root, 3)
                   if self.screen.is_viewable(window))

    def test_with_no_window_in_front_the_text_is_on_the_clipboard(self):
        self.start_korvane([clip("one"), clip("two")])
        self.korvane.open()
        self.keys.press("Return")
        wait_for("the text is on the clipboard", lambda: self.clipboard.get() == b"one")
        self.expect_no_new_clip(["one", "two"])

    def test_a_click_on_a_row_copies_and_pastes_nothing(self):
        editor = Mousepad(self.desk, "unchanged")
        self.start_korvane([clip("one"), clip("two"), clip("three")])
        panel = self.korvane.open()
        # The rows fill the middle of the panel: with three clips its middle is one of them.
        self.keys.click(panel.x + panel.width // 2, panel.middle[1])
        self.korvane.wait_until_closed()
        wait_for("a clip is on the clipboard", lambda: self.clipboard.get() in (b"one", b"two", b"three"))
        self.history.wait_for("its use is counted", lambda clips: sum(c["useCount"] for c in clips) == 1)
        wait_for("the editor is in front", editor.is_in_front)
        self.expect_no_new_clip(["one", "two", "three"])
        editor.to_front().shows("unchanged")


class HeldModifierTest(DesktopTest):
    """A modifier that the user still holds changes nothing about the paste."""

    def paste_holding(self, modifier, target):
        self.start_korvane([clip("one"), clip(LINE)])
        target.to_front()
        self.korvane.open()
        self.keys.press("Down")
        self.keys.hold(modifier)
        self.keys.press("Return")
        # Held until it is pasted; let go before the target is asked, whose keys it would change.
        wait_for("the target has taken something", target.has_changed)
        self.keys.let_go_all()
        target.shows(LINE)

    def test_shift_is_held_in_an_editor(self):
        self.paste_holding("Shift_L", Mousepad(self.desk))

    def test_control_is_held_in_an_editor(self):
        self.paste_holding("Control_L", Mousepad(self.desk))

    def test_super_is_held_in_an_editor(self):
        self.paste_holding("Super_L", Mousepad(self.desk))

    def test_shift_is_held_in_a_terminal(self):
        self.paste_holding("Shift_L", XTerm(self.desk))

    def test_super_is_held_in_a_terminal(self):
        self.paste_holding("Super_L", XTerm(self.desk))

    def test_control_is_held_in_a_terminal(self):
        self.paste_holding("Control_L", XTerm(self.desk))
