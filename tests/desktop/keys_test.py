"""What the keys do while the panel is open."""

from support.case import DesktopTest
from support.editors import Mousepad
from support.history import clip
from support.waiting import NotObserved, wait_for

SEARCH_MIDDLE = 61  # points below the panel's top edge


class KeysTest(DesktopTest):
    """Which clip is chosen is seen by what stands on the clipboard, or in the editor after Return."""

    def start(self, *clips, **preferences):
        self.editor = Mousepad(self.desk)
        self.start_korvane([clip(text) if isinstance(text, str) else text for text in clips], **preferences)
        self.korvane.open()

    def stop(self):
        self.korvane.quit()
        self.editor.end()

    def expect_on_clipboard(self, text):
        wait_for(lambda: f"{text!r} on the clipboard; there is {self.clipboard.get()!r}",
                 lambda: self.clipboard.get() == text.encode())

    def expect_pasted(self, text):
        self.korvane.wait_until_closed()
        self.editor.shows(text)

    def test_typing_filters_the_list(self):
        self.start("apple", "banana", "cherry", "bandana")
        self.keys.type("ban")
        self.keys.press("Down")
        self.expect_on_clipboard("bandana")
        self.keys.press("Up")
        self.expect_on_clipboard("banana")

    def test_backspace_takes_back_a_letter_of_the_search(self):
        self.start("apple", "banana")
        self.keys.type("bx")
        self.keys.press("BackSpace")
        self.keys.press("Up")
        self.expect_on_clipboard("banana")

    def test_the_middle_button_inserts_nothing_into_the_search(self):
        self.start("apple", "banana")
        self.clipboard.set("only selected", "primary")
        box = self.korvane.wait_until_open()
        self.keys.click(box.x + 120, box.y + SEARCH_MIDDLE, button=2)
        self.keys.type("ban")
        self.keys.press("Return")
        self.expect_pasted("banana")

    def test_the_arrows_put_each_clip_that_they_pass_on_the_clipboard(self):
        self.start("one", "two", "three")
        for key, text in (("Down", "two"), ("Down", "three"), ("Up", "two"), ("Up", "one")):
            self.keys.press(key)
            self.expect_on_clipboard(text)
        self.keys.press("Escape")
        self.expect_no_new_clip(["one", "two", "three"])

    def test_the_ends_of_the_list_hold_but_write_again(self):
        self.start("one", "two")
        self.keys.press("Up")
        self.expect_on_clipboard("one")
        self.clipboard.set("foreign")
        self.history.wait_for_texts(["foreign", "one", "two"])
        # The selection is still the clip "one", now the second.
        self.keys.press("Down")
        self.expect_on_clipboard("two")
        before = self.clipboard.count()
        self.keys.press("Down")
        wait_for("the clip is written again", lambda: self.clipboard.count() > before)
        self.expect_on_clipboard("two")

    def test_a_blank_cannot_be_typed_into_the_search(self):
        self.start("apple", "ban ana", "banana")
        self.keys.type("ban ana")
        self.keys.press("Return")
        self.expect_pasted("banana")

    def test_a_dead_key_and_a_letter_are_one_letter_of_the_search(self):
        self.keys.lay_out("us", "intl")
        self.addCleanup(self.keys.lay_out, "us")
        self.start("cafe", "café")
        # In two steps, as by hand: in a burst the toolkit lets a composed letter overtake those that wait.
        self.keys.type("caf")
        self.keys.press("Up")
        self.expect_on_clipboard("cafe")
        for key in ("dead_acute", "e", "Up"):
            self.keys.press(key)
        self.expect_on_clipboard("café")

    def test_a_dead_key_and_a_letter_are_one_letter_of_a_name(self):
        self.keys.lay_out("us", "intl")
        self.addCleanup(self.keys.lay_out, "us")
        self.start("a drink")
        self.keys.press("Shift_L", "F10")
        wait_for("the menu of the row", lambda: len(self.korvane.windows()) == 2)
        self.keys.press("Home")
        for _ in range(3):
            self.keys.press("Down")  # to "Rename..."
        self.keys.press("Return")
        wait_for("the menu is closed", lambda: len(self.korvane.windows()) == 1)
        for key in ("dead_acute", "e", "Return"):
            self.keys.press(key)
        self.history.wait_for("the clip has its name", lambda clips: clips[0].get("customName") == "é")

    def test_escape_clears_the_search_first_and_closes_the_panel_then(self):
        self.start("apple", "banana")
        self.keys.type("ban")
        self.keys.press("Escape")
        self.keys.press("Down")
        self.expect_on_clipboard("banana")
        self.assertTrue(self.korvane.is_open())
        self.keys.press("Escape")
        self.korvane.wait_until_closed()
        wait_for("the editor is in front", self.editor.is_in_front)

    def test_command_p_pins_and_unpins(self):
        for command in ("Control_L", "Super_L"):
            with self.subTest(command):
                self.start("one", "two")
                self.keys.press("Down")
                self.keys.press(command, "p")
                self.history.wait_for("the second is pinned", lambda clips: [c["isPinned"] for c in clips] == [False, True])
                self.keys.press(command, "p")
                self.history.wait_for("none is pinned", lambda clips: not any(c["isPinned"] for c in clips))
                self.stop()

    def test_command_delete_deletes_and_selects_the_clip_that_followed(self):
        self.start("one", "two", "three")
        self.keys.press("Down")
        self.keys.press("Control_L", "BackSpace")
        self.history.wait_for_texts(["one", "three"])
        self.keys.press("Super_L", "BackSpace")
        self.history.wait_for_texts(["one"])
        self.keys.press("Control_L", "BackSpace")
        self.history.wait_for_texts([])
        self.keys.press("Control_L", "BackSpace")
        self.keys.press("Escape")
        self.korvane.wait_until_closed()

    def test_delete_alone_deletes_no_clip(self):
        self.start("one")
        self.keys.press("BackSpace")
        self.keys.press("Escape")
        self.expect_no_new_clip(["one"])

    def test_tab_goes_to_the_next_tab_and_shift_tab_back(self):
        self.start("plain", clip("kept", pinned=True), "other")
        self.keys.press("Tab")
        self.keys.press_until("the pinned clip is chosen", ["Up"], lambda: self.clipboard.get() == b"kept")
        self.keys.press("Shift_L", "Tab")
        self.keys.press_until("the first clip of all is chosen", ["Up"], lambda: self.clipboard.get() == b"plain")

    def test_three_quick_tabs_end_on_the_fourth_tab(self):
        self.start("plain", clip("https://example.org", "url"), clip("kept", pinned=True))
        for _ in range(3):
            self.keys.press("Tab")
        self.keys.press_until("the address is chosen", ["Up"], lambda: self.clipboard.get() == b"https://example.org")

    def test_shift_tab_from_the_first_tab_goes_to_the_last(self):
        large = self.desk.folder / "korvane-home/data/com.VNT.Korvane/overflow"
        large.mkdir(parents=True, mode=0o700)
        record = clip("the beginning", isOverflow=True, overflowByteCount=9)
        record["overflowPath"] = str(large / f"{record['id']}.txt")
        (large / f"{record['id']}.txt").write_text("the whole")
        self.start("plain", record)
        self.keys.press("Shift_L", "Tab")
        # An arrow puts no large clip on the clipboard: once "Up" writes nothing, the list has changed.
        wait_for("the list holds large clips alone", self.up_writes_nothing)
        self.keys.press("Return")
        self.expect_pasted("the whole")

    def up_writes_nothing(self):
        before = self.clipboard.count()
        self.keys.press("Up")
        try:
            return not wait_for("a clip is written", lambda: self.clipboard.count() > before, 0.5)
        except NotObserved:
            return True

    def test_tab_does_nothing_to_the_list_when_cycling_is_off(self):
        self.start("plain", clip("kept", pinned=True), enableTabCycling=False)
        self.keys.press("Tab")
        self.keys.press("Up")
        self.expect_on_clipboard("plain")

    def test_command_and_a_digit_paste_the_clip_at_that_place(self):
        for command, digit, text in (("Control_L", "1", "clip 1"), ("Super_L", "3", "clip 3"), ("Control_L", "9", "clip 9"),
                                     ("Super_L", "0", "clip 10")):
            with self.subTest(f"{command} {digit}"):
                self.start(*[f"clip {number}" for number in range(1, 12)], enableDirectPaste=True)
                self.keys.press(command, digit)
                self.expect_pasted(text)
                self.stop()

    def test_command_and_a_digit_of_the_number_pad_paste_as_well(self):
        self.start("clip 1", "clip 2", "clip 3", enableDirectPaste=True)
        self.keys.press("Num_Lock")
        self.addCleanup(self.keys.press, "Num_Lock")
        # The key that says 2 while the lock is on.
        self.keys.press("Control_L", "KP_Down")
        self.expect_pasted("clip 2")

    def test_command_and_a_digit_past_the_end_do_nothing(self):
        self.start("one", "two", enableDirectPaste=True)
        self.keys.press("Control_L", "3")
        self.keys.press("Down")
        self.expect_on_clipboard("two")
        self.assertTrue(self.korvane.is_open())

    def test_command_and_a_digit_do_nothing_until_the_preference_is_written(self):
        self.start("one", "two")
        self.keys.press("Control_L", "2")
        self.keys.press("Down")
        self.expect_on_clipboard("two")
        self.assertTrue(self.korvane.is_open())

    def test_space_is_taken_and_the_panel_stays_open(self):
        self.start("one", "two")
        self.keys.press("space")
        self.keys.press("space")
        self.keys.press("Down")
        self.expect_on_clipboard("two")
        self.assertTrue(self.korvane.is_open())

    def test_return_with_nothing_to_choose_does_nothing(self):
        self.start("one")
        self.keys.type("zzz")
        self.keys.press("Return")
        self.keys.press("Escape")
        self.keys.press("Up")
        self.expect_on_clipboard("one")
        self.assertTrue(self.korvane.is_open())

    def test_each_opening_clears_the_search_and_selects_the_clip_that_is_on_the_clipboard(self):
        self.start("one", "two", "three")
        self.keys.type("thr")
        self.keys.press("Up")
        self.expect_on_clipboard("three")
        self.keys.press("Control_L", "space")
        self.korvane.wait_until_closed()

        self.korvane.open()

        self.keys.press("Up")
        self.expect_on_clipboard("two")
