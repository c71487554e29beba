"""The clipboard of a Wayland desktop as programs without a window see it."""

import itertools
import os
import subprocess

from support.programs import Program, state_of
from support.waiting import wait_for

TEXT = "text/plain"
UTF8 = "text/plain;charset=utf-8"  # without it, a program may give the bytes of any other encoding


class WaylandClipboard:
    def __init__(self, desk):
        self.desk = desk
        self.owner = None

    def set(self, text, kind=TEXT):
        """Puts a text on the clipboard; the program that serves it, which goes on behind our back. The type is
        told, as the program would guess one from the text."""
        return self.own(["wl-copy", "--foreground", "-t", kind, "--", text], UTF8 if kind == TEXT else kind, text)

    def set_types(self, types):
        """Puts several types on the clipboard at once."""
        first = next(iter(types))
        return self.own([self.copier(), *itertools.chain(*types.items())], first, types[first])

    def set_hanging(self, text):
        """A program puts a text on the clipboard, and is stopped before anybody has asked for it."""
        self.owner = Program(self.desk, [self.copier(), "--hang", UTF8, text])
        wait_for("the program has stopped", lambda: state_of(self.owner.process.pid) == "T")
        return self.owner

    def own(self, command, kind, text):
        """Starts a program that takes the clipboard, and waits until it has: one that has had it before ends then."""
        before, self.owner = self.owner, Program(self.desk, command)
        if before is not None and state_of(before.process.pid) not in ("T", "Z", ""):
            wait_for("the owner before it has ended", lambda: before.process.poll() is not None)
        else:
            wait_for(f"{text[:80]!r} is on the clipboard", lambda: self.get(kind, 1) == text.encode())
        return self.owner

    def copier(self):
        return os.path.join(os.path.dirname(os.environ["KORVANE_HANDS"]), "korvane-copier")

    def get(self, kind=UTF8, seconds=10):
        """What is on the clipboard, as bytes; empty when there is nothing, or no such type, or no answer: whoever asks
        while the owner changes may be asking one that has gone."""
        try:
            answer = subprocess.run(["wl-paste", "-n", "-t", kind], capture_output=True, check=False, timeout=seconds)
        except subprocess.TimeoutExpired:
            return b""
        return answer.stdout if answer.returncode == 0 else b""
