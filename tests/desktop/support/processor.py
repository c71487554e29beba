"""For how long programs were ready to run while others had the processor."""

import contextlib
import pathlib


def threads(process):
    return pathlib.Path(f"/proc/{process}/task").glob("*")


def waited(process):
    """That time of all threads of a process, in milliseconds since its start (proc(5), schedstat)."""
    nanoseconds = 0
    for thread in threads(process):
        with contextlib.suppress(OSError):  # it has just ended
            nanoseconds += int((thread / "schedstat").read_text().split()[1])
    return nanoseconds / 1e6


def held_up(process):
    """The threads that run or are ready to (R), or wait for the disk (D): their state, and for how long each has
    run so far, in milliseconds."""
    found = {}
    for thread in threads(process):
        with contextlib.suppress(OSError):
            state = (thread / "stat").read_text().rpartition(")")[2].split()[0]
            if state in ("R", "D"):
                found[thread] = state, int((thread / "schedstat").read_text().split()[0]) / 1e6
    return found


class ProcessorWaits:
    """The sum over programs whose threads take their turns one after the other."""

    def __init__(self, *processes):
        self.processes = processes

    def total(self):
        return sum(map(waited, self.processes))

    def held_up(self):
        return {thread: state for process in self.processes for thread, state in held_up(process).items()}
