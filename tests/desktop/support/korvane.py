"""Korvane itself, with folders of its own."""

import json
import os
import pathlib
import subprocess

from support.history import History
from support.waiting import NotObserved, wait_for

PROGRAM = os.environ.get("KORVANE", str(pathlib.Path(__file__).resolve().parents[3] / "build/release/korvane"))
APPLICATION = "com.VNT.Korvane"


class Korvane:
    def __init__(self, desk, clips=(), stderr=None, starts=True, environment=(), program=PROGRAM, **preferences):
        """`stderr`: a descriptor that takes what it says, instead of the log. `starts`: otherwise only
        its folders are made. `environment`: what is added to ours. `program`: another build."""
        self.desk = desk
        self.program = program
        self.stderr = stderr
        self.home = desk.folder / "korvane-home"
        self.environment = {**os.environ, **dict(environment), "HOME": str(self.home), "XDG_DATA_HOME": str(self.home / "data"),
                            "XDG_CONFIG_HOME": str(self.home / "config"), "XDG_RUNTIME_DIR": str(self.home / "run")}
        (self.home / "run").mkdir(parents=True, exist_ok=True, mode=0o700)
        self.history = History(self.home / "data" / APPLICATION)
        self.preferences_path = self.home / "config" / APPLICATION / "preferences.json"
        if clips:
            self.history.write(list(clips))
        if preferences:
            self.set_preferences(**preferences)
        self.process = None
        desk.programs.append(self)
        if starts:
            self.start()

    def start(self):
        """Starts it and waits until it is ready: its panel, the last thing that it makes, is there."""
        with open(self.desk.folder / "korvane.log", "ab") as log:
            self.process = subprocess.Popen([self.program], env=self.environment, stdin=subprocess.DEVNULL, stdout=log,
                                            stderr=log if self.stderr is None else self.stderr)
        wait_for(lambda: f"Korvane is ready; it says {self.log()!r}", lambda: self.panel() or not self.is_running())
        if not self.is_running():
            raise NotObserved(f"not observed: Korvane is ready; it has ended and says {self.log()!r}")

    def log(self):
        return (self.desk.folder / "korvane.log").read_text(errors="replace")

    def command(self, *arguments):
        """Runs a second korvane, which speaks to the first; its exit status and what it wrote."""
        answer = subprocess.run([self.program, *arguments], env=self.environment, capture_output=True, text=True,
                                check=False, timeout=20)
        return answer.returncode, answer.stdout + answer.stderr

    def is_running(self):
        return self.process is not None and self.process.poll() is None

    def quit(self):
        """Quits it by its own command; the status that it ended with."""
        self.command("--quit")
        return self.process.wait(10)

    def end(self):
        if self.is_running():
            self.process.kill()
            self.process.wait()

    # --- preferences

    def preferences(self):
        return json.loads(self.preferences_path.read_text()) if self.preferences_path.exists() else {}

    def set_preferences(self, **values):
        """Changes the file by hand, as an editor does: a new file takes the old one's place."""
        self.preferences_path.parent.mkdir(parents=True, exist_ok=True)
        changed = self.preferences_path.with_suffix(".new")
        changed.write_text(json.dumps({**self.preferences(), **values}))
        changed.replace(self.preferences_path)

    # --- the panel

    def panel(self, viewable=False):
        """The panel's window; None while there is none."""
        found = self.desk.screen.find("korvane", title="Korvane", depth=1, viewable=viewable)
        # An icon that the tray has not taken in yet has the same title, and a few pixels.
        wide = [window for window in found if self.desk.screen.box(window).width >= 300]
        return wide[0] if wide else None

    def windows(self):
        """Every window of it that can be seen, its icon in the tray excepted."""
        icon = 64  # pixels; no tray shows one that is larger
        return [window for window in self.desk.screen.find("korvane", depth=1)
                if self.desk.screen.box(window).width > icon]

    def box(self):
        """Where the open panel is, whoever has the keyboard."""
        return self.desk.screen.box(wait_for("the panel is open", lambda: self.panel(viewable=True)))

    def is_open(self):
        return self.panel(viewable=True) is not None

    def has_keyboard(self):
        panel = self.panel(viewable=True)
        return panel is not None and self.desk.screen.has_keyboard(panel)

    def wait_until_open(self):
        wait_for("the panel is open and has the keyboard", self.has_keyboard)
        return self.desk.screen.box(self.panel())

    def wait_until_closed(self):
        wait_for("the panel is closed", lambda: not self.is_open())

    def open(self):
        """Opens the panel by the shortcut; where it is."""
        # A panel that is still closing would be taken for the one that opens.
        self.wait_until_closed()
        self.desk.keys.press("Control_L", "space")
        return self.wait_until_open()

    def close(self):
        self.desk.keys.press("Escape")
        self.wait_until_closed()

    def turn(self):
        """Makes sure that Korvane has been through its loop since now, by opening and closing the panel."""
        self.open()
        self.close()
