"""The shop in which the program is measured: a display, a prefix, an operator, the company."""

import contextlib

import programs
import ringlib
import screen
import starts
import till
from harness import company
from harness.counter import Counter
from harness.display import Display
from harness.prefix import Prefix
from harness.printers import PrintServer
from harness.reader import Reader
from harness.till import Till

FOLDER = ringlib.BUILD / "bench"
FLOOR = ringlib.BUILD / "x64" / "bench" / "bench_floor.exe"


class Shop(contextlib.ExitStack):
    """Everything that a measurement stands on; use it in a `with` block."""

    def __init__(self):
        super().__init__()
        FOLDER.mkdir(parents=True, exist_ok=True)
        self.display = self.enter_context(Display())
        self.screen = screen.Screen(self.display.number)
        self.reader = self.enter_context(Reader(self.display))
        self.prefix = Prefix.installed(FOLDER / "prefix", self.display)
        self.callback(self.prefix.remove)
        printers = self.enter_context(PrintServer(FOLDER / "print-server"))
        self.prefix.print_server = printers.address
        printers.add("Counter", "Letter")
        # The harness's own eyes keep the prefix's server and desktop up between two starts.
        self.eyes = Till(self.prefix, self.display, FOLDER / "pictures")
        self.callback(self.eyes.close)
        self.counter = Counter(self.eyes)
        self._open_for_business()

    def _open_for_business(self):
        """The very first start: the operator is entered, charges are for real."""
        company.store(self.prefix, company.COMPANY)
        self.eyes.start()
        self.counter.enter_first_operator(till.MANAGER)
        self.eyes.form()
        self.counter.set_test_mode(False)
        self.counter.finish()

    def programs(self):
        """The runs that are held against each other."""
        wine = programs.WineProgram
        return [till.TillRun(self.till_program(), self),
                starts.PlainRun(wine("floor", FLOOR, self.prefix, self.display), self.screen),
                starts.PlainRun(programs.swing(self.display, FOLDER), self.screen),
                starts.PlainRun(programs.chromium(self.display, FOLDER), self.screen)]

    def till_program(self):
        """The program with the component that runs beside it."""
        return programs.WineProgram("tollvane", "Tollvane.exe", self.prefix, self.display,
                                    parts=("dcZenda32.exe",))
