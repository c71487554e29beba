"""One picture of the program: what it starts with, what the user does then, what must be seen."""

import dataclasses
import typing

from screenshots.histories import typical

# File name, bar and the background's colours at its top and its bottom.
THEMES = {"light": ("Adwaita", (148, 190, 196), (226, 214, 196)),
          "dark": ("Adwaita:dark", (24, 44, 56), (58, 52, 62))}


@dataclasses.dataclass(frozen=True)
class Scene:
    """`clips` gives the history, with a folder for the files that it names. `steps` are what
    screenshots.steps makes; the last of them waits for what tells this picture from the others."""

    name: str
    clips: typing.Callable = typical
    steps: tuple = ()
    preferences: typing.Mapping = dataclasses.field(default_factory=dict)
    themes: tuple = ("light", "dark")
    scales: tuple = (1,)
    is_composited: bool = True
    font: str = "Inter"


def file_name(scene, theme, scale):
    return f"{scene.name}-{theme}-{scale:g}x.png"
