"""What a user does in a scene, and what is waited for. Each function makes a step; a step is given the stage.

Places are in points from the panel's top left corner; what is less than nothing counts from the other side."""

from support.display import Box
from support.painting import wait_until_at_rest
from support.waiting import wait_for

PANEL = 360
LIST_TOP, FOOTER = 121, 43
ROW, PITCH, PADDING = 48, 50, 4
# Where the header's buttons are: the private mode's, the settings', the menu's.
LOCK, GEAR, MENU = (-82, 21), (-52, 21), (-22, 21)
# The middles of the chevrons, which stand over the list's edges.
DOWN_CHEVRON, UP_CHEVRON = (PANEL / 2, -FOOTER - 16), (PANEL / 2, LIST_TOP + 16)
# A tab that is not chosen is this wide, and at least and at most so far from the next.
CHIP, CHIPS_LEFT, CHIP_PITCH = 29, 10, 34.5


def row(number):
    """The middle of a row of a list that is at its top; rows count from 0."""
    return PANEL / 2, LIST_TOP + PADDING + PITCH * number + ROW / 2


def tab(number):
    """A tab to the right of the chosen one, which is the first."""
    return -CHIPS_LEFT - CHIP / 2 - (8 - number) * 33.5, 98


# --- what the user does

def press(*chord, times=1):
    return lambda stage: [stage.keys.press(*chord) for _ in range(times)]


def enter(text):
    return lambda stage: stage.keys.type(text)


def point(place):
    """Moves the pointer there, and waits until what it is on shows that."""
    return until_different(place, lambda stage: stage.keys.point(*stage.at(*place)))


def click(place, button=1):
    return lambda stage: stage.keys.click(*stage.at(*place), button=button)


def hold(place):
    """Presses the mouse button, and waits until that is seen; it is let go when the picture has been taken."""
    def step(stage):
        stage.keys.hold_button()
        stage.buttons.append(1)

    return lambda stage: (point(place)(stage), until_different(place, step)(stage))


def wheel(notches):
    """Turns the wheel over the list, downward."""
    def step(stage):
        for _ in range(notches):
            stage.keys.click(*stage.at(*row(1)), button=5)
        stage.rest_pointer()

    return step


def settings_page(letter, notches=0):
    """Opens the settings by the panel's button, closes the panel, and goes to the page of a letter; the wheel
    is turned so often over it."""
    def step(stage):
        click(GEAR)(stage)
        wait_for("the settings window has the keyboard", lambda: stage.settings() and stage.screen.has_keyboard(stage.settings()))
        stage.korvane.command("--hide")
        stage.korvane.wait_until_closed()
        wait_for("it still has the keyboard", lambda: stage.screen.has_keyboard(stage.settings()))
        stage.keys.press("Alt_L", letter)
        wait_until_at_rest(stage.screen)
        box = stage.screen.box(stage.settings())
        for _ in range(notches):
            stage.keys.click(box.x + 6, box.bottom - 40, button=5)
        stage.rest_pointer()
        top = Box(box.x, box.y + round(70 * stage.scale), box.width, round(200 * stage.scale))
        wait_for("the page is painted", lambda: stage.has_ink(top))

    return step


def until_at_rest():
    return lambda stage: wait_until_at_rest(stage.screen)


def until_dialog(title):
    """That an alert or a dialog has the keyboard and is painted."""
    def look(stage):
        found = stage.managed(title)
        return found and stage.screen.has_keyboard(found[0]) and stage.has_ink(stage.screen.box(found[0]))

    def step(stage):
        stage.dialogs.append(title)
        until(f"{title!r} is open", look)(stage)

    return step


def tab_key(times):
    """Presses the Tab key in the settings window, where the ring of the focus is seen."""
    return lambda stage: [stage.keys.press("Tab") for _ in range(times)]


# --- what is waited for

def until(what, look):
    """Waits until `look`, which is given the stage, answers true."""
    return lambda stage: wait_for(what, lambda: look(stage))


def until_different(place, act):
    """Does something, and waits until the panel looks different around a place."""
    def step(stage):
        x, y = stage.at(*place)
        wide, high = round(8 * stage.scale), round((ROW / 2 + 2) * stage.scale)
        around = Box(x - wide, y - high, 2 * wide, 2 * high).within(stage.panel())
        before = stage.screen.pixels(around)
        act(stage)
        wait_for(f"something changes at {place}", lambda: stage.screen.pixels(around) != before)

    return step


def until_selected(number):
    def look(stage):
        middle = stage.painted().selected_row()
        return middle is not None and abs(middle / stage.scale - row(number)[1]) < 3

    return until(f"row {number + 1} is painted as the selected one", look)


def until_rows(count):
    """That so many rows are painted, by their symbols; at most as many as are seen at once."""
    def symbol(stage, number):
        top = row(number)[1] - 10
        is_seen = (top + 20) * stage.scale < stage.panel().height - FOOTER * stage.scale
        return is_seen and stage.has_ink(stage.part(22, top, 16, 20))

    return until(f"{count} rows are painted",
                 lambda stage: all(symbol(stage, number) for number in range(count)) and not symbol(stage, count))


def until_tab(number):
    """That the tab of this number has the chip with the accent."""
    def look(stage):
        bar = stage.part(0, 82, PANEL, 36)
        painted = stage.painted(bar)
        lines = stage.screen.pixels(bar)[bar.height // 2 - 8:bar.height // 2 - 4]
        columns = [column for line in lines for column, pixel in enumerate(memoryview(line).cast("I"))
                   if painted.is_about(pixel, "accent")]
        return columns and round((min(columns) / stage.scale - CHIPS_LEFT) / CHIP_PITCH) == number

    return until(f"tab {number + 1} is painted as the chosen one", look)


def until_colour(name, x, y, width, height):
    return until(f"something {name} at {x}, {y}", lambda stage: stage.has_colour(name, stage.part(x, y, width, height)))


def until_ink(what, x, y, width, height):
    return until(what, lambda stage: stage.has_ink(stage.part(x, y, width, height)))


def until_chevron(place):
    def look(stage):
        symbol = stage.part(place[0] - 7, place[1] - 7, 14, 14)
        return stage.has_ink(symbol) and stage.is_mirrored(symbol)

    return until(f"the chevron at {place} is painted", look)


def until_hint():
    """That a list without rows says something in its middle."""
    def look(stage):
        height = stage.panel().height / stage.scale - LIST_TOP - FOOTER
        return stage.has_ink(stage.part(60, LIST_TOP + height / 2 - 30, PANEL - 120, 60))

    return until("a hint in the middle of the list", look)


def until_opened(what):
    """That a window beside the panel is open and painted."""
    return until(f"{what} is open", lambda stage: len(stage.others()) == 1
                 and stage.has_ink(stage.screen.frame(stage.others()[0]).within(stage.screen.all())))


def until_preview(side):
    def look(stage):
        panel, others = stage.panel(), [stage.screen.frame(window) for window in stage.others()]
        if len(others) != 1 or abs(others[0].width / stage.scale - 484) > 1:
            return False
        stands = others[0].x > panel.right if side == "right" else others[0].right < panel.x
        return stands and stage.has_ink(others[0])

    return until(f"the preview is open on the {side}", look)
