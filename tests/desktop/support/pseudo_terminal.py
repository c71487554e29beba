"""A terminal of which only the other end is there: what a program says to a person who started it."""

import os
import select


class PseudoTerminal:
    def __init__(self):
        self.ours, self.programs = os.openpty()
        self.read = b""

    def text(self):
        """All that has been written so far, with the line ends that the program wrote."""
        while select.select([self.ours], [], [], 0)[0]:
            self.read += os.read(self.ours, 4096)
        return self.read.decode().replace("\r\n", "\n")

    def close(self):
        os.close(self.ours)
        os.close(self.programs)
