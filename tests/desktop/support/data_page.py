"""The settings' Data page, and what it asks."""

from support.history import clip
from support.panel_parts import GEAR, PanelParts
from support.settings import SettingsTest
from support.waiting import NotObserved, wait_for


def captured(text, day, **fields):
    return clip(text, createdAt=f"2024-05-{day:02}T12:00:00Z", **fields)


class DataPageTest(SettingsTest):
    def start(self, *clips, **preferences):
        """Korvane with its settings open."""
        self.temporary = self.desk.folder / "temporary"
        self.temporary.mkdir()
        self.reader.listen()
        self.start_korvane(list(clips), environment={"TMPDIR": str(self.temporary)}, **preferences)
        parts = PanelParts(self.screen, self.korvane.open())
        self.keys.click(*parts.button(GEAR))
        self.wait_until_shown()

    def start_at_data(self, *clips, **preferences):
        self.start(*clips, **preferences)
        for _ in range(3):
            self.keys.press("Control_L", "Tab")
        wait_for("the Data page", lambda: self.named("Statistics"))

    def named(self, name, role=None):
        """The element of that name that can be seen; None where there is none."""
        self.reader.turn()
        program = self.reader.program(self.korvane.process.pid)
        return next((each for each in program.descendants()
                     if each.name == name and role in (None, each.role) and "showing" in each.states()), None)

    def press(self, name):
        """Presses a button, of the page or of a question, when it is there."""
        wait_for(f"the button {name!r}", lambda: self.named(name, "button") or self.named(name, "push button")).act("Press")

    def has_keyboard(self, title):
        found = self.screen.find("korvane", title=title)
        return bool(found) and self.screen.has_keyboard(found[0])

    def answer_dialog(self, title, path):
        """Writes a path into a file dialog of the toolkit's."""
        wait_for(f"the dialog {title!r} has the keyboard", lambda: self.has_keyboard(title))
        self.keys.press("Control_L", "a")
        self.keys.type(str(path))
        self.keys.press("Return")
        wait_for("the dialog is gone", lambda: not self.screen.find("korvane", title=title))

    def go_back_to_panel(self):
        """Clicks its search. A click that comes while the settings are only just opening may lose the keyboard to
        them again: then once more."""
        box = self.korvane.box()

        def gone():
            self.keys.click(box.x + 100, box.y + 60)
            try:
                return wait_for("the panel has the keyboard", self.korvane.has_keyboard, 0.3)
            except NotObserved:
                return False

        wait_for("a click gives the panel the keyboard", gone)
