"""The chevrons over the ends of the list, with the pointer of the server."""

import time

from support.case import DesktopTest
from support.history import clip
from support.panel_parts import PanelParts, shift
from support.tray import Tray
from support.waiting import wait_for

WHEEL_UP, WHEEL_DOWN = 4, 5


class ChevronTest(DesktopTest):
    def open(self, clips=60, **preferences):
        tray = Tray(self.desk)
        self.start_korvane([clip(f"{number} of the clips") for number in range(clips)], **preferences)
        tray.icon()  # from now on the panel opens at the same place each time
        self.parts = PanelParts(self.screen, self.korvane.open())
        # They are painted with the list.
        wait_for("the chevrons", lambda: self.parts.chevrons() == ("down" if clips > 15 else ""))

    def point_at(self, chevron):
        """Moves the pointer over a chevron, from outside of the list."""
        self.keys.point(self.parts.box.x + 180, self.parts.box.bottom - 10)
        self.keys.point(*chevron.middle)

    def expect_rest(self, seconds=0.3):
        """Nothing that is seen of the list changes for a while."""
        before = self.parts.look()
        deadline = time.monotonic() + seconds
        while time.monotonic() < deadline:
            self.assertEqual(self.parts.look(), before, "the list still moves")

    def expect_shift(self, before, points):
        wait_for(lambda: f"the list has moved by {points}; it has by {shift(before, self.parts.look())}",
                 lambda: shift(before, self.parts.look()) == points)
        self.expect_rest()

    def test_a_list_that_fits_has_none(self):
        self.open(clips=3)
        self.assertEqual(self.parts.chevrons(), "")

    def test_at_the_top_there_is_one_at_the_bottom_and_further_down_there_are_both(self):
        self.open()
        self.keys.click(self.parts.list.x + 20, self.parts.list.middle[1], button=WHEEL_DOWN)
        wait_for("both chevrons", lambda: self.parts.chevrons() == "up down")

    def test_the_pointer_on_it_scrolls_to_the_end_where_it_disappears(self):
        self.open(clips=25)
        before = self.parts.look()

        self.point_at(self.parts.down)
        wait_for("the list moves", lambda: self.parts.look() != before)
        self.wait_until_at_rest()

        wait_for("the lower chevron has gone", lambda: self.parts.chevrons() == "up")
        self.expect_rest()
        most = 25 * 50 - 2 + 8 - self.parts.list.height
        self.assertIn(shift(before, self.parts.look()), range(most - 3, most + 1))

    def test_the_one_at_the_top_scrolls_back_to_the_top(self):
        self.open()
        before = self.parts.look()
        self.keys.click(*self.parts.down.middle, button=WHEEL_DOWN)

        wait_for("the list is scrolled", lambda: self.parts.chevrons() == "up down")
        scrolled = self.parts.look()

        self.point_at(self.parts.up)
        wait_for("the list moves", lambda: self.parts.look() != scrolled)
        self.wait_until_at_rest()

        wait_for("the upper chevron has gone", lambda: self.parts.chevrons() == "down")
        self.assertIn(shift(before, self.parts.look()), range(4))

    def test_leaving_it_stops_the_list(self):
        self.open(clips=400)
        before = self.parts.look()
        self.point_at(self.parts.down)
        wait_for("the list moves", lambda: self.parts.look() != before)

        self.keys.point(self.parts.box.x + 180, self.parts.box.bottom - 10)

        self.wait_until_at_rest()
        self.expect_rest()
        self.assertEqual(self.parts.chevrons(), "up down")

    def test_it_scrolls_by_four_points_sixty_times_a_second(self):
        self.open(clips=400)
        before = self.parts.look()
        self.point_at(self.parts.down)
        wait_for("the list moves", lambda: self.parts.look() != before)

        began = time.monotonic()
        first, second = self.parts.look(), self.look_after(1)
        ended = time.monotonic()

        moved = shift(first, second)
        self.assertEqual(moved % 4, 0)
        # What is seen may lag by some frames; where other programs have the processor it is slower.
        self.assertLessEqual(moved, 240 * (ended - began + 0.2))
        self.assertGreater(moved, 240 / 2)

    def look_after(self, seconds):
        due = time.monotonic() + seconds
        wait_for("the time has passed", lambda: time.monotonic() >= due)
        return self.parts.look()

    def test_a_preference_that_becomes_click_stops_it_under_the_resting_pointer(self):
        self.open(clips=400)
        before = self.parts.look()
        self.point_at(self.parts.down)
        wait_for("the list moves", lambda: self.parts.look() != before)

        self.korvane.set_preferences(chevronActivation="click")

        self.wait_until_at_rest()
        self.expect_rest()
        self.assertEqual(self.parts.chevrons(), "up down")

    def wait_until_at_rest(self):
        """Until two looks, a tick and more apart, show the same."""
        def is_at_rest():
            before = self.parts.look()
            return self.look_after(0.1) == before

        wait_for("the list has come to rest", is_at_rest, 30)

    def test_the_panel_that_closes_under_the_pointer_opens_at_the_top_and_rests(self):
        self.open(clips=400)
        before = self.parts.look()
        self.point_at(self.parts.down)
        wait_for("the list moves", lambda: self.parts.look() != before)

        self.korvane.close()
        self.korvane.open()

        wait_for("the list is at its top", lambda: self.parts.look() == before)
        self.expect_rest()
        # The pointer that has rested there so far is moved.
        self.keys.point(self.parts.down.middle[0] + 3, self.parts.down.middle[1])
        wait_for("the list moves", lambda: self.parts.look() != before)

    def test_a_click_scrolls_by_two_hundred_points_and_copies_nothing(self):
        self.open(chevronActivation="click")
        before = self.parts.look()
        self.clipboard.set("foreign")
        self.history.wait_for("the copy", lambda clips: clips[0]["text"] == "foreign")
        wait_for("the new row", lambda: shift(before, self.parts.look()) == -50)
        before = self.parts.look()

        self.keys.click(*self.parts.down.middle)
        self.expect_shift(before, 200)
        self.keys.click(*self.parts.up.middle)
        self.expect_shift(before, 0)

        self.assertTrue(self.korvane.is_open())
        self.assertEqual(self.clipboard.get(), b"foreign")

    def test_a_click_near_the_end_scrolls_to_the_end_only(self):
        self.open(clips=20, chevronActivation="click")
        before = self.parts.look()
        most = 20 * 50 - 2 + 8 - self.parts.list.height
        self.assertLess(most, 400)

        for _ in range(2 if most > 200 else 1):
            self.keys.click(*self.parts.down.middle)
            self.wait_until_at_rest()

        self.expect_shift(before, most)
        self.assertEqual(self.parts.chevrons(), "up")

    def test_in_click_mode_resting_on_it_scrolls_nothing(self):
        self.open(chevronActivation="click")
        self.point_at(self.parts.down)
        self.expect_rest()

    def test_the_wheel_over_it_scrolls_the_list(self):
        self.open(chevronActivation="click")
        before = self.parts.look()
        self.keys.click(*self.parts.down.middle, button=WHEEL_DOWN)
        self.expect_shift(before, 100)
