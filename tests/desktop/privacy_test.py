"""Applications whose copies are not kept, chosen in the settings: it holds at once."""

from support.editors import FeatherPad, Mousepad
from support.settings import SettingsTest
from support.waiting import wait_for

CHOOSER = "Choose an app"
OTHER_FILES = "Choose an app whose copies Korvane should ignore."
COULD_NOT_READ = "Could not read app bundle"
MOUSEPAD = "org.xfce.mousepad"


class PrivacyTest(SettingsTest):
    def start(self, **preferences):
        self.start_korvane(**preferences)
        self.open_alone("p")

    def names(self):
        found = self.window.find("list", "Ignored apps")
        return found.names() if found is not None and "showing" in found.states() else []

    def expect_names(self, *names):
        wait_for(lambda: f"the list holds {names}; it holds {self.names()}", lambda: self.names() == list(names))

    def row(self, name):
        """The row's element, once it is there."""
        return wait_for(f"the row {name!r}", lambda: next(
            (row for row in self.window.find("list", "Ignored apps").children() if row.name == name), None))

    def select(self, name):
        """Selects a row, by the mouse."""
        x, y, width, height = self.row(name).extents()
        self.keys.click(x + width // 2, y + height // 2)
        wait_for("the row is selected", lambda: "selected" in self.row(name).states())

    def press_button(self, name):
        self.go_to("push button", name)
        self.keys.press("space")

    def chooser(self):
        found = self.screen.find("korvane", title=CHOOSER)
        return found[0] if found else None

    def add(self, typed):
        self.press_button("Add app from /Applications")
        wait_for("the dialog has the keyboard",
                 lambda: self.chooser() is not None and self.screen.has_keyboard(self.chooser()))
        self.keys.type(typed)
        self.keys.press("Return")
        wait_for("the dialog is gone", lambda: self.chooser() is None)

    def test_an_application_that_is_added_is_ignored_at_once_until_it_is_removed(self):
        editor = Mousepad(self.desk, "a secret of mine")
        other = FeatherPad(self.desk, "not a secret")
        self.start()
        self.add("mousepad")
        self.expect_names("Mousepad")
        self.wait_for_preference("ignoredBundleIDs", [MOUSEPAD])

        editor.to_front()
        editor.copy_all()
        other.to_front()
        other.copy_all()
        self.history.wait_for_texts(["not a secret"])

        self.screen.activate(self.settings())
        self.wait_until_shown()
        self.select("Mousepad")
        self.press_button("Remove selected app")
        self.expect_names()
        self.wait_for_preference("ignoredBundleIDs", [])
        editor.to_front()
        editor.copy_all()
        self.history.wait_for_texts(["a secret of mine", "not a secret"])

    def test_an_entry_that_is_no_application_is_told_of(self):
        self.start()
        entry = self.desk.folder / "link.desktop"
        entry.write_text("[Desktop Entry]\nType=Link\nName=A link\nURL=https://korvane.example/\n")
        self.press_button("Add app from /Applications")
        wait_for("the dialog has the keyboard",
                 lambda: self.chooser() is not None and self.screen.has_keyboard(self.chooser()))

        program = self.reader.program(self.korvane.process.pid)
        other = wait_for("the way to other files", lambda: next(
            (each for each in program.descendants() if each.name == "Other…" and each.actions()), None))
        other.act("Press")
        wait_for("the file dialog has the keyboard", lambda: any(
            self.screen.has_keyboard(window) for window in self.screen.find("korvane", title=OTHER_FILES)))
        self.keys.press("Control_L", "a")
        self.keys.type(str(entry))
        self.keys.press("Return")

        def is_told():
            found = self.screen.find("korvane", title=COULD_NOT_READ)
            return bool(found) and self.screen.has_keyboard(found[0])

        wait_for("the alert has the keyboard", is_told)
        self.keys.press("Return")
        wait_for("the alert is gone", lambda: not self.screen.find("korvane", title=COULD_NOT_READ))
        self.expect_names()

    def test_the_two_buttons_are_pressed_by_alt_and_their_letters(self):
        self.start(ignoredBundleIDs=[MOUSEPAD])
        self.select("Mousepad")
        self.keys.press("Alt_L", "r")
        self.wait_for_preference("ignoredBundleIDs", [])

        self.keys.press("Alt_L", "f")
        wait_for("the dialog has the keyboard",
                 lambda: self.chooser() is not None and self.screen.has_keyboard(self.chooser()))

    def test_what_is_ignored_is_still_so_after_a_restart(self):
        editor = Mousepad(self.desk, "a secret of mine")
        self.start()
        self.add("mousepad")
        self.expect_names("Mousepad")

        self.korvane.quit()
        self.korvane.start()
        editor.to_front()
        editor.copy_all()

        FeatherPad(self.desk)
        self.expect_no_new_clip([])
        self.open_alone("p")
        self.expect_names("Mousepad")

    def test_copies_are_captured_while_the_dialog_is_open(self):
        self.start()
        self.press_button("Add app from /Applications")
        wait_for("the dialog is open", lambda: self.chooser() is not None)

        self.clipboard.set("copied meanwhile")

        self.history.wait_for_texts(["copied meanwhile"])
        self.assertIsNotNone(self.chooser())

    def test_an_identifier_that_nothing_has_is_unknown_and_can_be_removed(self):
        self.start(ignoredBundleIDs=["org.example.Gone"])
        self.expect_names("Unknown app")

        self.select("Unknown app")
        self.press_button("Remove selected app")

        self.expect_names()
        self.wait_for_preference("ignoredBundleIDs", [])

    def test_a_change_of_the_file_shows_in_the_list(self):
        self.start()

        self.korvane.set_preferences(ignoredBundleIDs=[MOUSEPAD])

        self.expect_names("Mousepad")
