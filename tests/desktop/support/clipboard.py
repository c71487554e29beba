"""The clipboard as other programs see it: by xclip, and by the events of the server."""

import subprocess

from Xlib import X
from Xlib.display import Display
from Xlib.ext import xfixes

from support.waiting import wait_for


class Clipboard:
    """Sets and reads the selections with xclip, and counts how often CLIPBOARD changed hands."""

    def __init__(self):
        # A connection of its own: its events are nobody else's.
        self.display = Display()
        self.display.xfixes_query_version()
        mask = xfixes.XFixesSetSelectionOwnerNotifyMask | xfixes.XFixesSelectionClientCloseNotifyMask
        self.display.xfixes_select_selection_input(self.display.screen().root, self.display.get_atom("CLIPBOARD"), mask)
        self.display.sync()
        self.changes = 0

    def count(self):
        """How often CLIPBOARD has had a new owner, or been taken anew by the old one, so far."""
        self.display.sync()
        while self.display.pending_events():
            self.display.next_event()
            self.changes += 1
        return self.changes

    def set(self, text, selection="clipboard"):
        """Puts bytes or a text on the clipboard; xclip goes on serving it behind our back."""
        data = text.encode() if isinstance(text, str) else text
        before = self.owner(selection)
        subprocess.run(["xclip", "-selection", selection, "-i"], input=data, check=True, timeout=20,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        # It ends before the one that goes on behind our back has said so to the server.
        wait_for("xclip owns the selection", lambda: self.owner(selection) not in (before, X.NONE))

    def owner(self, selection):
        """The number of the window that owns a selection."""
        owner = self.display.get_selection_owner(self.display.get_atom(selection.upper()))
        return owner if owner == X.NONE else owner.id

    def get(self, selection="clipboard", target="UTF8_STRING", seconds=10):
        """What is on the clipboard, as bytes; empty when it has no owner, or no such target."""
        answer = subprocess.run(["xclip", "-selection", selection, "-o", "-t", target], capture_output=True,
                                check=False, timeout=seconds)
        return answer.stdout if answer.returncode == 0 else b""

    def text(self):
        return self.get().decode("utf-8", "replace")
