"""One start of a program, measured from outside: paint, keys, memory, processor time."""

import dataclasses
import time

import screen as seen
from harness import processes

# How long a program that takes keys is left alone before its memory is read (s).
REST = 1.0
# Keys come this far apart while nothing shows yet (s).
BEAT = 0.01
TALLEST_LETTER = 40
CARET_WIDTH = 3


@dataclasses.dataclass
class Start:
    """One start; times in ms from the start of the process, memory in MB, processor time in ms."""

    paint: float = 0.0
    keys: float = 0.0
    memory: float = 0.0
    helpers_memory: float = 0.0
    processor: float = 0.0
    helpers_processor: float = 0.0


class Field:
    """The place in a window where a typed letter shows, found out once."""

    def __init__(self, screen, window, place=None):
        """`place` is a point of the display to click at where no field has the focus at first."""
        self.place = place
        if place:
            screen.click(*place)
        boxes, before = [], settled(screen, window)
        while len(boxes) < 3:
            screen.press(seen.LETTER)
            after = settled(screen, window)
            box = changes(before, after)
            # The first key may come too soon, and what it changes may be more than its letter.
            if box and box[2] >= CARET_WIDTH:
                boxes.append(box)
            before = after
        left, top, width, height = union(boxes[1], boxes[2])
        if height > TALLEST_LETTER:
            raise RuntimeError(f"more than a letter changes in {screen.title(window)!r}")
        letter = width // 2
        self._box = (max(0, left - letter), top, letter, height)
        self._shape = screen.picture(window, self._box)

    def shows_a_letter(self, screen, window):
        """Whether the first letter stands where it stood before, with or without a caret behind."""
        now = screen.picture(window, self._box)
        if len(now) != len(self._shape):
            return False
        other = sum(one != two for one, two in zip(zip(*now), zip(*self._shape)))
        return other < CARET_WIDTH


def settled(screen, window):
    """The picture of a window in which nothing but a caret changes any more."""
    before, quiet = screen.picture(window), time.monotonic()
    while time.monotonic() - quiet < 0.4:
        time.sleep(0.05)
        now = screen.picture(window)
        box = changes(before, now)
        if box and box[2] >= CARET_WIDTH:
            before, quiet = now, time.monotonic()
    return before


def changes(before, after):
    """The box (left, top, width, height) in which two pictures differ; None when they are alike."""
    if len(before) != len(after):
        return None
    rows = [row for row, (one, other) in enumerate(zip(before, after)) if one != other]
    if not rows:
        return None
    columns = [column for row in rows
               for column, (one, other) in enumerate(zip(before[row], after[row])) if one != other]
    return (min(columns), rows[0], max(columns) - min(columns) + 1, rows[-1] - rows[0] + 1)


def union(one, other):
    """The box around two boxes, either of which may be None."""
    if one is None or other is None:
        return one or other
    left, top = min(one[0], other[0]), min(one[1], other[1])
    right = max(one[0] + one[2], other[0] + other[2])
    bottom = max(one[1] + one[3], other[1] + other[3])
    return left, top, right - left, bottom - top


def await_window(screen, title=None, beside=()):
    """The first painted window, of that title and other than some, and when it was painted."""
    old = {window.id for window in beside}

    def painted():
        return next((window for window in screen.windows()
                     if window.id not in old and screen.painted(window)
                     and (title is None or title in screen.title(window))), None)
    return seen.until(title or "a window", painted)


def await_keys(screen, window, field):
    """Presses a letter again and again; when it shows, and how many letters were pressed."""
    pressed, last = 0, 0.0

    def shows():
        nonlocal pressed, last
        if time.monotonic() - last >= BEAT:
            if field.place:
                screen.click(*field.place)
            screen.press(seen.LETTER)
            pressed, last = pressed + 1, time.monotonic()
        return field.shows_a_letter(screen, window)
    _, moment = seen.until("a typed letter", shows)
    return moment, pressed


def used(program, start, helpers_before):
    """Reads what a program that is at rest uses."""
    time.sleep(REST)
    own, helpers = program.processes(), program.helpers()
    start.memory = processes.private_kb(own) / 1024
    start.helpers_memory = processes.private_kb(helpers) / 1024
    start.processor = processes.processor_seconds(own) * 1000
    start.helpers_processor = (processes.processor_seconds(helpers) - helpers_before) * 1000
    return own


class PlainRun:
    """A program that has nothing to do but show its form."""

    def __init__(self, program, screen):
        self._program, self._screen = program, screen
        self._field = None

    @property
    def name(self):
        """What the report calls it."""
        return self._program.name

    def once(self):
        """One measured start."""
        before = processes.processor_seconds(self._program.helpers())
        begun = time.monotonic()
        process = self._program.start()
        start = Start()
        window, moment = await_window(self._screen)
        start.paint = (moment - begun) * 1000
        if self._field is None:
            self._field = Field(self._screen, window)
        else:
            moment, _ = await_keys(self._screen, window, self._field)
            start.keys = (moment - begun) * 1000
        own = used(self._program, start, before)
        self._screen.close(window)
        process.wait(30)
        processes.await_end(own)
        return start
