#!/usr/bin/python3
"""A window that takes the clipboard's text when Ctrl+V is pressed in it, and writes it to a file:
`requestor.py FILE`. It takes what no editor would: 100 MB at once. FILE appears when all is there."""

import os
import sys

from Xlib import XK, X, display


class Requestor:
    def __init__(self, path):
        self.path = path
        self.display = display.Display()
        self.atom = self.display.get_atom
        self.window = self.display.screen().root.create_window(
            100, 500, 300, 200, 0, X.CopyFromParent, background_pixel=0xFFFFFF,
            event_mask=X.KeyPressMask | X.PropertyChangeMask)
        self.window.set_wm_class("requestor", "Requestor")
        self.window.set_wm_name("requestor")
        self.window.set_wm_hints(flags=1, input=1)
        self.window.map()
        self.display.flush()
        self.place = self.atom("TAKEN")
        self.pieces = None

    def serve(self):
        v = self.display.keysym_to_keycode(XK.XK_v)
        while True:
            happened = self.display.next_event()
            if happened.type == X.KeyPress and happened.detail == v and happened.state & X.ControlMask:
                self.window.convert_selection(self.atom("CLIPBOARD"), self.atom("UTF8_STRING"), self.place, happened.time)
                self.display.flush()
            elif happened.type == X.SelectionNotify and happened.property != X.NONE:
                self.take_first()
            elif happened.type == X.PropertyNotify and happened.state == X.PropertyNewValue and self.pieces is not None:
                self.take_piece()

    def take(self):
        value = self.window.get_full_property(self.place, X.AnyPropertyType, sizehint=1 << 20)
        self.window.delete_property(self.place)
        self.display.flush()
        return value

    def take_first(self):
        value = self.take()
        if value.property_type == self.atom("INCR"):
            self.pieces = []
        else:
            self.finish([value.value])

    def take_piece(self):
        value = self.take()
        if value is None:
            return
        if value.value:
            self.pieces.append(bytes(value.value))
        else:
            pieces, self.pieces = self.pieces, None
            self.finish(pieces)

    def finish(self, pieces):
        with open(self.path + ".part", "wb") as file:
            file.writelines(pieces)
        os.rename(self.path + ".part", self.path)


Requestor(sys.argv[1]).serve()
