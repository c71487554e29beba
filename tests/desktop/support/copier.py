#!/usr/bin/python3
"""Copies quickly: `copier.py COUNT MILLISECONDS WORD PID…` takes the clipboard anew COUNT times, with the
texts "WORD 0", "WORD 1" and so on, and gives each to whoever asks while it is there. Between two copies
lie the milliseconds, and as much more as the processes, or this one, have meanwhile waited for the
processor, or the processes for the disk: others on the machine do not make the pace any faster for them. At the
end it prints the average without that, and serves the last text until it is ended."""

import os
import pathlib
import select
import sys
import time

from Xlib import X, Xatom, display
from Xlib.protocol import event

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from support.processor import ProcessorWaits


# The kernel counts for how long a thread has run at least this often, in milliseconds.
TICK = 4


class Copier:
    def __init__(self, processes):
        self.waits = ProcessorWaits(os.getpid(), *processes)
        self.others = ProcessorWaits(*processes)
        self.waited_for_disk = 0
        self.display = display.Display()
        self.window = self.display.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        self.selection, self.targets, self.utf8 = map(self.display.get_atom, ("CLIPBOARD", "TARGETS", "UTF8_STRING"))
        self.text = b""

    def now(self):
        """Milliseconds of which the others had their share."""
        return time.monotonic() * 1000 - self.waits.total() - self.waited_for_disk

    def copy(self, text):
        self.text = text.encode()
        self.window.set_selection_owner(self.selection, X.CurrentTime)
        self.display.flush()

    def serve_until(self, deadline):
        while (left := deadline - self.now()) > 0:
            self.serve()
            select.select([self.display.fileno()], [], [], min(left / 1000, 1))

    def serve(self):
        """Answers who has asked until now; whether anybody had."""
        asked = False
        while self.display.pending_events():
            happened = self.display.next_event()
            if happened.type == X.SelectionRequest:
                self.answer(happened)
                asked = True
        return asked

    def are_others_waiting(self):
        """Whether a thread is ready to run, or waits for the disk, and has run for less than half of the last
        milliseconds. What it waits for the processor is counted by the kernel once it runs; for the disk, here."""
        if self.serve():
            return True
        before = self.others.held_up()
        if not before:
            return self.serve()
        began = self.now()
        self.serve_until(began + TICK)
        after = self.others.held_up()
        still = [thread for thread, (_, ran) in before.items() if thread in after and after[thread][1] - ran < TICK / 2]
        if any(before[thread][0] == after[thread][0] == "D" for thread in still):
            self.waited_for_disk += self.now() - began
        return bool(still)

    def answer(self, request):
        place = request.property or request.target
        if request.target == self.targets:
            request.requestor.change_property(place, Xatom.ATOM, 32, [self.targets, self.utf8])
        elif request.target == self.utf8:
            request.requestor.change_property(place, self.utf8, 8, self.text)
        else:
            place = X.NONE
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection, target=request.target, property=place))
        self.display.flush()


def main(count, gap, word, *processes):
    copier = Copier(processes)
    began = copier.now()
    for number in range(int(count)):
        copied = copier.now()
        copier.copy(f"{word} {number}")
        copier.serve_until(copied + float(gap))
        while copier.are_others_waiting():
            copier.serve_until(copied + float(gap))
    print((copier.now() - began) / int(count), flush=True)
    copier.serve_until(float("inf"))


main(*sys.argv[1:])
