"""A file manager that shows one folder."""

from support.programs import Program


class FileManager(Program):
    """All of its folder's files are selected, and once copied, when it is made: make it before Korvane
    starts, for nothing else tells that the folder has been read."""

    def __init__(self, desk, folder):
        super().__init__(desk, ["thunar", str(folder)], "thunar", title=folder.name)
        self.to_front()
        before = desk.clipboard.count()
        desk.keys.press_until("all files are selected and copied", ["Control_L", "a"], self.first_copy(before))

    def first_copy(self, before):
        def copied():
            self.desk.keys.press("Control_L", "c")
            return self.desk.clipboard.count() > before

        return copied

    def copy(self):
        self.desk.keys.press("Control_L", "c")
