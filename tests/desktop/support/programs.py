"""Programs that run beside Korvane: started with folders of their own, ended by process id."""

import os
import signal
import subprocess

from support.waiting import wait_for


class Program:
    """A process with, as a rule, a window."""

    def __init__(self, desk, command, window_class=None, title=None, stdin=None, **environment):
        self.desk = desk
        self.log = open(desk.folder / f"{os.path.basename(command[0])}.log", "ab")
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE if stdin is not None else subprocess.DEVNULL,
                                        stdout=self.log, stderr=self.log, start_new_session=True,
                                        env={**os.environ, **environment})
        desk.programs.append(self)
        if stdin is not None:
            self.process.stdin.write(stdin)
            self.process.stdin.close()
        self.window = None
        if window_class:
            self.window = wait_for(f"a window of {window_class}", lambda: self.find_window(window_class, title), 30)

    def find_window(self, window_class, title):
        windows = [window for window in self.desk.screen.find(window_class, depth=4)
                   if title is None or title in self.desk.screen.title(window)]
        return windows[0] if windows else None

    def to_front(self):
        """Brings the window to the front and waits until it has the keyboard."""
        self.desk.screen.activate(self.window)
        return self

    def is_in_front(self):
        return self.desk.screen.is_in_front(self.window)

    def stop(self):
        """Freezes it, as a program that hangs is frozen."""
        os.kill(self.process.pid, signal.SIGSTOP)
        wait_for("the program is stopped", lambda: state_of(self.process.pid) == "T")

    def go_on(self):
        os.kill(self.process.pid, signal.SIGCONT)

    def end(self):
        """Ends the program and all that it has started."""
        if self.log.closed:
            return
        for number in (signal.SIGTERM, signal.SIGCONT):
            signal_group(self.process.pid, number)
        try:
            self.process.wait(3)
        except subprocess.TimeoutExpired:
            pass
        signal_group(self.process.pid, signal.SIGKILL)
        self.process.wait(10)
        self.log.close()


def signal_group(leader, number):
    try:
        os.killpg(leader, number)
    except ProcessLookupError:
        pass


def state_of(process):
    """The one-letter state of a process (proc(5)); empty when it has gone."""
    try:
        with open(f"/proc/{process}/stat") as file:
            return file.read().rpartition(")")[2].split()[0]
    except (OSError, IndexError):
        return ""
