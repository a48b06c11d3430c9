"""What a swipe and a submission cost at a form that stands open."""

import collections
import re
import subprocess
import time

import starts
import watch
from harness import processes
from screen import until

BURST = "%B4012888888881881^SMITH/JOHN^2912101000000?\r;4012888888881881=29121010000000000?\r"
SWIPES = 8
PACE = 1  # ms between two characters
REST = 0.4
LONGEST_WORK = 50  # times of rest
APPROVED = "Approved"
HOLDER, AMOUNT = "txtCardName", "txtAmount"
EMPTY_AT_FIRST = ("txtAuthNum", "txtTransactionNumber")
LEDGER, STORE_JOURNAL = "ledger-live.dat", "hostdata.db-journal"
SYNC = re.compile(r"(?:fsync|fdatasync)\(\d+<([^>]*)>")


class Clerk:
    """Takes payments as fast as the form does."""

    def __init__(self, shop, form):
        self._screen, self._reader, self._form = shop.screen, shop.reader, form
        controls = shop.eyes.form()
        self._holder = controls.control(HOLDER).centre
        self._shown = controls.watch((*EMPTY_AT_FIRST, HOLDER, AMOUNT, "txtCardNumber"))
        self._count = 0

    def swipe(self):
        """Swipes a card into the card holder's box; the form goes on to the amount by itself."""
        self._focus(HOLDER, self._holder)
        self._reader.send(BURST, PACE)
        until("the swiped card", self._is_new_entry)

    def _focus(self, name, place):
        """Clicks into a field; the window manager may hand a click on later than keys behind it."""
        self._screen.click(*place)
        until(f"the caret in {name}", lambda: self._shown()[1] == name)

    def _is_new_entry(self):
        """What was approved before has gone, and the card is there."""
        texts, caret = self._shown()
        return texts["txtCardNumber"] and caret == AMOUNT and not any(texts[name] for name in EMPTY_AT_FIRST)

    def fill(self):
        """Swipes a card and keys an amount that was not charged before."""
        self.swipe()
        self._count += 1
        amount = f"{10 + self._count / 100:.2f}"
        self._reader.send(amount)
        until("the amount", lambda: amount in self._shown()[0][AMOUNT])

    def submit(self):
        """Submits; the moments of the key and of the painted answer, and the box."""
        pressed = self._screen.press("s", "Alt_L")
        box, shown = starts.await_window(self._screen, APPROVED, beside=[self._form])
        return pressed, shown, box


def swipe_cost(shop, program, window, place, clear=False):
    """Processor time of a few swipes (ms a swipe): the program's own, and its helpers'."""
    shop.screen.click(*place)
    # Keys that come before the window manager has handed the click on go to the other window.
    until("the keyboard", lambda: shop.screen.has_keyboard(window))
    if clear:
        shop.screen.press("a", "Control_L")
        shop.screen.press("Delete")
    before = spent(program)
    for _ in range(SWIPES):
        shop.screen.click(*place)
        shop.reader.send(BURST, PACE)
    return tuple((late - early) * 1000 / SWIPES for early, late in zip(before, spent(program)))


def spent(program):
    """The processor seconds of a program and of its helpers, once it has nothing left to do."""
    own, helpers = program.processes(), program.helpers()
    for _ in range(LONGEST_WORK):
        earlier = processes.processor_seconds(own)
        time.sleep(REST)
        later = processes.processor_seconds(own)
        if later - earlier <= processes.TICK:
            return later, processes.processor_seconds(helpers)
    raise TimeoutError(f"{program.name} does not come to rest")


def bare_box(screen, windows):
    """The ms from a key in the bare window, the last one of these, which has the keyboard, to the
    painted box that it asks the system for."""
    pressed = screen.press("F9")
    box, shown = starts.await_window(screen, APPROVED, beside=windows)
    dismiss(screen, box)
    until("the keyboard back from the box", lambda: screen.has_keyboard(windows[-1]))
    return (shown - pressed) * 1000


def dismiss(screen, box):
    """Answers a box, and waits for it to go."""
    screen.press("Return")
    until("the box to go", lambda: box.id not in [w.id for w in screen.windows()])


class Submissions:
    """Payments at an open form, with an eye on the files that they write."""

    def __init__(self, shop, form):
        self._shop, self._clerk = shop, Clerk(shop, form)
        self._watch = watch.FolderWatch(shop.charge_folder, shop.store_folder)

    def once(self):
        """One payment: ms from the key to the processor's answer and to the box, and from the
        answer to the stored payment and to the box."""
        self._clerk.fill()
        pressed, shown, box = self._clerk.submit()
        answered = self._last(LEDGER, watch.WRITTEN, pressed)
        stored = self._last(STORE_JOURNAL, watch.CHANGED, pressed)
        dismiss(self._shop.screen, box)
        return {"answer": (answered - pressed) * 1000, "box": (shown - pressed) * 1000,
                "stored beyond": (stored - answered) * 1000,
                "box beyond": (shown - answered) * 1000}

    def _last(self, name, kind, since):
        """When that happened to a file for the last time; the box says that it is over."""
        moments, _ = until(name, lambda: self._watch.moments(name, kind, since))
        return max(moments)

    def flushes(self, program):
        """The flushes of one payment, by the name of the file."""
        self._clerk.fill()
        numbers = program.processes() + program.helpers()
        command = ["strace", "-f", "-y", "-e", "trace=fsync,fdatasync", "-o", "!cat"]
        for number in numbers:
            command += ["-p", str(number)]
        with subprocess.Popen(command, text=True, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL) as tracer:
            until("the tracer", lambda: all(b"TracerPid:\t0\n" not in processes.read(
                number, "status") for number in numbers))
            _, _, box = self._clerk.submit()
            dismiss(self._shop.screen, box)
            tracer.terminate()
            lines = tracer.stdout.read()
        return collections.Counter(name.rpartition("/")[2] for name in SYNC.findall(lines))
