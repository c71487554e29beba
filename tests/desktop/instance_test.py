"""One Korvane at a time, and what lasts beyond its end."""

import signal

from support.case import DesktopTest
from support.history import clip


class InstanceTest(DesktopTest):
    def test_a_second_start_opens_the_panel_of_the_first(self):
        self.start_korvane([clip("one")])
        for arguments in ([], ["--show"]):
            status, said = self.korvane.command(*arguments)
            self.assertEqual((status, said), (0, ""))
            self.korvane.wait_until_open()
            self.assertEqual(self.korvane.command("--hide")[0], 0)
            self.korvane.wait_until_closed()

    def test_toggle_opens_and_closes(self):
        self.start_korvane([clip("one")])
        self.korvane.command("--toggle")
        self.korvane.wait_until_open()
        self.korvane.command("--toggle")
        self.korvane.wait_until_closed()

    def test_quit_ends_it_well(self):
        self.start_korvane()
        self.korvane.quit()
        self.assertEqual(self.korvane.process.returncode, 0)

    def test_the_version_and_the_help_need_no_display(self):
        self.start_korvane()
        self.korvane.environment.pop("DISPLAY")
        status, said = self.korvane.command("--version")
        self.assertEqual(status, 0)
        self.assertRegex(said, r"^Korvane \d+\.\d+\.\d+\n$")
        status, said = self.korvane.command("--help")
        self.assertEqual(status, 0)
        for option in ("--show", "--toggle", "--hide", "--quit", "--version", "--help"):
            self.assertIn(option, said)


class RestartTest(DesktopTest):
    def test_after_quit_and_restart_everything_is_there(self):
        self.start_korvane(maxClipSizeKB=8)
        self.clipboard.set("first")
        self.history.wait_for_texts(["first"])
        self.clipboard.set("large\n" * 5000)
        self.history.wait_for("two clips", lambda clips: len(clips) == 2)
        self.korvane.open()
        self.keys.press("Down")
        self.keys.press("Control_L", "p")
        self.history.wait_for("the older is pinned", lambda clips: clips[1]["isPinned"])
        self.korvane.close()
        before = self.history.clips()
        self.korvane.quit()
        self.assertEqual(self.history.clips(), before)

        self.korvane.start()

        self.clipboard.set("second")
        self.history.wait_for("the three clips", lambda clips: [c["text"] for c in clips][:1] == ["second"])
        self.assertEqual(self.history.clips()[1:], before)
        overflow = self.history.clips()[1]["overflowPath"]
        with open(overflow, "rb") as file:
            self.assertEqual(file.read(), b"large\n" * 5000)

    def test_after_a_kill_everything_is_there(self):
        self.start_korvane()
        self.clipboard.set("first")
        before = self.history.wait_for_texts(["first"])
        self.korvane.process.send_signal(signal.SIGKILL)
        self.korvane.process.wait()

        self.korvane.start()

        self.assertEqual(self.history.clips(), before)
        self.clipboard.set("second")
        self.history.wait_for_texts(["second", "first"])
