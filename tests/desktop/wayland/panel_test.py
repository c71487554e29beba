"""The panel: what opens and closes it, and what its keys do."""

from support.history import clip
from support.waiting import wait_for
from support.wayland_case import WaylandTest
from support.wayland_editors import WaylandMousepad


class OpeningTest(WaylandTest):
    def expect_typing_in(self, editor):
        """The keyboard has gone back to it by itself."""
        wait_for("the editor is in front", editor.is_in_front)
        wait_for("typing arrives in the editor", lambda: self.keys.press("x") or editor.has_changed())

    def open_over_editor(self):
        editor = WaylandMousepad(self.desk)
        self.start_korvane([clip("one"), clip("two")])
        self.korvane.open()
        self.assertFalse(editor.is_in_front())
        return editor

    def test_a_second_start_with_toggle_opens_it_with_the_keyboard_and_closes_it_again(self):
        editor = self.open_over_editor()
        self.korvane.command("--toggle")
        self.korvane.wait_until_closed()
        self.expect_typing_in(editor)

    def test_escape_closes_it_and_gives_the_keyboard_back(self):
        editor = self.open_over_editor()
        self.korvane.close()
        self.expect_typing_in(editor)

    def test_a_click_outside_closes_it_and_gives_the_keyboard_back(self):
        editor = self.open_over_editor()
        self.keys.click(300, 600)
        self.korvane.wait_until_closed()
        self.expect_typing_in(editor)

    def test_a_click_inside_leaves_it_open(self):
        self.open_over_editor()
        x, y, width, height = self.korvane.part("list", "Clips").extents()
        self.keys.click(x + width // 2, y + height + 20)
        self.keys.press("Down")
        wait_for("the panel still hears keys", lambda: self.clipboard.get() == b"two")
        self.assertTrue(self.korvane.has_keyboard())

    def test_it_opens_twenty_times_in_a_row(self):
        editor = WaylandMousepad(self.desk)
        self.start_korvane([clip("one")])
        for _ in range(20):
            self.korvane.open()
            self.korvane.close()
        self.expect_typing_in(editor)


class KeysTest(WaylandTest):
    def test_arrows_put_clips_on_the_clipboard(self):
        self.start_korvane([clip("one"), clip("two"), clip("three")])
        self.korvane.open()
        for key, text in (("Down", b"two"), ("Down", b"three"), ("Up", b"two"), ("Up", b"one")):
            self.keys.press(key)
            wait_for(f"{text} is on the clipboard", lambda text=text: self.clipboard.get() == text)
        self.assertEqual(self.history.texts(), ["one", "two", "three"])

    def test_typing_searches(self):
        self.start_korvane([clip("apple"), clip("banana"), clip("cherry")])
        self.korvane.open()
        self.keys.type("rry")
        wait_for(lambda: f"one row; there are {self.korvane.rows()}", lambda: [row.split(",")[0] for row in self.korvane.rows()] == ["cherry"])
        for _ in range(3):
            self.keys.press("BackSpace")
        wait_for("all rows", lambda: len(self.korvane.rows()) == 3)

    def test_space_shows_the_whole_text_beside_it_and_hides_it_again(self):
        self.start_korvane([clip("one\n" + "line\n" * 30 + "the last")])
        self.korvane.open()
        self.keys.press("Down")
        self.keys.press("space")
        wait_for("the preview shows the text", lambda: any("the last" in text for text in self.korvane.shown_texts()))
        self.keys.press("space")
        wait_for("the preview is gone", lambda: not any("the last" in text for text in self.korvane.shown_texts()))
        self.assertTrue(self.korvane.has_keyboard())

    def test_with_9999_clips_it_opens_and_pastes_the_last(self):
        editor = WaylandMousepad(self.desk)
        self.start_korvane([clip(f"clip {number}") for number in range(9999)], maxClips=9999)
        self.korvane.open()
        self.keys.type("9998")
        wait_for("the last is found", lambda: len(self.korvane.rows()) == 1)
        self.keys.press("Down")
        wait_for("the last is on the clipboard", lambda: self.clipboard.get() == b"clip 9998")
        self.keys.press("Return")
        editor.shows("clip 9998")
