"""Waiting for a state with a deadline: the only way in which these tests wait."""

import time

from Xlib import error

# Long enough for a busy machine; a test that passes never comes near it.
PATIENCE = 10.0


class NotObserved(AssertionError):
    """What should have been seen was not, until the deadline."""


def asked(state):
    """What the state is; none while a window goes that it is about to look at."""
    try:
        return state()
    except (error.BadWindow, error.BadDrawable):
        return None


def wait_for(what, state, seconds=PATIENCE):
    """Asks `state` again and again until it answers something true, and returns that answer.

    `what` completes the sentence "not observed: …"; a callable is asked for it at the end."""
    deadline = time.monotonic() + seconds
    while True:
        answer = asked(state)
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise NotObserved(f"not observed within {seconds:g} s: {what() if callable(what) else what}")
        # Not a wait of its own: it leaves the processor to those who are waited for.
        time.sleep(0.005)
