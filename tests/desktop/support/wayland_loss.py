"""On a Wayland desktop of its own: `wayland_loss.py FOLDER TEXT` copies a text with Korvane running, ends the compositor
when the text is on the disk, and prints the status that Korvane ends with."""

import os
import pathlib
import signal
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from support.history import History
from support.korvane import APPLICATION, PROGRAM
from support.waiting import wait_for

COMPOSITORS = ("sway", "kwin_wayland")


def compositor():
    """The process of this desktop's compositor."""
    mark = f"WAYLAND_DESKTOP_RUN={os.environ['WAYLAND_DESKTOP_RUN']}".encode()
    for folder in filter(lambda folder: folder.name.isdigit(), pathlib.Path("/proc").iterdir()):
        try:
            if (folder / "comm").read_text().strip() in COMPOSITORS and mark in (folder / "environ").read_bytes().split(b"\0"):
                return int(folder.name)
        except OSError:  # it has gone
            continue
    return None


def main(folder, text):
    environment = {**os.environ, "XDG_DATA_HOME": f"{folder}/data", "XDG_CONFIG_HOME": f"{folder}/config"}
    korvane = subprocess.Popen([PROGRAM], env=environment)
    history = History(pathlib.Path(folder) / "data" / APPLICATION)
    number = 0

    def captured():
        # What is there before it listens is no copy.
        nonlocal number
        number += 1
        subprocess.run(["wl-copy", "-t", "text/plain", f"{text} {number}"], check=True, timeout=20)
        return history.texts() or korvane.poll() is not None

    wait_for("a clip", captured)
    os.kill(compositor(), signal.SIGKILL)
    print(korvane.wait(20), flush=True)


main(*sys.argv[1:])
