"""The windows of a Wayland desktop, as the compositor itself tells of them."""

import itertools
import json
import os
import pathlib
import subprocess

from gi.repository import Gio, GLib

from support.waiting import wait_for


class SwayWindows:
    """Each window as sway's tree has it: `pid`, `app_id` (of an X client: none), `name`, `focused`, `rect`."""

    def all(self):
        tree = json.loads(subprocess.run(["swaymsg", "-r", "-t", "get_tree"], capture_output=True, check=True, timeout=20).stdout)
        return list(self.leaves(tree))

    def leaves(self, node):
        if node.get("pid"):
            yield node
        for child in node["nodes"] + node["floating_nodes"]:
            yield from self.leaves(child)

    def of(self, process):
        """The window of a process; None while there is none."""
        return next((window for window in self.all() if window["pid"] == process), None)

    def activate(self, process):
        window = self.of(process)
        subprocess.run(["swaymsg", f"[con_id={window['id']}]", "focus"], check=True, stdout=subprocess.DEVNULL, timeout=20)

    def is_in_front(self, process):
        window = self.of(process)
        return window is not None and window["focused"]

    def wait_until_none(self):
        wait_for("no window of the test is left", lambda: not self.all())


class KWinWindows:
    """The same of KWin, which tells it only to a script that it runs itself, and that calls us back."""

    INTERFACE = """<node><interface name="korvane.Windows"><method name="told"><arg type="s" direction="in"/></method></interface></node>"""
    LIST = """JSON.stringify(workspace.clientList().filter(function (client) { return client.normalWindow || client.dialog; }).map(
        function (client) { return { pid: client.pid, name: client.caption, focused: client.active }; }))"""

    def __init__(self):
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.answer = None
        node = Gio.DBusNodeInfo.new_for_xml(self.INTERFACE)
        self.bus.register_object("/windows", node.interfaces[0], self.told, None, None)
        self.path = pathlib.Path(os.environ["XDG_RUNTIME_DIR"]) / "windows.js"
        self.numbers = itertools.count()

    def told(self, _connection, _sender, _path, _interface, _method, parameters, invocation):
        self.answer = json.loads(parameters.unpack()[0])
        invocation.return_value(None)

    def call(self, path, interface, method, parameters):
        return self.bus.call_sync("org.kde.KWin", path, interface, method, parameters, None, Gio.DBusCallFlags.NONE, 20000)

    def run(self, script):
        """Has KWin run a script that ends with the list."""
        self.path.write_text(f'{script}; callDBus("{self.bus.get_unique_name()}", "/windows", "korvane.Windows", "told", {self.LIST});')
        name = f"korvane-{next(self.numbers)}"
        number = self.call("/Scripting", "org.kde.kwin.Scripting", "loadScript", GLib.Variant("(ss)", (str(self.path), name))).unpack()[0]
        self.answer = None
        self.call(f"/{number}", "org.kde.kwin.Script", "run", None)
        context = GLib.MainContext.default()
        wait_for("KWin tells its windows", lambda: context.iteration(False) and False or self.answer is not None)
        self.call("/Scripting", "org.kde.kwin.Scripting", "unloadScript", GLib.Variant("(s)", (name,)))
        return self.answer

    def all(self):
        return self.run("")

    def of(self, process):
        return next((window for window in self.all() if window["pid"] == process), None)

    def activate(self, process):
        self.run(f"workspace.clientList().forEach(function (each) {{ if (each.pid == {int(process)}) workspace.activeClient = each; }})")

    def is_in_front(self, process):
        window = self.of(process)
        return window is not None and window["focused"]

    def wait_until_none(self):
        wait_for("no window of the test is left", lambda: not self.all())


def windows_of(kind):
    return {"sway": SwayWindows, "kwin": KWinWindows}[kind]()
