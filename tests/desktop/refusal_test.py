"""What Korvane says when it cannot run: one line of its own on standard error, and its exit status."""

import subprocess

from support.case import DesktopTest
from support.history import clip
from support.korvane import PROGRAM
from support.waiting import wait_for

# Nobody's number, so that no account names a home.
NOBODY = 54321


def as_nobody():
    """How to start a program as a user without an account: seemingly, or where that is not allowed, really."""
    seemingly = ("unshare", "--user", f"--map-user={NOBODY}")
    if subprocess.run([*seemingly, "true"], capture_output=True, check=False).returncode == 0:
        return seemingly
    return ("setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups")


class RefusalTest(DesktopTest):
    def setUp(self):
        super().setUp()
        self.start_korvane(starts=False)
        self.environment = self.korvane.environment

    def expect(self, status, line, *arguments, command=(PROGRAM,)):
        answer = subprocess.run([*command, *arguments], env=self.environment, capture_output=True, text=True,
                                check=False, timeout=20)
        self.assertEqual((answer.returncode, answer.stdout, answer.stderr), (status, "", line + "\n"))

    def expect_silence(self, *arguments):
        answer = subprocess.run([PROGRAM, *arguments], env=self.environment, capture_output=True, text=True,
                                check=False, timeout=20)
        self.assertEqual((answer.returncode, answer.stdout, answer.stderr), (0, "", ""))

    def without(self, *names):
        for name in names:
            self.environment.pop(name, None)

    def test_without_a_home_folder(self):
        self.without("HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME")
        self.expect(1, "korvane: there is no home folder: neither HOME nor the user's account names one",
                    command=(*as_nobody(), PROGRAM))

    def test_with_a_home_that_is_no_absolute_path(self):
        self.without("XDG_DATA_HOME", "XDG_CONFIG_HOME")
        self.environment["HOME"] = "somewhere"
        self.expect(1, "korvane: there is no home folder: neither HOME nor the user's account names one",
                    command=(*as_nobody(), PROGRAM))

    def test_without_a_display(self):
        self.without("DISPLAY", "WAYLAND_DISPLAY")
        for arguments in ((), ("--show",), ("--toggle",)):
            with self.subTest(arguments):
                self.expect(1, "korvane: there is no X11 display (DISPLAY is not set)", *arguments)

    def test_with_a_display_that_nobody_serves(self):
        self.environment["DISPLAY"] = ":4095"
        self.expect(1, "korvane: there is no X11 display (no X server answers at :4095)")

    def test_without_a_display_the_history_is_as_it_was(self):
        self.history.write([clip("one")])
        before = self.history.path.read_bytes()
        self.without("DISPLAY", "WAYLAND_DISPLAY")
        self.expect(1, "korvane: there is no X11 display (DISPLAY is not set)")
        self.assertEqual(self.history.path.read_bytes(), before)

    def test_without_a_display_and_for_wishes_no_folder_is_made(self):
        self.expect_silence("--quit")
        self.expect_silence("--hide")
        self.without("DISPLAY", "WAYLAND_DISPLAY")
        self.expect(1, "korvane: there is no X11 display (DISPLAY is not set)")
        self.assertFalse(self.history.path.parent.exists())

    def test_with_a_home_in_which_no_folder_can_be_made(self):
        self.without("XDG_DATA_HOME", "XDG_CONFIG_HOME")
        self.environment["HOME"] = "/proc/nowhere"
        self.expect(1, "korvane: there is no usable home folder: cannot make /proc/nowhere/.local/share: "
                       "No such file or directory")

    def test_with_a_stored_shortcut_that_is_not_possible(self):
        for preferences in ({"hotkeyKeyCode": -1}, {"hotkeyModifiers": 4294967296}):
            with self.subTest(preferences):
                self.korvane.preferences_path.unlink(missing_ok=True)
                self.korvane.set_preferences(**preferences)
                self.expect(1, "korvane: the stored shortcut is not possible; see hotkeyKeyCode and hotkeyModifiers in "
                               "preferences.json")

    def test_misuse(self):
        for arguments, line in ((["--nonsense"], 'korvane: unknown argument "--nonsense"; see korvane --help'),
                                (["show"], 'korvane: unknown argument "show"; see korvane --help'),
                                (["-h"], 'korvane: unknown argument "-h"; see korvane --help'),
                                ([""], 'korvane: unknown argument ""; see korvane --help'),
                                (["--show", "--hide"], "korvane: one option at a time; see korvane --help")):
            with self.subTest(arguments):
                self.expect(2, line, *arguments)

    def test_misuse_is_told_before_anything_else(self):
        self.without("DISPLAY", "WAYLAND_DISPLAY", "HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR")
        self.expect(2, 'korvane: unknown argument "--nonsense"; see korvane --help', "--nonsense")

    def test_hiding_and_quitting_what_does_not_run_is_no_failure(self):
        for option in ("--hide", "--quit"):
            with self.subTest(option):
                self.assertEqual(self.korvane.command(option), (0, ""))

    def test_a_data_folder_that_cannot_be_made_is_no_reason_not_to_run(self):
        data = self.korvane.home / "data"
        data.write_text("somebody's file")
        self.korvane.start()
        for text in ("older", "newer"):
            self.clipboard.set(text)
            self.korvane.turn()
        self.korvane.open()
        self.keys.press("Down")
        wait_for("the older is chosen", lambda: self.clipboard.get() == b"older")
        self.assertEqual(data.read_text(), "somebody's file")
        self.assertIn(f"cannot write to {data}/com.VNT.Korvane, so the history is not kept", self.korvane.log())

    def test_another_program_on_the_same_history(self):
        self.korvane.start()
        elsewhere = self.korvane.home / "elsewhere"
        elsewhere.mkdir(mode=0o700)
        self.environment = {**self.environment, "XDG_RUNTIME_DIR": str(elsewhere)}
        folder = self.korvane.home / "data/com.VNT.Korvane"
        line = f"korvane: another Korvane uses the history in {folder}; it was started with another XDG_RUNTIME_DIR"
        self.expect(1, line)
        self.expect(1, line, "--quit")
        self.assertTrue(self.korvane.is_running())
