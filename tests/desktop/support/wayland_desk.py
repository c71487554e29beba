"""One test's Wayland desktop: a folder of its own, the keys, the clipboard, and the programs that it started."""

import functools
import os
import pathlib
import shutil
import subprocess
import tempfile

from support.reader import Reader
from support.wayland_clipboard import WaylandClipboard
from support.wayland_keys import Hands
from support.wayland_windows import windows_of

WIDTH, HEIGHT = 1280, 800
ACCESS_BUS = "/usr/libexec/at-spi-bus-launcher"


class Session:
    """What lives as long as the desktop does."""

    def __init__(self):
        self.kind = os.environ["WAYLAND_DESKTOP_KIND"]
        self.hands = Hands(os.environ["KORVANE_HANDS"], WIDTH, HEIGHT)
        # The desktop's own bus starts nothing by itself.
        with open(pathlib.Path(os.environ["WAYLAND_DESKTOP_LOGS"]) / "access.log", "wb") as log:
            subprocess.Popen([ACCESS_BUS, "--launch-immediately"], stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        subprocess.run(["gdbus", "wait", "--session", "--timeout", "20", "org.a11y.Bus"], check=True)
        self.reader = Reader()
        self.windows = windows_of(self.kind)


@functools.cache
def session():
    return Session()


class Screen:
    """Pictures of it, where the compositor lets programs take them."""

    def save(self, path):
        if os.environ["WAYLAND_DESKTOP_KIND"] == "sway":
            subprocess.run(["grim", str(path)], check=False, timeout=20)


class WaylandDesk:
    def __init__(self):
        self.session = session()
        self.kind = self.session.kind
        self.keys = self.session.hands
        self.windows = self.session.windows
        self.reader = self.session.reader
        self.screen = Screen()
        self.home = pathlib.Path(os.environ["HOME"])
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="korvane-test."))
        self.programs = []
        self.clipboard = WaylandClipboard(self)
        # KWin says nothing at all of a clipboard that is empty, and who asks for it would wait.
        self.clipboard.set("nothing of the test's")
        # The pointer's place is not left to the test before.
        self.keys.point(300, 700)

    def socket(self):
        """The compositor's, for a program with a runtime folder of its own."""
        return str(pathlib.Path(os.environ["XDG_RUNTIME_DIR"]) / os.environ["WAYLAND_DISPLAY"])

    def close(self):
        """Ends what the test has started, the newest first."""
        self.keys.let_go_all()
        for program in reversed(self.programs):
            program.end()
        self.windows.wait_until_none()
        shutil.rmtree(self.folder, ignore_errors=True)
