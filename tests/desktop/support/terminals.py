"""Terminals: what is pasted into them is written, byte by byte, to a file."""

from support.programs import Program
from support.waiting import wait_for

# Nothing of the line's editing, no echo, no signals: what arrives is what was sent. A terminal sends a
# line's end as a carriage return, the Return key; the line discipline turns it back.
READER = 'stty raw -echo icrnl; : > "$1.ready"; exec cat > "$1"'


class Terminal(Program):
    def __init__(self, desk, name, window_class, command):
        self.path = desk.folder / f"{name}.bytes"
        ready = desk.folder / f"{name}.bytes.ready"
        ready.unlink(missing_ok=True)
        super().__init__(desk, [*command, "sh", "-c", READER, "sh", str(self.path)], window_class)
        self.to_front()
        wait_for("the terminal's reader is ready", ready.exists)

    def shows(self, text):
        """Waits until exactly this text has arrived."""
        wait_for(lambda: f"{self.path.name} holds {text[:80]!r}; it holds {self.received()[:80]!r}",
                 lambda: self.received() == text.encode())

    def has_changed(self):
        return bool(self.received())

    def received(self):
        return self.path.read_bytes() if self.path.exists() else b""


class XTerm(Terminal):
    def __init__(self, desk):
        super().__init__(desk, "xterm", "xterm", ["xterm", "-u8", "-e"])


class XfceTerminal(Terminal):
    """The one with GNOME's terminal widget (VTE)."""

    def __init__(self, desk):
        super().__init__(desk, "xfce4-terminal", "xfce4-terminal", ["xfce4-terminal", "--disable-server", "-x"])
