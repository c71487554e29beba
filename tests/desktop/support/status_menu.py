"""The status item's menu, as a tray's host fetches it over the session bus (com.canonical.dbusmenu)."""

import re
import subprocess

from support.waiting import wait_for

ITEM = "org.kde.StatusNotifierItem"
WATCHER = "org.kde.StatusNotifierWatcher"


def call(destination, path, method, *arguments):
    """The answer in GVariant's text form; None when there is none."""
    answer = subprocess.run(["gdbus", "call", "--session", "--dest", destination, "--object-path", path, "--method", method,
                             "--", *arguments], capture_output=True, text=True, check=False, timeout=20)
    return answer.stdout if answer.returncode == 0 else None


class StatusMenu:
    """The one of a process, once the tray's host knows of it."""

    def __init__(self, process):
        self.name = wait_for("the tray's host knows the item", lambda: self.registered_by(process))
        menu = call(self.name, "/StatusNotifierItem", "org.freedesktop.DBus.Properties.Get", ITEM, "Menu")
        self.path = re.search(r"objectpath '([^']+)'", menu).group(1)

    def registered_by(self, process):
        """The item's name on the bus; None while there is none."""
        items = call(WATCHER, "/StatusNotifierWatcher", "org.freedesktop.DBus.Properties.Get", WATCHER,
                     "RegisteredStatusNotifierItems") or ""
        for name in re.findall(r"'([^'/]+)/StatusNotifierItem'", items):
            owner = call("org.freedesktop.DBus", "/", "org.freedesktop.DBus.GetConnectionUnixProcessID", name)
            if owner == f"(uint32 {process},)\n":
                return name
        return None

    def lines(self):
        """The texts of the menu as it is about to be shown, without the separators."""
        call(self.name, self.path, "com.canonical.dbusmenu.AboutToShow", "0")
        layout = call(self.name, self.path, "com.canonical.dbusmenu.GetLayout", "0", "-1", "['label']")
        return re.findall(r"'label': <'([^']*)'>", layout)

    def choose(self, text):
        """Chooses the line with this text, as a click in the tray's host does."""
        call(self.name, self.path, "com.canonical.dbusmenu.AboutToShow", "0")
        layout = call(self.name, self.path, "com.canonical.dbusmenu.GetLayout", "0", "-1", "['label']")
        line = re.search(r"\((\d+), {[^}]*'label': <'" + re.escape(text) + "'>", layout).group(1)
        call(self.name, self.path, "com.canonical.dbusmenu.Event", line, "clicked", "<''>", "0")
