"""Waiting for a state: ask again and again, and say what was there when the time ran out."""

import os
import time

PATIENCE = float(os.environ.get("TOLLVANE_PATIENCE", "30"))


class NotReached(AssertionError):
    """The awaited state did not come."""


def until(what, question, patience=PATIENCE, interval=0.05, otherwise=None):
    """Returns the first true answer of `question`; `otherwise` describes what stands there instead."""
    end = time.monotonic() + patience
    while True:
        answer = question()
        if answer:
            return answer
        if time.monotonic() > end:
            seen = f"; there is {otherwise()}" if otherwise else ""
            raise NotReached(f"waited {patience:g} s for {what}{seen}")
        time.sleep(interval)
