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

    def set(self, text, kind=TEXT):
        """Puts bytes or a text on the clipboard; the program that serves it, which goes on behind our back.
        The type is told, as the program would guess one from the text."""
        owner = Program(self.desk, ["wl-copy", "--foreground", "-t", kind], stdin=text.encode() if isinstance(text, str) else text)
        return owner

    def set_types(self, types):
        """Puts several types on the clipboard at once."""
        owner = Program(self.desk, [self.copier(), *itertools.chain(*types.items())])
        first = next(iter(types))
        wait_for("it is on the clipboard", lambda: self.get(first) == types[first].encode())
        return owner

    def set_hanging(self, text):
        """A program puts a text on the clipboard, and is stopped before anybody has asked for it."""
        owner = Program(self.desk, [self.copier(), "--hang", UTF8, text])
        wait_for("the program has stopped", lambda: state_of(owner.process.pid) == "T")
        return owner

    def copier(self):
        return os.path.join(os.path.dirname(os.environ["KORVANE_HANDS"]), "korvane-copier")

    def get(self, kind=UTF8, seconds=10):
        """What is on the clipboard, as bytes; empty when there is nothing, or no such type."""
        answer = subprocess.run(["wl-paste", "-n", "-t", kind], capture_output=True, check=False, timeout=seconds)
        return answer.stdout if answer.returncode == 0 else b""
