"""For how long programs were ready to run while others had the processor."""

import contextlib
import pathlib


def waited(process):
    """That time of all threads of a process, in milliseconds since its start (proc(5), schedstat)."""
    nanoseconds = 0
    for statistics in pathlib.Path(f"/proc/{process}/task").glob("*/schedstat"):
        with contextlib.suppress(OSError):  # a thread that has just ended
            nanoseconds += int(statistics.read_text().split()[1])
    return nanoseconds / 1e6


class ProcessorWaits:
    """The sum over programs whose threads take their turns one after the other."""

    def __init__(self, *processes):
        self.processes = processes

    def total(self):
        return sum(map(waited, self.processes))
