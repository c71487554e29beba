"""Text editors and a terminal on a Wayland desktop. What an editor holds is read from the file that it saves."""

from support.programs import Program
from support.terminals import READER
from support.waiting import NotObserved, wait_for


class WaylandProgram(Program):
    """A program with a window, in front when it is made."""

    def __init__(self, desk, command, **environment):
        super().__init__(desk, command, **environment)
        wait_for(f"a window of {command[0]}", lambda: desk.windows.of(self.process.pid), 30)
        self.to_front()

    def to_front(self):
        self.desk.windows.activate(self.process.pid)
        wait_for("the window is in front", self.is_in_front)
        return self

    def is_in_front(self):
        return self.desk.windows.is_in_front(self.process.pid)

    def title(self):
        return self.desk.windows.of(self.process.pid)["name"]


class WaylandEditor(WaylandProgram):
    def __init__(self, desk, name, command, text, **environment):
        self.path = desk.folder / f"{name}.txt"
        self.path.write_bytes(text.encode())
        super().__init__(desk, [*command, str(self.path)], **environment)
        wait_for("the editor shows its file", lambda: self.path.name in self.title())

    def copy_all(self):
        """Selects everything and copies it, as a user does. The text must not be on the clipboard yet."""
        text = self.path.read_bytes()
        assert self.desk.clipboard.get() != text

        def copied():
            self.desk.keys.press("Control_L", "a")
            self.desk.keys.press("Control_L", "c")
            try:
                # Whoever is not ready for keys when its window comes up has lost them.
                return wait_for("copied", lambda: self.desk.clipboard.get() == text, 1)
            except NotObserved:
                return False

        wait_for("the editor has copied", copied)

    def has_changed(self):
        """Whether what it holds differs from its file: it marks its title then."""
        return self.title().startswith("*")

    def shows(self, text):
        """Waits until the editor holds exactly this text: the file is saved until it does."""
        held = b""

        def matches():
            nonlocal held
            before = self.path.stat().st_mtime_ns
            self.desk.keys.press("Control_L", "s")
            try:
                wait_for("saved", lambda: self.path.stat().st_mtime_ns != before, 0.25)
            except NotObserved:
                pass
            held = self.path.read_bytes()
            return held == text.encode()

        wait_for(lambda: f"{self.path.name} holds {text[:80]!r}; it holds {held[:80]!r}", matches)


class WaylandMousepad(WaylandEditor):
    def __init__(self, desk, text="", name="mousepad", backend="wayland"):
        super().__init__(desk, name, ["mousepad", "--disable-server"], text, GDK_BACKEND=backend)


class XMousepad(WaylandMousepad):
    """The same editor as an X client."""

    def __init__(self, desk, text="", name="x-mousepad"):
        super().__init__(desk, text, name, backend="x11")


class WaylandFeatherPad(WaylandEditor):
    def __init__(self, desk, text=""):
        # It would end every file with a line of its own.
        settings = desk.home / ".config/featherpad/fp.conf"
        settings.parent.mkdir(parents=True, exist_ok=True)
        settings.write_text("[text]\nappendEmptyLine=false\n")
        super().__init__(desk, "featherpad", ["featherpad", "--standalone"], text, QT_QPA_PLATFORM="wayland")


class WaylandTerminal(WaylandProgram):
    """What is pasted into it is written, byte by byte, to a file."""

    def __init__(self, desk, command, **environment):
        self.path = desk.folder / "terminal.bytes"
        super().__init__(desk, [*command, "sh", "-c", READER, "sh", str(self.path)], **environment)
        wait_for("the terminal's reader is ready", (desk.folder / "terminal.bytes.ready").exists)

    def shows(self, text):
        """Waits until exactly this text has arrived."""
        wait_for(lambda: f"it holds {text[:80]!r}; it holds {self.received()[:80]!r}", lambda: self.received() == text.encode())

    def has_changed(self):
        return bool(self.received())

    def received(self):
        return self.path.read_bytes() if self.path.exists() else b""


def terminal(desk):
    """One that is at home on Wayland; it ends on KWin's output without a screen, where an X client stands in."""
    return WaylandTerminal(desk, ["foot"] if desk.kind == "sway" else ["xterm", "-u8", "-e"])
