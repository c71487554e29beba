"""Text editors: a GTK one and a Qt one. Both show one file, and what they hold is read from it."""

from support.programs import Program
from support.waiting import wait_for


class Editor(Program):
    """An editor on a file of its own."""

    def __init__(self, desk, name, window_class, arguments, text, **environment):
        self.path = desk.folder / f"{name}.txt"
        self.path.write_bytes(text.encode())
        super().__init__(desk, [*arguments, str(self.path)], window_class, title=self.path.name, **environment)
        self.to_front()

    def select_all(self):
        self.desk.keys.press("Control_L", "a")

    def copy_all(self):
        """Selects everything and copies it, as a user does."""
        before = self.desk.clipboard.count()
        self.select_all()
        self.desk.keys.press("Control_L", "c")
        wait_for("the editor has copied", lambda: self.desk.clipboard.count() > before)

    def shows(self, text):
        """Waits until the editor holds exactly this text."""
        # A text that is on its way is not there yet: the file is saved until it is.
        held = None

        def matches():
            nonlocal held
            before = self.path.stat().st_mtime_ns
            self.desk.keys.press("Control_L", "s")
            try:
                wait_for("saved", lambda: self.path.stat().st_mtime_ns != before, 0.25)
            except AssertionError:
                pass
            held = self.path.read_bytes()
            return held == text.encode()

        wait_for(lambda: f"{self.path.name} holds {text[:80]!r}; it holds {held[:80]!r}", matches)


class Mousepad(Editor):
    def __init__(self, desk, text="", name="mousepad"):
        super().__init__(desk, name, "mousepad", ["mousepad", "--disable-server"], text)


    def has_changed(self):
        """Whether what it holds differs from its file: it marks its title then."""
        return self.desk.screen.title(self.window).startswith("*")


class FeatherPad(Editor):
    def __init__(self, desk, text=""):
        # It would end every file with a line of its own.
        settings = desk.home / ".config/featherpad/fp.conf"
        settings.parent.mkdir(parents=True, exist_ok=True)
        settings.write_text("[text]\nappendEmptyLine=false\n")
        super().__init__(desk, "featherpad", "featherpad", ["featherpad", "--standalone"], text)
