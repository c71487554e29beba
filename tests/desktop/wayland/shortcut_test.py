"""The shortcut: KDE gives it to Korvane; on sway the user binds it, by the line that --platform tells."""

import subprocess

from support.history import clip
from support.wayland_case import WaylandTest
from support.wayland_editors import WaylandMousepad

FOLDERS = ("HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "WAYLAND_DISPLAY")


class ShortcutTest(WaylandTest):
    def bind(self):
        """As a user of sway does in its configuration, but for the folders that are the test's own."""
        if self.desk.kind != "sway":
            return
        folders = " ".join(f"{name}={self.korvane.environment[name]}" for name in FOLDERS)
        self.sway(f"bindsym Ctrl+space exec env {folders} {self.korvane.program} --toggle")
        self.addCleanup(self.sway, "unbindsym Ctrl+space")

    def sway(self, command):
        subprocess.run(["swaymsg", "-q", command], check=True, timeout=20)

    def test_control_space_opens_the_panel_over_another_program_and_closes_it_again(self):
        editor = WaylandMousepad(self.desk)
        self.start_korvane([clip("one")])
        self.bind()

        self.keys.press("Control_L", "space")
        self.korvane.wait_until_open()
        self.assertFalse(editor.is_in_front())
        self.keys.press("Control_L", "space")

        self.korvane.wait_until_closed()
