#!/usr/bin/python3
"""A clipboard manager (freedesktop's clipboard manager specification): `manager.py saves` takes over the
clipboard's text when its owner asks for that, and serves it; `manager.py silent` never answers anyone."""

import sys

from Xlib import X, Xatom, display
from Xlib.protocol import event


class Manager:
    def __init__(self, manner):
        self.manner = manner
        self.display = display.Display()
        self.window = self.display.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        self.atom = self.display.get_atom
        self.window.set_selection_owner(self.atom("CLIPBOARD_MANAGER"), X.CurrentTime)
        self.display.sync()
        self.text = b""
        self.asked = None

    def serve(self):
        while True:
            happened = self.display.next_event()
            if self.manner == "silent":
                continue
            if happened.type == X.SelectionRequest and happened.target == self.atom("SAVE_TARGETS"):
                self.asked = happened
                self.window.convert_selection(
                    self.atom("CLIPBOARD"), self.atom("UTF8_STRING"), self.atom("SAVED"), happened.time)
                self.display.flush()
            elif happened.type == X.SelectionNotify and self.asked is not None:
                self.take_over()
            elif happened.type == X.SelectionRequest:
                self.answer(happened, self.give(happened))

    def take_over(self):
        self.text = self.window.get_full_property(self.atom("SAVED"), X.AnyPropertyType).value
        self.window.set_selection_owner(self.atom("CLIPBOARD"), X.CurrentTime)
        self.answer(self.asked, self.asked.property)
        self.asked = None

    def give(self, request):
        place = request.property or request.target
        if request.target == self.atom("TARGETS"):
            request.requestor.change_property(place, Xatom.ATOM, 32, [self.atom("TARGETS"), self.atom("UTF8_STRING")])
        elif request.target == self.atom("UTF8_STRING"):
            request.requestor.change_property(place, self.atom("UTF8_STRING"), 8, self.text)
        else:
            return X.NONE
        return place

    def answer(self, request, place):
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection, target=request.target, property=place))
        self.display.flush()


Manager(sys.argv[1]).serve()
