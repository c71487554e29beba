"""The global shortcut, recorded from the keyboard: what is pressed then acts nowhere else."""

from Xlib import X, display

from support.editors import Mousepad
from support.history import clip
from support.settings import SettingsTest
from support.waiting import wait_for

FIELD = "Open Korvane:"
RECORDING = "Recording… (Esc to cancel)"
ALERT = "Shortcut unavailable"


class Holder:
    """Another program, which holds a chord for the whole desktop."""

    def __init__(self, desk, key, modifiers):
        self.display = display.Display()
        code = desk.keys.code(key)[0]
        self.display.screen().root.grab_key(code, modifiers, False, X.GrabModeAsync, X.GrabModeAsync)
        self.display.sync()
        desk.programs.append(self)

    def end(self):
        self.display.close()


class ShortcutsTest(SettingsTest):
    def start(self, **preferences):
        self.start_korvane([clip("one")], **preferences)
        self.open_page()

    def open_page(self):
        self.open_alone("s")
        self.field = wait_for("the recorder is shown", self.find_field)

    def find_field(self):
        """The field's element, by what it is for: its name is the shortcut."""
        return next((element for element in self.window.descendants()
                     if element.role == "push button" and element.description == FIELD
                     and "showing" in element.states()), None)

    def expect_field(self, text):
        wait_for(lambda: f"the field shows {text!r}; it shows {self.field.name!r}", lambda: self.field.name == text)

    def record(self):
        """Begins to record, by the mouse."""
        x, y, width, height = self.field.extents()
        self.keys.click(x + width // 2, y + height // 2)
        self.expect_field(RECORDING)

    def expect_stored(self, key_code, mask, label):
        self.wait_for_preference("hotkeyKeyLabel", label)
        stored = self.korvane.preferences()
        self.assertEqual((stored["hotkeyKeyCode"], stored["hotkeyModifiers"]), (key_code, mask))

    def expect_opens(self, *chord):
        self.keys.press(*chord)
        self.korvane.wait_until_open()
        self.keys.press(*chord)
        self.korvane.wait_until_closed()

    def alert(self):
        found = self.screen.find("korvane", title=ALERT)
        return found[0] if found else None

    def test_a_recorded_shortcut_opens_the_panel_at_once_and_after_a_restart(self):
        self.start()
        self.expect_field("⌃Space")

        self.record()
        self.keys.press("Control_L", "Alt_L", "k")

        self.expect_field("⌃⌥K")
        self.expect_stored(40, 4096 + 2048, "K")
        self.expect_opens("Control_L", "Alt_L", "k")
        self.korvane.quit()
        self.korvane.start()
        self.expect_opens("Control_L", "Alt_L", "k")

    def test_the_shortcut_of_now_is_recorded_and_does_not_open_the_panel(self):
        self.start()

        self.record()
        self.keys.press("Control_L", "space")

        self.expect_field("⌃Space")
        self.assertFalse(self.korvane.is_open())
        self.expect_opens("Control_L", "space")

    def test_a_key_alone_and_tab_and_escape_reach_no_control_of_the_window(self):
        self.start()

        self.record()
        for key in ("a", "Tab", "space"):
            self.keys.press(key)
        self.expect_field(RECORDING)
        self.keys.press("Control_L", "Escape")
        self.expect_field("⌃Space")

        self.assertIsNotNone(self.settings())
        self.assertEqual(self.korvane.preferences().get("hotkeyKeyCode"), None)
        self.keys.press("Escape")
        self.wait_until_hidden()

    def test_super_and_a_key_of_another_layout_are_recorded(self):
        self.addCleanup(self.keys.lay_out, "us")
        self.keys.lay_out("de")
        self.start()

        self.record()
        self.keys.press("Super_L", "udiaeresis")

        self.expect_field("⌘Ü")
        self.expect_stored(33, 256, "Ü")
        self.expect_opens("Super_L", "udiaeresis")

    def test_a_chord_that_another_program_holds_is_told_and_the_old_one_still_works(self):
        self.start()
        Holder(self.desk, "j", X.ControlMask | X.Mod1Mask)

        self.record()
        self.keys.press("Control_L", "Alt_L", "j")

        wait_for("the alert is shown and has the keyboard",
                 lambda: self.alert() is not None and self.screen.has_keyboard(self.alert()))
        # The program goes on: a copy is captured, and the shortcut opens the panel.
        self.clipboard.set("copied meanwhile")
        self.history.wait_for_texts(["copied meanwhile", "one"])
        self.expect_opens("Control_L", "space")
        self.screen.activate(self.alert())
        self.keys.press("Return")
        wait_for("the alert is gone", lambda: self.alert() is None)
        self.expect_field("⌃Space")
        self.assertNotIn("hotkeyKeyCode", self.korvane.preferences())

    def test_a_binding_of_the_window_manager_does_not_act_while_recording_and_cannot_be_had(self):
        binding = {"openbox": ("Alt_L", "F4"), "i3": ("Alt_L", "Tab")}[self.desk.kind]
        self.start()

        self.record()
        self.keys.press(*binding)

        wait_for("the alert is shown", lambda: self.alert() is not None)
        self.assertIsNotNone(self.settings())
        self.assertNotIn("hotkeyKeyCode", self.korvane.preferences())

    def test_another_window_that_the_user_goes_to_has_the_keyboard(self):
        self.start()
        self.record()
        self.korvane.command("--show")
        self.korvane.wait_until_open()

        self.keys.type("on")
        self.keys.press("Escape")
        self.keys.press("Escape")

        self.korvane.wait_until_closed()

    def test_reset_takes_control_space_again(self):
        self.start()
        self.record()
        self.keys.press("Control_L", "Alt_L", "k")
        self.expect_field("⌃⌥K")

        self.go_to("push button", "Reset")
        self.keys.press("space")

        self.expect_field("⌃Space")
        self.expect_stored(49, 4096, "Space")
        self.expect_opens("Control_L", "space")

    def test_the_field_and_its_button_are_pressed_by_alt_and_their_letters(self):
        self.start()

        self.keys.press("Alt_L", "o")
        self.expect_field(RECORDING)
        self.keys.press("Control_L", "Alt_L", "k")
        self.expect_field("⌃⌥K")
        self.expect_opens("Control_L", "Alt_L", "k")
        self.screen.activate(self.settings())
        self.keys.press("Alt_L", "r")

        self.expect_field("⌃Space")
        self.expect_stored(49, 4096, "Space")

    def test_a_letter_whose_capitals_are_two_works_like_any_other(self):
        self.addCleanup(self.keys.lay_out, "us")
        self.keys.lay_out("de")
        self.start()

        self.record()
        self.keys.press("Control_L", "ssharp")

        self.expect_field("⌃SS")
        self.expect_stored(27, 4096, "SS")
        self.expect_opens("Control_L", "ssharp")

    def test_a_taken_shortcut_that_is_written_into_the_file_is_told_above_the_editor(self):
        self.start_korvane()
        Holder(self.desk, "j", X.ControlMask | X.Mod1Mask)
        editor = Mousepad(self.desk, "the preferences are written here").to_front()
        self.keys.type("more")

        self.korvane.set_preferences(hotkeyKeyCode=38, hotkeyModifiers=6144, hotkeyKeyLabel="J")

        wait_for("the alert is shown", lambda: self.alert() is not None)
        editor.to_front()
        self.screen.wait_for_manager()
        self.assertTrue(self.screen.is_above(self.alert(), editor.window))

    def test_direct_select_holds_in_the_panel_once_its_switch_has_been_touched(self):
        self.start()
        switch = self.go_to("check box", "Enable ⌘1–⌘0 direct select")
        self.assertIn("checked", switch.states())
        self.korvane.open()
        self.keys.press("Control_L", "1")
        self.keys.press("Escape")
        self.korvane.wait_until_closed()
        self.assertNotEqual(self.clipboard.get(), b"one")

        self.screen.activate(self.settings())
        self.go_to("check box", "Enable ⌘1–⌘0 direct select")
        for stored in (False, True):
            self.keys.press("space")
            self.wait_for_preference("enableDirectPaste", stored)
        self.korvane.open()
        self.keys.press("Control_L", "1")

        self.korvane.wait_until_closed()
        wait_for("the clip is on the clipboard", lambda: self.clipboard.get() == b"one")

        self.clipboard.set("another")
        self.history.wait_for_texts(["another", "one"])
        self.korvane.quit()
        self.korvane.start()
        self.korvane.open()
        self.keys.press("Control_L", "2")
        self.korvane.wait_until_closed()
        wait_for("the clip is on the clipboard", lambda: self.clipboard.get() == b"one")

    def test_the_tab_key_changes_the_tab_of_the_panel_as_its_switch_says(self):
        self.start_korvane([clip("plain"), clip("kept", pinned=True)])
        self.open_page()

        self.turn("Enable Tab / ⇧Tab to cycle filter tabs", False)
        self.wait_for_preference("enableTabCycling", False)
        self.keys.press("Escape")
        self.wait_until_hidden()

        self.expect_tab_key_leads_to_a_control()
        self.korvane.quit()
        self.korvane.start()
        self.expect_tab_key_leads_to_a_control()
        self.open_page()
        self.turn("Enable Tab / ⇧Tab to cycle filter tabs", True)
        self.wait_for_preference("enableTabCycling", True)
        self.keys.press("Escape")
        self.wait_until_hidden()

        self.korvane.open()
        self.keys.press("Tab")
        self.keys.press_until("the pinned clip is chosen", ["Up"], lambda: self.clipboard.get() == b"kept")

    def expect_tab_key_leads_to_a_control(self):
        """In the panel the Tab key goes on to the next control, as everywhere: to the row of tabs."""
        self.korvane.open()
        program = wait_for("the program shows itself", lambda: self.reader.program(self.korvane.process.pid))
        self.keys.press("Tab")
        wait_for("the row of tabs has the keyboard", lambda: any(
            each.role == "page tab" and each.name == "All" and "focused" in each.states() for each in program.descendants()))
        self.korvane.command("--hide")
        self.korvane.wait_until_closed()

    def test_a_change_of_the_file_shows_in_the_field(self):
        self.start()

        self.korvane.set_preferences(hotkeyKeyCode=40, hotkeyModifiers=6144, hotkeyKeyLabel="K")

        self.expect_field("⌃⌥K")
        self.expect_opens("Control_L", "Alt_L", "k")
