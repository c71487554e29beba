"""The preview beside the panel: what opens and closes it, whose the keyboard is, and where it stands."""

from support.case import DesktopTest
from support.display import Box
from support.editors import Mousepad
from support.history import clip
from support.monitors import Monitors
from support.programs import Program
from support.tray import Tray
from support.waiting import wait_for
from support.windows import BarBelow, PlainWindow

TITLE = "Preview — Korvane"
SCREEN = Box(0, 0, 1440, 900)
PANEL = 360
WIDTH = 484
GAP = 8
# Where the list begins, and where the middle of its first row is, from the panel's upper edge.
LIST_TOP = 121
FIRST_ROW = LIST_TOP + 4 + 24
PITCH = 50
LINE = 18
# The room that a shadow takes on the left, on top, on the right and below.
SHADOW = (32, 22, 32, 46)
# Letters are darker than this, on a ground that is nearly white.
DARK = 140
LONG = "".join(f"line {number}\n" for number in range(1, 500))


class PreviewTest(DesktopTest):
    def preview(self):
        """Where the preview is on the screen; None while it is not shown."""
        found = self.screen.find("korvane", title=TITLE, depth=1)
        return self.screen.box(found[0]) if found else None

    def wait_until_shown(self):
        return wait_for("the preview is shown", self.preview)

    def wait_until_hidden(self):
        wait_for("the preview is hidden", lambda: self.preview() is None)

    def show(self):
        self.keys.press("space")
        return self.wait_until_shown()

    def start(self, *clips, **preferences):
        self.start_korvane([clip(text) if isinstance(text, str) else text for text in clips], **preferences)

    def is_away_from_the_edges(self, icon):
        """Whether both sides of a panel that is centred below the icon have room for the preview."""
        reach = PANEL // 2 + GAP + WIDTH + 4
        return reach <= icon.middle[0] <= SCREEN.width - reach

    def open_below_icon(self, is_there):
        """Opens the panel below its icon, once that stands where it is expected; where the panel is."""
        wait_for(lambda: f"the icon has its place; it stands at {self.tray.icon()}", lambda: is_there(self.tray.icon()))
        self.tray.click()
        box = self.korvane.wait_until_open()
        # The bar explains an icon that the pointer rests on.
        self.keys.point(700, 800)
        return box

    def wait_until_painted(self, box):
        """Waits until there are letters on the ground; a window that was never painted may be black."""
        wait_for("the text is painted", lambda: 5 < self.ink(box) < box.width * box.height / 2)

    def ink(self, box):
        """How many pixels are of letters, not of the light ground."""
        rows = [bytes(row) for row in self.screen.pixels(box)]
        return sum(max(row[at:at + 3]) < DARK for row in rows for at in range(0, len(row), 4))


class PreviewKeysTest(PreviewTest):
    def setUp(self):
        super().setUp()
        self.editor = Mousepad(self.desk)
        self.start("one", "two", "three")
        self.korvane.open()

    def expect_on_clipboard(self, text):
        wait_for(lambda: f"{text!r} on the clipboard; there is {self.clipboard.get()!r}",
                 lambda: self.clipboard.get() == text.encode())

    def test_space_opens_it_and_space_again_closes_it(self):
        for _ in range(3):
            self.show()
            self.keys.press("space")
            self.wait_until_hidden()
        self.assertTrue(self.korvane.has_keyboard())

    def test_the_clips_text_is_painted_in_it(self):
        box = self.show()
        self.wait_until_painted(box)

    def test_the_arrows_close_it_and_move_the_selection(self):
        self.show()
        self.keys.press("Down")
        self.wait_until_hidden()
        self.expect_on_clipboard("two")
        self.show()
        self.keys.press("Up")
        self.wait_until_hidden()
        self.expect_on_clipboard("one")

    def test_tab_closes_it(self):
        self.show()
        self.keys.press("Tab")
        self.wait_until_hidden()
        self.assertTrue(self.korvane.is_open())

    def test_escape_closes_it_with_the_panel(self):
        self.show()
        self.keys.press("Escape")
        self.wait_until_hidden()
        self.korvane.wait_until_closed()
        wait_for("the editor is in front", self.editor.is_in_front)

    def test_escape_that_clears_the_search_leaves_it_open(self):
        self.keys.type("tw")
        self.show()
        self.keys.press("Escape")
        self.keys.press("Control_L", "p")
        self.history.wait_for("the key was heard", lambda clips: any(c["isPinned"] for c in clips))
        self.assertIsNotNone(self.preview())
        self.assertTrue(self.korvane.is_open())

    def test_typing_goes_on_filtering_while_it_is_open(self):
        box = self.show()
        self.keys.type("thr")
        self.keys.press("Control_L", "p")
        self.history.wait_for("the first hit is pinned",
                              lambda clips: [c["text"] for c in clips if c["isPinned"]] == ["three"])
        self.assertEqual(self.preview(), box)

    def test_it_never_has_the_keyboard_and_is_never_the_active_window(self):
        active = self.screen.active()
        box = self.show()
        self.assertTrue(self.korvane.has_keyboard())
        self.keys.point(*box.middle)
        self.keys.type("tw")
        self.keys.press("Down")
        self.expect_on_clipboard("two")
        self.assertTrue(self.korvane.has_keyboard())
        self.assertEqual(self.screen.active(), active)

    def test_a_click_in_it_does_nothing(self):
        box = self.show()
        for button in (1, 3, 2, 4, 5):
            self.keys.click(*box.middle, button=button)
        self.keys.type("tw")
        self.keys.press("Control_L", "p")
        self.history.wait_for("the panel hears the keys",
                              lambda clips: [c["text"] for c in clips if c["isPinned"]] == ["two"])
        self.assertEqual(self.preview(), box)
        self.assertTrue(self.korvane.has_keyboard())

    def test_a_click_elsewhere_closes_both(self):
        self.show()
        self.keys.click(5, 890)
        self.wait_until_hidden()
        self.korvane.wait_until_closed()

    def test_return_closes_it_and_pastes(self):
        self.show()
        self.keys.press("Return")
        self.wait_until_hidden()
        self.korvane.wait_until_closed()
        self.editor.shows("one")

    def test_quick_look_in_a_rows_menu_opens_it(self):
        self.keys.press("Down")
        self.expect_on_clipboard("two")
        before = self.shown()
        self.keys.press("Menu")
        menu = wait_for("the menu opens", lambda: self.shown() - before)
        # From the menu's end: "Delete", then "Quick Look".
        self.keys.press("Up")
        self.keys.press("Up")
        self.keys.press("Return")
        wait_for("the menu closes", lambda: not menu & self.shown())
        self.wait_until_shown()
        self.keys.press("space")
        self.wait_until_hidden()

    def shown(self):
        """The numbers of the windows on the screen."""
        return {window.id for window in self.screen.below(self.screen.root, 1) if self.screen.is_viewable(window)}

    def test_it_is_stacked_above_the_panel_also_when_the_panel_is_raised(self):
        self.show()
        preview = self.screen.find("korvane", title=TITLE, depth=1)[0]

        def order():
            numbers = [window.id for window in self.screen.below(self.screen.root, 1)]
            return numbers.index(preview.id) > numbers.index(self.korvane.panel().id)

        self.assertTrue(order())
        self.korvane.command("--show")
        wait_for("the panel is raised, and the preview again above it", order)
        self.assertTrue(self.korvane.has_keyboard())

    def test_it_stays_hidden_at_the_next_opening(self):
        self.show()
        self.korvane.close()
        self.korvane.open()
        self.assertIsNone(self.preview())
        self.show()


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
        Program(self.desk, ["picom", "--config", "/dev/null", "--backend", "xrender"])
        wait_for("a compositor", lambda: self.screen.owner("_NET_WM_CM_S0"))

        self.korvane.open()
        whole = self.show()

        left, top, right, bottom = SHADOW
        self.assertEqual(whole, Box(plain.x - left, plain.y - top, plain.width + left + right, plain.height + top + bottom))
        below = Box(plain.middle[0], plain.bottom + 4, 1, 1)
        wait_for("the shadow darkens what is below", lambda: bytes(self.screen.pixels(below)[0])[0] < 245)

    def test_a_click_on_the_shadow_goes_to_what_is_behind_it(self):
        self.open("one\ntwo\nthree")
        Program(self.desk, ["picom", "--config", "/dev/null", "--backend", "xrender"])
        wait_for("a compositor", lambda: self.screen.owner("_NET_WM_CM_S0"))
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
        # The icon is the last one, or its place is not known yet.
        self.start("one", panelAlignment="right", previewSide="right")
        panel = self.korvane.open()
        self.assertEqual(panel.right, SCREEN.width - 8)
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
