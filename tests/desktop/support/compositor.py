"""A compositor, as most desktops have one: shadows and rounded corners are seen only where it runs."""

from support.programs import Program
from support.waiting import wait_for


class Compositor(Program):
    """picom, which adds nothing of its own: no shadow, no fading, no opacity."""

    def __init__(self, desk):
        super().__init__(desk, ["picom", "--config", "/dev/null", "--backend", "xrender"])
        wait_for("a compositor", lambda: desk.screen.owner("_NET_WM_CM_S0"))
