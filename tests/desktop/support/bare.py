"""A second desktop beside the one that all tests share: with a window manager alone, no bar, no tray."""

import os
import pathlib
import shutil
import subprocess
import tempfile

from support.waiting import wait_for

SCRIPT = pathlib.Path(__file__).resolve().parents[3] / "tools/x11-desktop"
# Tells the environment of the desktop, and keeps it until our end of the pipe is closed.
KEEPER = 'env -0 > "$1.part" && mv "$1.part" "$1" && exec cat'


class BareDesktop:
    """From its making to its end, this process and what it starts are on that desktop. Make it before
    the test's desk."""

    def __init__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="korvane-test."))
        told = self.folder / "environment"
        manager = os.environ.get("KORVANE_DESKTOP", "openbox")
        self.process = subprocess.Popen([SCRIPT, "--tray", "none", manager, "--", "sh", "-c", KEEPER, "sh", told],
                                        stdin=subprocess.PIPE, stdout=subprocess.DEVNULL)
        self.outside = dict(os.environ)
        try:
            wait_for("the desktop without a tray", told.exists, 30)
        except AssertionError:
            self.end()
            raise
        os.environ.clear()
        os.environ.update(line.split("=", 1) for line in told.read_text().split("\0") if line)

    def end(self):
        os.environ.clear()
        os.environ.update(self.outside)
        self.process.stdin.close()
        self.process.wait(30)
        shutil.rmtree(self.folder, ignore_errors=True)
