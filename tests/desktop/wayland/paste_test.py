"""Return pastes the chosen clip into the program that was in front."""

from support.history import clip
from support.waiting import wait_for
from support.wayland_case import WaylandTest
from support.wayland_editors import WaylandFeatherPad, WaylandMousepad, XMousepad, terminal

LINE = "Grüße, 漢字 und 😀 'quoted' \\ $HOME `x`"
LINES = LINE + "\n\n\tsecond line\n"


class PasteTest(WaylandTest):
    def paste_into(self, target, text):
        """Chooses the second of three clips and presses Return. It is not the newest: captured anew, it
        would not be taken for a repetition."""
        self.start_korvane([clip("first"), clip(text), clip("third")])
        target.to_front()
        self.korvane.open()
        self.keys.press("Down")
        self.keys.press("Return")

        wait_for("the target has taken something", target.has_changed)
        self.korvane.wait_until_closed()
        wait_for("the target is in front again", target.is_in_front)
        target.shows(text)
        self.assertEqual([record["useCount"] for record in self.history.clips()], [0, 1, 0])
        self.assertEqual(self.clipboard.get(), text.encode())
        self.expect_no_new_clip(["first", text, "third"])

    def test_it_pastes_into_a_gtk_editor(self):
        self.paste_into(WaylandMousepad(self.desk), LINES)

    def test_it_pastes_into_a_gtk_editor_that_is_an_x_client(self):
        self.paste_into(XMousepad(self.desk), LINES)

    def test_it_pastes_into_a_qt_editor(self):
        self.paste_into(WaylandFeatherPad(self.desk), LINES)

    def test_it_pastes_into_a_terminal(self):
        self.paste_into(terminal(self.desk), LINES)

    def test_what_was_typed_in_the_search_reaches_no_one_else(self):
        editor = WaylandMousepad(self.desk)
        self.start_korvane([clip("apple"), clip("banana")])
        self.korvane.open()
        self.keys.type("ban")
        wait_for("the search has found one", lambda: len(self.korvane.rows()) == 1)
        self.keys.press("Return")
        editor.shows("banana")

    def test_a_second_paste_goes_where_the_first_did(self):
        editor = WaylandMousepad(self.desk)
        self.start_korvane([clip("one "), clip("two ")])
        for moves, held in ((["Down", "Up"], "one "), (["Down"], "one two ")):
            self.korvane.open()
            for key in moves:
                self.keys.press(key)
            self.keys.press("Return")
            wait_for("the panel closes", lambda: not self.korvane.is_open())
            editor.shows(held)

    def test_a_click_on_a_row_copies_and_pastes_nothing(self):
        editor = WaylandMousepad(self.desk, "unchanged")
        self.start_korvane([clip("one"), clip("two"), clip("three")])
        self.korvane.open()
        self.keys.click(*self.korvane.middle_of_row(1))
        self.korvane.wait_until_closed()
        wait_for("the clip is on the clipboard", lambda: self.clipboard.get() == b"two")
        self.history.wait_for("its use is counted", lambda clips: [c["useCount"] for c in clips] == [0, 1, 0])
        wait_for("the editor is in front", editor.is_in_front)
        self.expect_no_new_clip(["one", "two", "three"])
        self.assertFalse(editor.has_changed())


class HeldModifierTest(WaylandTest):
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
        self.paste_holding("Shift_L", WaylandMousepad(self.desk))

    def test_shift_is_held_in_an_editor_that_is_an_x_client(self):
        self.paste_holding("Shift_L", XMousepad(self.desk))

    def test_shift_is_held_in_a_terminal(self):
        self.paste_holding("Shift_L", terminal(self.desk))
