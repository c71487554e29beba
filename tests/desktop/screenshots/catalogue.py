"""Every scene, in the order in which they are played, and which of them the README shows."""

from screenshots import histories
from screenshots.scene import Scene
from screenshots.steps import (DOWN_CHEVRON, LOCK, MENU, UP_CHEVRON, click, enter, hold, point, press, row, settings_page, tab,
                               tab_key, until, until_at_rest, until_chevron, until_colour, until_dialog, until_hint, until_ink,
                               until_opened, until_preview, until_rows, until_selected, until_tab, wheel)

BOTH = (1, 2)
EVERY = (1, 1.25, 1.5, 2)
TABS = ("pinned", "text", "url", "code", "email", "files", "emoji", "large")
HEADER, TOTALS = (0, 0, 360, 42), (10, -33, 200, 24)
# The rows of the typical history that each tab shows.
ROWS_OF_TAB = {"pinned": 1, "text": 4, "url": 1, "code": 1, "email": 1, "files": 1, "emoji": 1, "large": 1}
RENAME = 3  # how often the down key is pressed from the first line of a row's menu to "Rename..."

SOUNDS = {"playSoundOnCopy": True, "playSoundOnSelect": True, "playSoundOnPaste": True, "pasteSoundName": "Frog"}
IGNORED = {"ignoredBundleIDs": ["org.xfce.mousepad", "featherpad", "org.example.Gone"]}

RECORDER = (settings_page("s"), tab_key(1), press("space"), until_at_rest())
SECOND = (press("Down"), until_selected(1))
PREVIEW_RIGHT = (*SECOND, press("space"), until_preview("right"))
PREVIEW_LEFT = (press("Down", times=3), until_selected(3), press("space"), until_preview("left"))
CONTEXT_MENU = (*SECOND, click(row(2), button=3), until_opened("the row's menu"))
CLOSED = until("the menu is closed", lambda stage: not stage.others())
RENAMING = (press("Down", times=2), until_selected(2), press("Shift_L", "F10"), until_opened("the row's menu"),
            press("Home"), press("Down", times=RENAME), press("Return"), CLOSED, until_colour("accent", 50, row(2)[1] - 16, 200, 17))
CHEVRONS = (until_chevron(UP_CHEVRON), until_chevron(DOWN_CHEVRON))
TYPICAL = (*SECOND, point(row(3)), until_rows(8))


def full(name, count, most, colour):
    return Scene(f"full-{name}", histories.numbered(count), (until_rows(count), *colour),
                 scales=BOTH, preferences={"maxClips": most, "maxTotalSizeMB": 10000})


def of_tab(number, name):
    steps = (until_rows(8), press("Tab", times=number), until_tab(number), until_rows(ROWS_OF_TAB[name]))
    return Scene(f"tab-{name}", steps=steps, scales=BOTH)


SCENES = [
    Scene("empty", histories.nothing, (until_tab(0), until_rows(0), until_hint()), scales=BOTH),
    Scene("typical", steps=TYPICAL, scales=EVERY),
    Scene("odd-texts", histories.odd, (until_rows(13),), scales=BOTH, preferences={"maxClipSizeKB": 2048}),
    Scene("search-hits", steps=(until_rows(8), enter("chrom"), until_rows(2), until_selected(0)), scales=BOTH),
    Scene("search-none", steps=(until_rows(8), enter("xyzzyx"), until_rows(0), until_hint()), scales=BOTH),
    Scene("private", steps=(until_colour("orange", *HEADER), *TYPICAL), scales=BOTH, preferences={"privateModeEnabled": True}),
    full("49", 4, 100, (until_colour("accent", *TOTALS),)),
    full("50", 6, 12, (until_ink("the totals", *TOTALS),)),
    full("75", 9, 12, (until_colour("nearly full", *TOTALS),)),
    full("90", 9, 10, (until_colour("full", *TOTALS),)),
    *(of_tab(number, name) for number, name in enumerate(TABS, 1)),
    Scene("renaming", steps=RENAMING, scales=BOTH),
    Scene("context-menu", steps=CONTEXT_MENU, scales=BOTH),
    Scene("application-menu", steps=(until_rows(8), click(MENU), until_opened("the application's menu")), scales=BOTH),
    Scene("hover-row", steps=(*SECOND, point(row(2)), until_rows(8))),
    Scene("hover-selected", steps=(*SECOND, point(row(1)), until_rows(8))),
    Scene("hover-tab", steps=(until_rows(8), point(tab(3)))),
    Scene("hover-header", steps=(until_rows(8), point(LOCK))),
    Scene("pressed-row", steps=(*SECOND, hold(row(2)), until_rows(8))),
    Scene("tip-of-large", steps=(until_rows(8), point((360 - 52, row(5)[1])), until_opened("the tip"))),
    Scene("scrolled", histories.many, (wheel(4), *CHEVRONS), scales=BOTH),
    Scene("scrolled-hover", histories.many, (wheel(4), *CHEVRONS, point(DOWN_CHEVRON)),
          preferences={"chevronActivation": "click"}),
    Scene("preview-right", steps=PREVIEW_RIGHT, scales=BOTH),
    Scene("preview-left", steps=PREVIEW_LEFT, scales=BOTH, preferences={"previewSide": "left"}),
    Scene("preview-right-to-left", histories.few_rtl, (press("space"), until_preview("right"))),
    Scene("preview-cut-off", histories.long_prose, (press("space"), until_preview("right"))),
    Scene("preview-follow", steps=PREVIEW_RIGHT, preferences={"previewPosition": "follow"}),
    Scene("no-compositor", steps=TYPICAL, is_composited=False, scales=EVERY),
    Scene("no-compositor-empty", histories.nothing, (until_tab(0),), is_composited=False),
    Scene("no-compositor-preview", steps=PREVIEW_RIGHT, is_composited=False),
    Scene("no-compositor-menu", steps=CONTEXT_MENU, is_composited=False),
    Scene("settings-general", steps=(settings_page("g"),), scales=EVERY),
    Scene("settings-general-sounds", steps=(settings_page("g"),), scales=BOTH, preferences=SOUNDS),
    Scene("settings-general-end", steps=(settings_page("g", notches=20),), scales=BOTH, preferences=SOUNDS),
    Scene("settings-focus", steps=(settings_page("g"), tab_key(2))),
    Scene("settings-shortcuts", steps=(settings_page("s"),), scales=BOTH),
    Scene("settings-privacy", steps=(settings_page("p"),), scales=BOTH),
    Scene("settings-privacy-apps", steps=(settings_page("p"),), scales=BOTH, preferences=IGNORED),
    Scene("settings-data", steps=(settings_page("d"),), scales=BOTH),
    Scene("settings-help", steps=(settings_page("h"),), scales=BOTH),
    Scene("settings-help-end", steps=(settings_page("h", notches=20),)),
    Scene("settings-about", steps=(settings_page("a"),), scales=BOTH),
    Scene("settings-recording", steps=RECORDER),
    Scene("alert-limit", histories.numbered(60), (settings_page("g"), tab_key(2), press("Control_L", "a"), enter("50"), press("Return"),
                                          until_dialog("Reduce clip limit?")), scales=BOTH),
    Scene("alert-clear", steps=(settings_page("d"), tab_key(3), press("space"), until_dialog("Clear history?")), scales=BOTH),
    Scene("alert-shortcut", steps=(*RECORDER, press("Alt_L", "F4"), until_dialog("Shortcut unavailable")), scales=BOTH),
    Scene("alert-update", steps=(until_rows(8), click(MENU), until_opened("the application's menu"), *(press("Down"),) * 2,
                                 press("Return"), until_dialog("Korvane could not check for updates")), scales=BOTH),
    Scene("dialog-application", steps=(settings_page("p"), tab_key(1), press("space"),
                                       until_dialog("Choose an app")), scales=BOTH),
    Scene("dialog-export", steps=(settings_page("d"), tab_key(1), press("space"), until_dialog("Save As"))),
    Scene("settings-wide-font", steps=(settings_page("g"),), font="DejaVu Sans", preferences=SOUNDS),
    Scene("wide-font", steps=TYPICAL, scales=BOTH, font="DejaVu Sans"),
]

# Scene, theme and scale of the pictures of the README, and their names there.
README = {name + ending + ".png": (scene, theme, 2)
          for name, scene in (("panel", "preview-right"), ("search", "search-hits"), ("menu", "context-menu"))
          for ending, theme in (("", "light"), ("-dark", "dark"))}
