"""The shipped program, killed while staff work at its window, and started again by them."""

import contextlib
import shutil
import threading

from . import books
from .counter import APPROVED, MANAGER, Counter
from .crash import Shop
from .till import Till

UNRECORDED = "Payments Not Recorded"


class Struck(Exception):
    """The fault has come; nobody waits for a window any more."""


class EndingTill(Till):
    """A till whose program may be ended at any moment."""

    def __init__(self, shop):
        self._shop = shop
        super().__init__(shop.prefix, shop.prefix.display, shop.folder)

    def windows(self):
        if self._shop.disk.has_struck():
            raise Struck()
        return super().windows()


class WindowShop(Shop):
    """An installation whose window is played by keyboard and mouse, set back before every try."""

    def prepare(self):
        super().prepare()
        self.end_everything()
        said = self.play(lambda counter, said: (counter.start(), counter.finish()))
        assert not said, said

    def drive(self, fault, *arguments):
        """A day with one payment: what the staff see, in lines; after a fault there are no more."""
        if self.is_being_made():
            return super().drive(fault, *arguments)
        what, amount = arguments
        missing = len(self.books_now().missing())
        self.disk.set(fault)
        offered = missing if what == "restart" else 0
        with self.watch(fault):
            return self.play(lambda counter, said: day(counter, said, amount, offered))

    @contextlib.contextmanager
    def watch(self, fault):
        """Meanwhile ends what would wait for a server that died, the probe too."""
        done = threading.Event()

        def look():
            while not (done.wait(0.05) or self.system_died(fault)):
                pass

        watcher = threading.Thread(target=look)
        watcher.start()
        try:
            yield
        finally:
            done.set()
            watcher.join()

    def is_being_made(self):
        """Whether it is not yet as it will be set back to."""
        return not self.kept.exists()

    def books_now(self):
        """What the books say, read from a copy: reading would mend what a kill has left."""
        copy = self.folder / "look"
        shutil.rmtree(copy, ignore_errors=True)
        shutil.copytree(self.data, copy / books.DATA)
        return books.read(copy)

    def play(self, steps):
        """Plays steps from the program's start; the lines that they say, and where they stopped
        without a fault."""
        said = []
        till = EndingTill(self)
        try:
            steps(Counter(till), said)
        except (Struck, RuntimeError, AssertionError, OSError) as error:
            # Whatever fails behind the kill fails because of it.
            if not self.disk.has_struck():
                said.append(f"it stopped at {error}")
        finally:
            self.end_processes()
            till.close()
        return said

    def check_said(self, said, fault):
        """Nobody sees the end of a day that was interrupted."""
        return [f"the day went on: {said}"] if fault.kills_sale() and "ended" in said else []

    def check_told(self, again):
        """What was missing was offered, or the day would have stopped there."""
        return []


def day(counter, said, amount, missing):
    """A start, which offers what is missing, a charge and the end."""
    till = counter.till
    till.start()
    counter.sign_in(MANAGER)
    if missing:
        dialog = till.window(UNRECORDED)
        assert till.control("lstPayments", dialog)["count"] == missing
        till.push("cmdRecord", dialog)
    counter.refuse_company_question()
    till.form()
    said.append(f"recorded {missing}")
    counter.fill_charge(amount)
    till.push("cmdSubmit", till.form())
    till.window(APPROVED)
    said.append("approved")
    till.answer(APPROVED, "OK")
    till.form()
    said.append("posted")
    counter.finish()
    said.append("ended")
