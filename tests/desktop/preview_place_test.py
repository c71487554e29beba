"""Where the preview stands, and how it looks there."""

from support.compositor import Compositor
from support.display import Box
from support.monitors import Monitors
from support.preview import FIRST_ROW, GAP, LINE, LIST_TOP, LONG, PANEL, PITCH, SCREEN, SHADOW, WIDTH, PreviewTest
from support.tray import Tray
from support.waiting import wait_for
from support.windows import BarBelow, PlainWindow


class PreviewPlaceTest(PreviewTest):
    """Away from the screen's edges, below the icon."""

    def setUp(self):
        super().setUp()
        self.tray = Tray(self.desk)
        if self.desk.kind == "i3":
            self.tray.fill(13)

    def open(self, *clips, **preferences):
        self.start(*clips, **preferences)
        return self.open_below_icon(self.is_away_from_the_edges)

    def test_it_is_as_high_as_its_text(self):
        self.open("one")
        self.assertEqual((self.show().width, self.preview().height), (WIDTH, LINE + 24))

    def test_in_the_middle_it_is_centred_on_the_panel(self):
        panel = self.open("one\ntwo", "two", "three")
        box = self.show()
        self.assertLessEqual(abs(box.y + box.height / 2 - (panel.y + panel.height / 2)), 0.5)

    def test_at_the_top_it_lines_up_with_the_list(self):
        panel = self.open("one\ntwo", "two", "three", previewPosition="top")
        self.assertEqual(self.show().y, panel.y + LIST_TOP)

    def test_following_it_is_centred_on_the_selected_row(self):
        panel = self.open("one\ntwo", "two\nthree", "three\nfour", previewPosition="follow")
        for row, key in enumerate((None, "Down", "Down")):
            if key:
                self.keys.press(key)
                self.wait_until_hidden()
            box = self.show()
            self.assertEqual(box.middle[1], panel.y + FIRST_ROW + row * PITCH, f"row {row}")

    def test_a_long_text_takes_the_screens_height_less_sixteen(self):
        self.open(LONG)
        top = self.screen.top_bar()
        box = self.show()
        self.assertEqual(box.height, SCREEN.height - top - 16)
        self.assertGreaterEqual(box.y, top + 4)
        self.assertLessEqual(box.bottom, SCREEN.height - 4)

    def test_the_room_of_a_bar_at_the_lower_edge_is_respected(self):
        self.open(LONG)
        before = self.show()
        self.keys.press("space")
        self.wait_until_hidden()
        BarBelow(self.desk, Box(0, SCREEN.height - 60, SCREEN.width, 60), colour=0x445566)
        after = self.show()
        self.assertEqual(after.height, before.height - 60)
        self.assertLessEqual(after.bottom, SCREEN.height - 60 - 4)

    def test_a_long_text_fades_out_at_its_lower_edge(self):
        self.open(LONG)
        box = self.show()
        inside = Box(box.x + 12, box.y + 12, WIDTH - 24, box.height - 24)
        upper = Box(inside.x, inside.y, inside.width, 36)
        lower = Box(inside.x, inside.bottom - 16, inside.width, 16)
        self.wait_until_painted(upper)
        self.assertEqual(self.ink(lower), 0)

    def test_a_compositor_gives_it_a_shadow(self):
        PlainWindow(self.desk, SCREEN)
        self.open("one\ntwo\nthree")
        plain = self.show()
        self.korvane.close()
        Compositor(self.desk)

        self.korvane.open()
        whole = self.show()

        left, top, right, bottom = SHADOW
        self.assertEqual(whole, Box(plain.x - left, plain.y - top, plain.width + left + right, plain.height + top + bottom))
        below = Box(plain.middle[0], plain.bottom + 4, 1, 1)
        wait_for("the shadow darkens what is below", lambda: bytes(self.screen.pixels(below)[0])[0] < 245)

    def test_a_click_on_the_shadow_goes_to_what_is_behind_it(self):
        self.open("one\ntwo\nthree")
        Compositor(self.desk)
        whole = self.show()
        self.keys.click(whole.middle[0], whole.bottom - 20)
        self.korvane.wait_until_closed()
        self.wait_until_hidden()

    def test_it_stands_on_the_side_that_is_wished_where_both_have_room(self):
        panel = self.open("one", previewSide="left")
        self.assertEqual(self.show().right, panel.x - GAP)
        self.keys.press("space")
        self.wait_until_hidden()

        self.korvane.set_preferences(previewSide="right")

        def opens_on_the_right():
            box = self.show()
            self.keys.press("space")
            self.wait_until_hidden()
            return box.x == panel.right + GAP

        wait_for("the preview opens on the right", opens_on_the_right)


class PreviewFallbackTest(PreviewTest):
    """Where the wished side has no room, and on several monitors."""

    def test_with_the_panel_at_the_right_edge_it_opens_on_the_left_though_the_right_is_wished(self):
        self.start("one", panelAlignment="right", previewSide="right")

        def opened_at_the_edge():
            """The icon is the last one, or its place is not known; i3's bar takes it in a little late."""
            panel = self.korvane.open()
            if panel.right == SCREEN.width - 8:
                return panel
            self.korvane.close()
            return None

        panel = wait_for("the panel opens at the screen's right edge", opened_at_the_edge)
        self.assertEqual(self.show().right, panel.x - GAP)

    def test_with_the_panel_at_the_left_edge_it_opens_on_the_right_though_the_left_is_wished(self):
        self.tray = Tray(self.desk)
        if self.desk.kind == "i3":
            self.tray.fill(50)
            left = 0
        else:
            left = 480
            Monitors(self.desk, Box(left, 0, SCREEN.width - left, SCREEN.height), Box(0, 0, left, SCREEN.height))
        self.start("one", panelAlignment="left", previewSide="left")
        panel = self.open_below_icon(lambda icon: icon.right - left < PANEL + GAP + WIDTH)
        self.assertLess(panel.x - GAP - WIDTH, left + 4)
        self.assertEqual(self.show().x, panel.right + GAP)

    def expect_on_the_monitor(self, narrow, wide, side):
        """Opens both on the wide one of two monitors, where the icon is then; the panel and the preview.
        i3 puts its tray onto the last monitor."""
        self.tray = Tray(self.desk)
        self.start(LONG, previewSide=side)
        Monitors(self.desk, narrow, wide)
        panel = self.open_below_icon(lambda icon: wide.x <= icon.x and icon.right <= wide.right and icon.y < wide.y + 30)
        box = self.show()
        top = wide.y + self.screen.top_bar()
        self.assertEqual(box.height, wide.bottom - top - 16)
        for window, margin in ((panel, 0), (box, 4)):
            self.assertGreaterEqual(window.x, wide.x + margin, f"{window} on {wide}")
            self.assertLessEqual(window.right, wide.right - margin, f"{window} on {wide}")
            self.assertLessEqual(window.bottom, wide.bottom - margin, f"{window} on {wide}")
        self.assertGreaterEqual(box.y, top + 4)
        self.assertIn(panel.right + GAP if box.x > panel.x else panel.x - GAP, (box.x, box.right))
        return panel, box

    def test_it_stays_on_the_icons_monitor_beside_another_one_on_the_left(self):
        panel, box = self.expect_on_the_monitor(Box(0, 300, 480, 600), Box(480, 0, 960, 700), "left")
        self.assertEqual(box.x > panel.x, panel.x - GAP - WIDTH < 484)

    def test_it_stays_on_the_icons_monitor_beside_another_one_on_the_right(self):
        panel, box = self.expect_on_the_monitor(Box(960, 200, 480, 700), Box(0, 0, 960, 800), "right")
        # There would be room on the right, but on the other monitor.
        self.assertLess(box.x, panel.x)
