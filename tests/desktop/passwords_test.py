"""A password that is copied from a password manager is never recorded."""

import os
import signal

from support.case import DesktopTest
from support.editors import FeatherPad, Mousepad
from support.history import clip
from support.passwords import KeePassXC
from support.waiting import wait_for

PASSWORD = "S3cret-pässword"


class PasswordsTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.manager = KeePassXC(self.desk, PASSWORD)

    def expect_not_recorded(self, text):
        self.expect_no_new_clip([])
        self.assertFalse(self.history.holds_anywhere(text))
        self.assertNotIn(text, self.korvane.log())

    def test_a_password_copied_from_keepassxc_is_not_recorded(self):
        self.start_korvane()
        self.assertTrue(self.manager.is_in_front())
        before = self.clipboard.count()
        self.manager.copy_password()
        wait_for("the password is copied", lambda: self.clipboard.count() > before)
        self.assertEqual(self.clipboard.get(), PASSWORD.encode())
        self.expect_nothing_while_in_front()

    def test_nothing_is_recorded_while_keepassxc_is_in_front_marked_or_not(self):
        self.start_korvane()
        self.assertTrue(self.manager.is_in_front())
        self.clipboard.set("not marked as a secret")
        self.expect_nothing_while_in_front("not marked as a secret")

    def expect_nothing_while_in_front(self, text=PASSWORD):
        """The copy that proves it has to come from another program."""
        self.korvane.turn()
        Mousepad(self.desk)
        self.expect_not_recorded(text)

    def test_with_another_window_in_front_the_hint_alone_keeps_it_out(self):
        editor = Mousepad(self.desk)
        self.manager.to_front()
        self.start_korvane()
        # Korvane sleeps through the copy and wakes up when another window is in front.
        os.kill(self.korvane.process.pid, signal.SIGSTOP)
        before = self.clipboard.count()
        self.manager.copy_password()
        wait_for("the password is copied", lambda: self.clipboard.count() > before)
        editor.to_front()
        os.kill(self.korvane.process.pid, signal.SIGCONT)

        self.korvane.turn()

        self.assertTrue(editor.is_in_front())
        self.assertEqual(self.clipboard.get(), PASSWORD.encode())
        self.expect_not_recorded(PASSWORD)


class IgnoredApplicationTest(DesktopTest):
    def test_what_it_copies_while_the_panel_stands_over_it_is_not_recorded_either(self):
        editor = Mousepad(self.desk, "text")
        self.start_korvane([clip("one")], ignoredBundleIDs=["org.xfce.mousepad"])
        wait_for("the ignored editor is in front", editor.is_in_front)
        self.clipboard.set("before")
        self.korvane.open()
        self.clipboard.set("behind the panel")
        self.korvane.close()

        editor.end()
        self.korvane.turn()
        self.clipboard.set("the next copy")
        self.history.wait_for_texts(["the next copy", "one"])

    def test_what_it_copies_while_korvane_is_held_up_is_not_recorded_when_the_user_goes_on(self):
        ignored, editor = Mousepad(self.desk, "text"), FeatherPad(self.desk, "text")
        self.start_korvane([clip("one")], ignoredBundleIDs=["org.xfce.mousepad"])
        self.korvane.turn()
        wait_for("the editor is in front", editor.is_in_front)
        os.kill(self.korvane.process.pid, signal.SIGSTOP)
        self.screen.activate(ignored.window)
        self.clipboard.set("a secret")
        self.screen.activate(editor.window)
        os.kill(self.korvane.process.pid, signal.SIGCONT)
        self.korvane.turn()

        self.clipboard.set("the next copy")
        self.history.wait_for_texts(["the next copy", "one"])
