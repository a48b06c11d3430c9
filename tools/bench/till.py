"""The program under measurement: its start, with an operator who signs in, and a clerk's steps."""

import dataclasses
import time

import starts
from harness import processes
from harness.counter import MANAGER
from harness.till import FORM_TITLE

SIGN_IN = "Sign In"
# The form opens with the focus on the kind of transaction; this is where an operator clicks.
FIRST_FIELD = "txtCardName"
SPARE = 2


@dataclasses.dataclass
class SignedInStart(starts.Start):
    """`paint` and `keys` are the sign-in window's; `form_paint` and `form_keys` are the form's, in ms
    from the key that signs in."""

    form_paint: float = 0.0
    form_keys: float = 0.0


class TillRun:
    """The program, from its start to a form that takes keys."""

    name = "tollvane"

    def __init__(self, program, shop):
        self.program, self._eyes = program, shop.eyes
        self._screen, self._reader = shop.screen, shop.reader
        self._user_name = self._first_field = None

    def once(self):
        """One measured start, and the end of the program."""
        start, window = self.open()
        self.close(window)
        return start

    def open(self):
        """One measured start; the form stays open."""
        before = processes.processor_seconds(self.program.helpers())
        begun = time.monotonic()
        self.program.start()
        start = SignedInStart()
        dialog, moment = starts.await_window(self._screen, SIGN_IN)
        start.paint = (moment - begun) * 1000
        self._user_name, moment, pressed = self._take_keys(self._user_name, dialog)
        start.keys = (moment - begun) * 1000
        entered = self._sign_in(pressed)
        form, moment = starts.await_window(self._screen, FORM_TITLE)
        start.form_paint = (moment - entered) * 1000
        self._first_field, moment, _ = self._take_keys(self._first_field, form, FIRST_FIELD)
        start.form_keys = (moment - entered) * 1000
        starts.used(self.program, start, before)
        return start, form

    def close(self, form):
        """Closes the form and waits for the end of all that was the program's."""
        own = self.program.processes()
        self._screen.close(form)
        processes.await_end(own)

    def _take_keys(self, field, window, name=None):
        """The field that has the focus or that is clicked into, when a letter showed in it, and how
        many were pressed."""
        if field is None:
            place = self._eyes.form().control(name).centre if name else None
            return starts.Field(self._screen, window, place), 0.0, 3
        moment, pressed = starts.await_keys(self._screen, window, field)
        return field, moment, pressed

    def _sign_in(self, pressed):
        """Replaces the letters by name and password; the moment of the key that signs in."""
        for _ in range(pressed + SPARE):
            self._screen.press("BackSpace")
        self._reader.send(f"{MANAGER.user}\t{MANAGER.password}")
        return self._screen.press("Return")
