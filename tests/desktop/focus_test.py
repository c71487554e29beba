"""Whose the keyboard is while the panel is open."""

from Xlib import X

from support.case import DesktopTest
from support.editors import Mousepad
from support.history import clip
from support.waiting import wait_for


class FocusTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.behind, self.front = Mousepad(self.desk, name="behind"), Mousepad(self.desk, name="front")
        self.start_korvane([clip("one"), clip("two")])
        self.korvane.open()

    def expect_keys_in_the_panel(self):
        self.keys.type("tw")
        self.keys.press_until("the clip that was found is chosen", ["Down"], lambda: self.clipboard.get() == b"two")
        self.assertTrue(self.korvane.has_keyboard())

    def test_a_pointer_that_crosses_other_windows_takes_it_from_nobody(self):
        for window in (self.behind, self.front, self.behind):
            box = self.screen.box(window.window)
            self.keys.point(box.x + 40, box.bottom - 40)
        self.expect_keys_in_the_panel()

    def test_a_program_that_takes_it_for_itself_does_not_keep_it(self):
        self.behind.window.set_input_focus(X.RevertToParent, X.CurrentTime)
        self.screen.display.sync()
        self.expect_keys_in_the_panel()

    def test_going_to_another_window_by_a_key_closes_the_panel(self):
        # Out of the way of a focus that follows the pointer.
        self.keys.point(self.screen.box(self.behind.window).x + 40, self.screen.box(self.behind.window).bottom - 40)
        self.keys.press_until("the panel is closed", ["Alt_L", "Tab"], lambda: not self.korvane.is_open())
        wait_for("an editor has the keyboard",
                 lambda: any(self.screen.has_keyboard(editor.window) for editor in (self.behind, self.front)))

    def test_when_the_window_behind_the_panel_has_ended_the_next_one_gets_it(self):
        self.front.end()
        wait_for("the manager has gone on to the next", lambda: self.screen.active() != self.front.window.id)
        self.keys.press("Escape")
        self.korvane.wait_until_closed()
        wait_for("the next window has the keyboard", lambda: self.screen.has_keyboard(self.behind.window))
