"""What a screen reader sees and hears of the desktop, over the bus for assistive technology (AT-SPI)."""

import contextlib
import subprocess

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  (only after the version has been chosen)

from support.waiting import wait_for  # noqa: E402

HEARD = ("focus:", "object:state-changed:selected", "object:state-changed:showing", "window:activate")


class Element:
    """One element of a program, asked anew at each question."""

    def __init__(self, accessible):
        self.accessible = accessible

    name = property(lambda self: self.accessible.get_name())
    description = property(lambda self: self.accessible.get_description())
    role = property(lambda self: self.accessible.get_role_name())
    count = property(lambda self: self.accessible.get_child_count())
    parent = property(lambda self: Element(self.accessible.get_parent()))
    index = property(lambda self: self.accessible.get_index_in_parent())

    def child(self, index):
        return Element(self.accessible.get_child_at_index(index))

    def children(self):
        return [self.child(index) for index in range(self.count)]

    def names(self):
        return [child.name for child in self.children()]

    def states(self):
        return {state.value_nick for state in self.accessible.get_state_set().get_states()}

    def extents(self):
        box = self.accessible.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
        return box.x, box.y, box.width, box.height

    def at(self, x, y):
        """The child at a place of the screen."""
        return Element(self.accessible.get_component_iface().get_accessible_at_point(x, y, Atspi.CoordType.SCREEN))

    def descendants(self):
        for child in self.children():
            yield child
            yield from child.descendants()

    def actions(self):
        action = self.accessible.get_action_iface()
        if action is None:
            return []
        return [action.get_action_name(number) for number in range(action.get_n_actions())]

    def act(self, name):
        self.accessible.get_action_iface().do_action(self.actions().index(name))

    def text(self):
        """What stands in a field."""
        held = self.accessible.get_text_iface()
        return held.get_text(0, held.get_character_count())

    def grab_focus(self):
        self.accessible.get_component_iface().grab_focus()

    def find(self, role, name=None):
        """The first element of a role, itself included; None where there is none."""
        if self.role == role and name in (None, self.name):
            return self
        for child in self.children():
            # Nothing that is looked for lies within a list, and that may be long.
            if found := (child if child.role == role and name in (None, child.name) else None):
                return found
            if child.role != "list" and (found := child.find(role, name)):
                return found
        return None


class Reader:
    """Looks at what programs show, and from `listen` on hears what they tell, until its `close`."""

    def __init__(self):
        self.heard = []
        self.popup = None
        set_enabled(False)  # which starts the bus where there is none
        Atspi.init()
        self.listener = None

    def listen(self):
        set_enabled(True)
        self.listener = Atspi.EventListener.new(self.hear)
        for kind in HEARD:
            self.listener.register(kind)

    def close(self):
        for kind in HEARD if self.listener else ():
            self.listener.deregister(kind)
        set_enabled(False)

    def hear(self, event):
        # What it was about may have ended meanwhile.
        with contextlib.suppress(GLib.Error):
            role = event.source.get_role_name()
            if role == "popup menu" and event.type.startswith("object:state-changed:showing"):
                self.popup = Element(event.source) if event.detail1 else None
            self.heard.append((event.type, event.detail1, role, event.source.get_name()))

    def turn(self):
        while GLib.MainContext.default().iteration(False):
            pass

    def menu(self):
        """The open menu. It is a window of its own that is heard of by its showing."""
        wait_for(lambda: f"a menu opens; heard was {self.heard}", lambda: self.turn() or self.popup)
        return self.popup

    def program(self, process):
        """A program that shows itself, by its process; None while there is none."""
        self.turn()
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            with contextlib.suppress(GLib.Error):
                found = desktop.get_child_at_index(index)
                if found is not None and found.get_process_id() == process:
                    return Element(found)
        return None

    def announced(self):
        self.turn()
        return [name for kind, detail, role, name in self.heard
                if kind.startswith("object:state-changed:showing") and detail and role == "notification"]

    def focused(self):
        self.turn()
        return [name for kind, _, _, name in self.heard if kind.startswith("focus")]

    def selected(self):
        self.turn()
        return [name for kind, detail, _, name in self.heard if kind.startswith("object:state-changed:selected") and detail]

    def forget(self):
        self.turn()
        self.heard.clear()

    def expect_announced(self, text):
        wait_for(lambda: f"{text!r} is announced; heard was {self.heard}", lambda: self.announced()[-1:] == [text])

    def expect_focused(self, name):
        wait_for(lambda: f"{name!r} has the focus; heard was {self.heard}", lambda: self.focused()[-1:] == [name])


def set_enabled(is_enabled):
    """What a screen reader sets when it starts and ends, and what programs go by."""
    subprocess.run(["gdbus", "call", "--session", "--dest", "org.a11y.Bus", "--object-path", "/org/a11y/bus", "--method",
                    "org.freedesktop.DBus.Properties.Set", "org.a11y.Status", "IsEnabled", f"<{str(is_enabled).lower()}>"],
                   check=True, stdout=subprocess.DEVNULL, timeout=20)
