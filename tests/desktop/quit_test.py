"""Quitting takes no time, whoever owns the clipboard."""

import pathlib
import subprocess
import time

from support.case import DesktopTest
from support.history import clip
from support.programs import Program
from support.waiting import wait_for

MANAGER = str(pathlib.Path(__file__).with_name("support") / "manager.py")
OWNER = str(pathlib.Path(__file__).with_name("support") / "owner.py")
PATIENCE = 2


class QuitTest(DesktopTest):
    def own_the_clipboard(self):
        """Korvane puts a clip on the clipboard, and has nothing else to do then."""
        self.start_korvane([clip("one"), clip("two")])
        self.korvane.open()
        self.keys.press("Down")
        wait_for("the clip is on the clipboard", lambda: self.clipboard.get() == b"two")
        self.korvane.close()

    def start_manager(self, manner):
        Program(self.desk, [MANAGER, manner])
        wait_for("a clipboard manager", lambda: self.screen.owner("CLIPBOARD_MANAGER"))

    def expect_quick_end(self):
        began = time.monotonic()
        self.korvane.command("--quit")
        try:
            status = self.korvane.process.wait(10)
        except subprocess.TimeoutExpired:
            self.fail("it has not ended after ten seconds")
        self.assertEqual(status, 0)
        self.assertLess(time.monotonic() - began, PATIENCE)

    def test_as_the_clipboards_owner_without_a_clipboard_manager(self):
        self.assertEqual(self.screen.owner("CLIPBOARD_MANAGER"), 0)
        self.own_the_clipboard()
        self.expect_quick_end()

    def test_as_the_clipboards_owner_with_a_manager_that_saves_the_text(self):
        self.start_manager("saves")
        self.own_the_clipboard()
        self.expect_quick_end()
        self.assertEqual(self.clipboard.get(), b"two")

    def test_as_the_clipboards_owner_with_a_manager_that_never_answers(self):
        self.start_manager("silent")
        self.own_the_clipboard()
        self.expect_quick_end()

    def test_while_another_owner_hangs(self):
        self.start_korvane([clip("one")])
        before = self.clipboard.count()
        Program(self.desk, [OWNER, "silent"])
        wait_for("it owns the clipboard", lambda: self.clipboard.count() > before)
        self.expect_quick_end()

    def test_with_the_panel_open(self):
        self.own_the_clipboard()
        self.korvane.open()
        self.expect_quick_end()
