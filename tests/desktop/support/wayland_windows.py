"""The windows of a Wayland desktop, as the compositor itself tells of them."""

import json
import subprocess

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


def windows_of(kind):
    return {"sway": SwayWindows}[kind]()
