"""The preview beside the panel: what opens and closes it, and whose the keyboard is meanwhile."""

from support.editors import Mousepad
from support.preview import TITLE, PreviewTest
from support.waiting import wait_for


class PreviewKeysTest(PreviewTest):
    def setUp(self):
        super().setUp()
        self.editor = Mousepad(self.desk)
        self.start("one", "two", "three")
        self.korvane.open()

    def expect_on_clipboard(self, text):
        wait_for(lambda: f"{text!r} on the clipboard; there is {self.clipboard.get()!r}",
                 lambda: self.clipboard.get() == text.encode())

    def test_space_opens_it_and_space_again_closes_it(self):
        for _ in range(3):
            self.show()
            self.keys.press("space")
            self.wait_until_hidden()
        self.assertTrue(self.korvane.has_keyboard())

    def test_the_clips_text_is_painted_in_it(self):
        box = self.show()
        self.wait_until_painted(box)

    def test_the_arrows_close_it_and_move_the_selection(self):
        self.show()
        self.keys.press("Down")
        self.wait_until_hidden()
        self.expect_on_clipboard("two")
        self.show()
        self.keys.press("Up")
        self.wait_until_hidden()
        self.expect_on_clipboard("one")

    def test_tab_closes_it(self):
        self.show()
        self.keys.press("Tab")
        self.wait_until_hidden()
        self.assertTrue(self.korvane.is_open())

    def test_escape_closes_it_with_the_panel(self):
        self.show()
        self.keys.press("Escape")
        self.wait_until_hidden()
        self.korvane.wait_until_closed()
        wait_for("the editor is in front", self.editor.is_in_front)

    def test_escape_that_clears_the_search_leaves_it_open(self):
        self.keys.type("tw")
        self.show()
        self.keys.press("Escape")
        self.keys.press("Control_L", "p")
        self.history.wait_for("the key was heard", lambda clips: any(c["isPinned"] for c in clips))
        self.assertIsNotNone(self.preview())
        self.assertTrue(self.korvane.is_open())

    def test_a_search_that_finds_its_clip_leaves_it_open(self):
        box = self.show()
        self.keys.type("on")
        self.expect_pinned("one")
        self.assertEqual(self.preview(), box)

    def test_a_search_that_hides_its_clip_closes_it_and_goes_on(self):
        self.show()
        self.keys.type("thr")
        self.wait_until_hidden()
        self.expect_pinned("three")

    def expect_pinned(self, text):
        """The selected clip is pinned by its key, and is this one."""
        self.keys.press("Control_L", "p")
        self.history.wait_for(f"{text!r} is pinned",
                              lambda clips: [c["text"] for c in clips if c["isPinned"]] == [text])

    def test_it_never_has_the_keyboard_and_is_never_the_active_window(self):
        active = self.screen.active()
        box = self.show()
        self.assertTrue(self.korvane.has_keyboard())
        self.keys.point(*box.middle)
        self.keys.type("tw")
        self.keys.press("Down")
        self.expect_on_clipboard("two")
        self.assertTrue(self.korvane.has_keyboard())
        self.assertEqual(self.screen.active(), active)

    def test_a_click_in_it_does_nothing(self):
        box = self.show()
        for button in (1, 3, 2, 4, 5):
            self.keys.click(*box.middle, button=button)
        self.keys.type("on")
        self.expect_pinned("one")
        self.assertEqual(self.preview(), box)
        self.assertTrue(self.korvane.has_keyboard())

    def test_a_click_elsewhere_closes_both(self):
        self.show()
        self.keys.click(5, 890)
        self.wait_until_hidden()
        self.korvane.wait_until_closed()

    def test_return_closes_it_and_pastes(self):
        self.show()
        self.keys.press("Return")
        self.wait_until_hidden()
        self.korvane.wait_until_closed()
        self.editor.shows("one")

    def test_quick_look_in_a_rows_menu_opens_it(self):
        self.keys.press("Down")
        self.expect_on_clipboard("two")
        before = self.shown()
        self.keys.press("Menu")
        menu = wait_for("the menu opens", lambda: self.shown() - before)
        # From the menu's end: "Delete", then "Quick Look".
        self.keys.press("Up")
        self.keys.press("Up")
        self.keys.press("Return")
        wait_for("the menu closes", lambda: not menu & self.shown())
        self.wait_until_shown()
        self.keys.press("space")
        self.wait_until_hidden()

    def shown(self):
        """The numbers of the windows on the screen."""
        return {window.id for window in self.screen.below(self.screen.root, 1) if self.screen.is_viewable(window)}

    def test_it_is_stacked_above_the_panel_also_when_the_panel_is_raised(self):
        self.show()
        preview = self.screen.find("korvane", title=TITLE, depth=1)[0]

        def order():
            numbers = [window.id for window in self.screen.below(self.screen.root, 1)]
            return numbers.index(preview.id) > numbers.index(self.korvane.panel().id)

        self.assertTrue(order())
        self.korvane.command("--show")
        wait_for("the panel is raised, and the preview again above it", order)
        self.assertTrue(self.korvane.has_keyboard())

    def test_it_stays_hidden_at_the_next_opening(self):
        self.show()
        self.korvane.close()
        self.korvane.open()
        self.assertIsNone(self.preview())
        self.show()
