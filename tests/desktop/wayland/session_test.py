"""What the session gives and takes: windows of ours, programs that hang, the compositor itself."""

import os
import pathlib
import subprocess
import sys

from support.history import History, clip
from support.korvane import APPLICATION
from support.waiting import wait_for
from support.wayland_case import WaylandTest
from support.wayland_editors import WaylandMousepad
from support.wayland_korvane import SETTINGS

ROOT = pathlib.Path(__file__).resolve().parents[3]


class SessionTest(WaylandTest):
    def test_the_platform_option_names_what_is_there(self):
        self.start_korvane()
        status, said = self.korvane.command("--platform")
        self.assertEqual(status, 0)
        lines = said.splitlines()
        self.assertEqual(lines[0], "Wayland")
        services = {line[:26].strip(): line[26:] for line in lines if line[26:] in ("yes", "no")}
        everywhere = {"copies of all programs", "panel under the icon", "application in front", "pasting"}
        self.assertEqual({name for name, answer in services.items() if answer == "yes"},
                         everywhere | ({"global shortcut"} if self.desk.kind == "kwin" else set()))

    def test_the_settings_window_opens_from_the_panel_and_has_the_keyboard(self):
        self.start_korvane([clip("one")])
        self.korvane.open()
        x, y, width, height = self.korvane.named_part("Preferences").extents()
        self.keys.click(x + width // 2, y + height // 2)
        wait_for("the settings window has the keyboard", lambda: self.korvane.has_keyboard(SETTINGS))

    def test_a_program_that_hangs_with_the_clipboard_holds_up_nothing(self):
        editor = WaylandMousepad(self.desk)
        self.start_korvane([clip("one"), clip("two")])
        owner = self.clipboard.set_hanging("never given")
        self.korvane.open()
        self.keys.press("Down")
        self.keys.press("Return")
        editor.shows("two")
        self.clipboard.set("the copy after it")
        self.history.wait_for_texts(["the copy after it", "one", "two"], 5)
        self.assertIsNone(owner.process.poll())

    def test_a_copy_is_captured_while_the_hanging_owner_is_still_waited_for(self):
        self.start_korvane()
        owner = self.clipboard.set_hanging("never given")
        self.clipboard.set("the copy after it")
        self.history.wait_for_texts(["the copy after it"], 5)
        self.assertIsNone(owner.process.poll())

    def test_when_the_compositor_goes_it_ends_with_status_1_and_everything_is_saved(self):
        script = [str(ROOT / "tests/desktop/support/wayland_loss.py"), str(self.desk.folder), "saved"]
        trust = [] if self.desk.kind == "sway" else ["--trust", os.environ["KORVANE"]]
        answer = subprocess.run([ROOT / "tools/wayland-desktop", *trust, self.desk.kind, "--", sys.executable, *script],
                                capture_output=True, text=True, check=False, timeout=60)
        self.assertEqual(answer.stdout.splitlines()[-1:], ["1"], answer.stderr)
        texts = History(self.desk.folder / "data" / APPLICATION).texts()
        self.assertTrue(texts and all(text.startswith("saved ") for text in texts), texts)
