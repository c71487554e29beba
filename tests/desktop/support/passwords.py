"""KeePassXC with one entry, unlocked."""

import subprocess

from support.programs import Program

MASTER = b"master password\n"
SETTINGS = """[General]
ConfigVersion=2
UpdateCheckMessageShown=true
SingleInstance=false
[GUI]
CheckForUpdates=false
[Security]
ClearClipboard=false
"""


class KeePassXC(Program):
    """The password has been copied once when it is made: make it before Korvane starts, for nothing
    else tells that the data base is open and its entry chosen."""

    def __init__(self, desk, password):
        database = desk.folder / "secrets.kdbx"
        # A tenth of a second of key derivation: the least that it allows.
        tool(["db-create", "-p", "-t", "100", database], MASTER + MASTER)
        tool(["add", "-q", "-u", "somebody", "-p", database, "Bank"], MASTER + password.encode() + b"\n")
        settings = desk.home / ".config/keepassxc/keepassxc.ini"
        settings.parent.mkdir(parents=True, exist_ok=True)
        settings.write_text(SETTINGS)
        super().__init__(desk, ["keepassxc", "--pw-stdin", str(database)], "keepassxc", stdin=MASTER)
        self.to_front()
        desk.keys.press_until("the password is copied", ["Control_L", "c"],
                              lambda: desk.clipboard.get() == password.encode())

    def copy_password(self):
        self.desk.keys.press("Control_L", "c")


def tool(arguments, answers):
    subprocess.run(["keepassxc-cli", *map(str, arguments)], input=answers, check=True, timeout=60, capture_output=True)
