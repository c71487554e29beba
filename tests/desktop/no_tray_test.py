"""A desktop that has no tray."""

from support.bare import BareDesktop
from support.case import DesktopTest
from support.display import Box
from support.history import clip
from support.pseudo_terminal import PseudoTerminal
from support.waiting import wait_for

LINE = "Korvane: there is no tray; korvane --show opens the panel\n"
# The right end of the work area's top, which is the whole screen here, with the panel's margin.
CORNER = Box(1440 - 8 - 360, 0, 360, 320)


class NoTrayTest(DesktopTest):
    def setUp(self):
        self.addCleanup(BareDesktop().end)
        super().setUp()

    def test_one_line_says_so_and_the_program_runs_on(self):
        terminal = PseudoTerminal()
        self.addCleanup(terminal.close)
        self.start_korvane(stderr=terminal.programs)
        wait_for(lambda: f"the line; there is {terminal.text()!r}", lambda: LINE in terminal.text())

        self.clipboard.set("captured all the same")
        self.history.wait_for_texts(["captured all the same"])
        self.korvane.open()
        self.korvane.close()

        self.assertEqual(terminal.text(), LINE)
        self.assertTrue(self.korvane.is_running())

    def test_show_opens_the_panel_at_the_right_end_of_the_screens_top(self):
        self.start_korvane([clip(text) for text in ("one", "two", "three")])
        for alignment in ("middle", "left", "right"):
            with self.subTest(alignment):
                self.korvane.set_preferences(panelAlignment=alignment)
                self.assertEqual(self.korvane.command("--show"), (0, ""))
                self.assertEqual(self.korvane.wait_until_open(), CORNER)
                self.korvane.close()

    def test_the_shortcut_opens_it_there_too(self):
        self.start_korvane([clip(text) for text in ("one", "two", "three")])
        self.assertEqual(self.korvane.open(), CORNER)
