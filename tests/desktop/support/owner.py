#!/usr/bin/python3
"""Owns the clipboard and behaves badly: `owner.py silent` never answers anyone; `owner.py stops` gives
some pieces of a large text and freezes in the middle of the transfer."""

import os
import signal
import sys

from Xlib import X, Xatom, display
from Xlib.protocol import event

PIECE = b"piece of a large text\n" * 3000
PIECES_BEFORE_THE_END = 3


class Owner:
    def __init__(self, manner):
        self.manner = manner
        self.display = display.Display()
        self.window = self.display.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent, event_mask=X.PropertyChangeMask)
        self.atom = self.display.get_atom
        self.window.set_selection_owner(self.atom("CLIPBOARD"), X.CurrentTime)
        self.display.sync()
        self.requestor = self.property = None
        self.given = 0

    def serve(self):
        while True:
            happened = self.display.next_event()
            if happened.type == X.SelectionRequest and self.manner != "silent":
                self.answer(happened)
            elif happened.type == X.PropertyNotify and happened.state == X.PropertyDelete:
                if self.requestor == happened.window and self.property == happened.atom:
                    self.give_piece()

    def answer(self, request):
        place = request.property or request.target
        if request.target == self.atom("TARGETS"):
            request.requestor.change_property(place, Xatom.ATOM, 32, [self.atom("TARGETS"), self.atom("UTF8_STRING")])
        elif request.target == self.atom("UTF8_STRING"):
            # ICCCM 2.7.2: the number is a lower bound of the whole; each deletion asks for a piece.
            self.requestor, self.property = request.requestor, place
            self.requestor.change_attributes(event_mask=X.PropertyChangeMask)
            self.requestor.change_property(place, self.atom("INCR"), 32, [len(PIECE) * 100])
        else:
            place = X.NONE
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection, target=request.target, property=place))
        self.display.flush()

    def give_piece(self):
        if self.given == PIECES_BEFORE_THE_END:
            os.kill(os.getpid(), signal.SIGSTOP)
        self.given += 1
        self.requestor.change_property(self.property, self.atom("UTF8_STRING"), 8, PIECE)
        self.display.flush()


Owner(sys.argv[1]).serve()
