"""The tool that makes pictures of the panel: it holds what it shows, and says what it could not show."""

import os
import pathlib
import subprocess
import tempfile
import unittest

from support import png
from support.painted import LIGHT

TOOL = str(pathlib.Path(__file__).resolve().parents[2] / "tools/screenshots")
# The panel of the typical history, in points, and the desktop around it.
WIDTH, HEIGHT, AROUND = 360, 8 * 50 + 170, 44


class ScreenshotsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="korvane-test.")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def take(self, *words, **environment):
        """The tool's exit status and what it printed."""
        answer = subprocess.run([TOOL, "--into", self.folder, *words], env={**os.environ, **environment},
                                capture_output=True, text=True, check=False, timeout=120)
        return answer.returncode, answer.stdout + answer.stderr

    def names(self):
        return sorted(path.name for path in self.folder.iterdir())

    def test_the_typical_picture_shows_the_whole_panel_with_its_texts_and_colours(self):
        status, said = self.take("typical-light-1x")
        self.assertEqual(status, 0, said)
        self.assertEqual(self.names(), ["typical-light-1x.png"])
        rows = png.read(self.folder / "typical-light-1x.png")
        width, height = len(rows[0]) // 4, len(rows)
        self.assertIn(f"typical-light-1x.png: {width}×{height} pixels", said.splitlines())
        # The bar above it is narrower than what is shown of the desktop elsewhere.
        self.assertEqual(width, WIDTH + 2 * AROUND)
        self.assertTrue(HEIGHT + AROUND < height < HEIGHT + 2 * AROUND, height)

        panel = [row[AROUND * 4:-AROUND * 4] for row in rows[height - AROUND - HEIGHT:height - AROUND]]
        self.assertGreater(share(panel, LIGHT["ground"], 12), 0.6)
        self.assertGreater(share(panel, LIGHT["text"], 12) * WIDTH * HEIGHT, 1000)
        # The chosen tab, left in the bar of tabs, and one row of eight.
        self.assertGreater(share([row[:80 * 4] for row in panel[82:118]], LIGHT["accent"], 4), 0.3)
        self.assertGreater(share(panel, LIGHT["selection"], 8), 0.06)
        # Beside it is the desktop, not the panel.
        self.assertEqual(share([row[:8 * 4] for row in rows[200:]], LIGHT["ground"], 12), 0)

    def test_at_scale_two_everything_is_twice_as_large(self):
        status, said = self.take("typical-dark-2x")
        self.assertEqual(status, 0, said)
        self.assertEqual(len(png.read(self.folder / "typical-dark-2x.png")[0]) // 4, 2 * (WIDTH + 2 * AROUND))

    def test_a_scene_that_is_not_reached_is_told_and_ends_it_with_a_failure(self):
        status, said = self.take("typical-light-1x", KORVANE="/bin/true")
        self.assertEqual(status, 1, said)
        self.assertIn("typical-light-1x.png: FAILED, not observed", said)
        self.assertEqual(self.names(), ["failed-typical-light-1x.png"])

    def test_a_word_that_no_picture_has_in_its_name_is_refused(self):
        status, said = self.take("no-such-picture")
        self.assertEqual(status, 2, said)
        self.assertEqual(self.names(), [])

    def test_each_state_has_a_picture_in_both_themes(self):
        status, said = self.take("--list")
        self.assertEqual(status, 0, said)
        names = said.split()
        self.assertEqual(len(names), len(set(names)))
        self.assertEqual([name.replace("-light-", "-dark-") for name in names if "-light-" in name],
                         [name for name in names if "-dark-" in name])


    def test_whoever_looks_sees_each_state_in_both_themes_and_sizes(self):
        names = set(self.take("--list")[1].split())
        states = ("empty", "typical", "odd-texts", "search-none", "private", "full-90", "renaming", "context-menu",
                  "preview-right", "preview-left", "settings-general", "settings-help", "settings-about",
                  *(f"tab-{tab}" for tab in ("pinned", "text", "url", "code", "email", "files", "emoji", "large")))
        expected = {f"{state}-{theme}-{scale}x.png"
                    for state in states for theme in ("light", "dark") for scale in (1, 2)}
        self.assertEqual(expected - names, set())


def share(rows, colour, tolerance):
    """How much of some rows of pixels is of about a colour, from 0 to 1."""
    red, green, blue = colour
    counted = sum(abs(row[at] - blue) <= tolerance and abs(row[at + 1] - green) <= tolerance
                  and abs(row[at + 2] - red) <= tolerance for row in rows for at in range(0, len(row), 4))
    return counted * 4 / sum(map(len, rows))
