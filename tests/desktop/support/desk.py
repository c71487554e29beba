"""One test's desktop: a folder of its own, the screen, the keys, and the programs that it started."""

import os
import pathlib
import shutil
import signal
import tempfile

from support.clipboard import Clipboard
from support.display import Screen
from support.keys import Keys
from support.waiting import wait_for


class Desk:
    def __init__(self):
        self.kind = os.environ.get("KORVANE_DESKTOP", "openbox")
        self.home = pathlib.Path(os.environ["HOME"])
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="korvane-test."))
        self.screen = Screen()
        self.keys = Keys(self.screen)
        self.clipboard = Clipboard()
        self.programs = []
        self.clients_before = self.clients()
        # Neither the keyboard's nor the pointer's place is left to the test before.
        self.keys.point(700, 800)

    def close(self):
        """Ends what the test has started, the newest first."""
        self.keys.let_go_all()
        for program in reversed(self.programs):
            program.end()
        self.end_strangers()
        self.screen.display.close()
        self.clipboard.display.close()
        shutil.rmtree(self.folder, ignore_errors=True)

    def clients(self):
        """The numbers of the windows that the window manager looks after."""
        numbers = self.screen.property(self.screen.root, "_NET_CLIENT_LIST")
        return set(numbers) if numbers is not None else set()

    def end_strangers(self):
        """Ends programs with a window that others have started for us, as the session bus does."""
        for number in self.clients() - self.clients_before:
            process = self.screen.property(self.screen.window(number), "_NET_WM_PID")
            if process is not None and self.is_of_this_desktop(process[0]):
                os.kill(process[0], signal.SIGKILL)
        wait_for("no window of the test is left", lambda: not self.clients() - self.clients_before)

    def server(self):
        """The process of the X server."""
        return self.process("Xvfb")

    def process(self, name):
        """The process of a program of this desktop."""
        return next(process for process in map(int, filter(str.isdigit, os.listdir("/proc")))
                    if name_of(process) == name and self.is_of_this_desktop(process))

    def is_of_this_desktop(self, process):
        mark = f"X11_DESKTOP_RUN={os.environ['X11_DESKTOP_RUN']}".encode()
        try:
            return mark in pathlib.Path(f"/proc/{process}/environ").read_bytes().split(b"\0")
        except OSError:
            return False


def name_of(process):
    """The name of a process's program; empty when it has gone."""
    try:
        return pathlib.Path(f"/proc/{process}/comm").read_text().strip()
    except OSError:
        return ""
