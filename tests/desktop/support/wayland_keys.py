"""Keyboard and mouse on a Wayland desktop: by a program of ours that the compositor lets be the user's hands."""

import subprocess

# By the kernel's numbers (linux/input-event-codes.h), as they lie on the keyboard of the United States.
NUMBERS = {"Escape": 1, "BackSpace": 14, "Tab": 15, "Return": 28, "Control_L": 29, "Shift_L": 42, "Alt_L": 56, "space": 57,
           "Home": 102, "Up": 103, "Left": 105, "Right": 106, "End": 107, "Down": 108, "Super_L": 125, " ": 57, "-": 12, ".": 52}
for first, row in ((2, "1234567890"), (16, "qwertyuiop"), (30, "asdfghjkl"), (44, "zxcvbnm")):
    NUMBERS.update({letter: first + place for place, letter in enumerate(row)})
BUTTONS = {1: 0x110, 3: 0x111}


class Hands:
    """One for all the tests of a desktop: clients must have heard of a keyboard before its first key."""

    def __init__(self, program, width, height):
        self.process = subprocess.Popen([program, str(width), str(height)], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        text=True, bufsize=1)
        self.held = []
        self.expect_done("the start")

    def do(self, line):
        self.process.stdin.write(line + "\n")
        self.expect_done(line)

    def expect_done(self, what):
        """The compositor has taken it."""
        answer = self.process.stdout.readline().strip()
        assert answer == "ok", f"the hands answer {answer!r} to {what}"

    def hold(self, name):
        self.held.append(name)
        self.do(f"down {NUMBERS[name]}")

    def let_go(self, name):
        self.held.remove(name)
        self.do(f"up {NUMBERS[name]}")

    def let_go_all(self):
        for name in reversed(list(self.held)):
            self.let_go(name)

    def press(self, *names):
        """Presses a chord, the last key being the one that the others modify."""
        for name in names:
            self.do(f"down {NUMBERS[name]}")
        for name in reversed(names):
            self.do(f"up {NUMBERS[name]}")

    def type(self, text):
        for character in text:
            self.press(character)

    def point(self, x, y):
        self.do(f"move {x} {y}")

    def click(self, x, y, button=1):
        self.point(x, y)
        self.do(f"press {BUTTONS[button]}")
        self.do(f"release {BUTTONS[button]}")
