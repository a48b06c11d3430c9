"""The shop in which the program is measured: a display, a prefix, an operator, the company."""

import contextlib
import pathlib

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
DATA = pathlib.Path("drive_c/ProgramData/Norrow Programs")
REQUIRED = ("InvoiceNumber", "PONumber", "CardCode", "BillToAddress", "Description")
FLOOR = ringlib.BUILD / "x64" / "tests" / "bench" / "bench_floor.exe"


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
        self.printers = self.enter_context(PrintServer(FOLDER / "print-server"))
        self.prefix.print_server = self.printers.address
        self.printers.add("Counter", "Letter")
        # The harness's own eyes keep the prefix's server and desktop up between two starts.
        self.eyes = Till(self.prefix, self.display, FOLDER / "pictures")
        self.callback(self.eyes.close)
        self.counter = Counter(self.eyes)
        self._open_for_business()

    @property
    def charge_folder(self):
        """Where the charge component and the simulated processor keep their books."""
        return self.prefix.folder / DATA / "Zendacard"

    @property
    def store_folder(self):
        """Where the payment store is."""
        return self.prefix.folder / DATA / "Host Data"

    def _open_for_business(self):
        """The very first start: the operator is entered, charges are for real."""
        company.store(self.prefix, company.COMPANY)
        for field in REQUIRED:
            self.prefix.set_value(r"\Options\Required Fields", field, "REG_DWORD", 0)
        self.prefix.set_value(r"\Options", "ShopAddressForBillToAddress", "REG_DWORD", 0)
        self.eyes.start()
        self.counter.enter_first_operator(till.MANAGER)
        self.eyes.form()
        self.counter.set_test_mode(False)
        self.counter.finish()

    def programs(self):
        """The runs that are held against each other."""
        others = (self.floor(), programs.swing(self.display, FOLDER),
                  programs.chromium(self.display, FOLDER))
        return [self.till_run(), *(starts.PlainRun(one, self.screen) for one in others)]

    def till_run(self):
        """The program with the component that runs beside it."""
        program = programs.WineProgram("tollvane", "Tollvane.exe", self.prefix, self.display,
                                       parts=("dcZenda32.exe",))
        return till.TillRun(program, self)

    def floor(self):
        """The bare window."""
        return programs.WineProgram("floor", FLOOR, self.prefix, self.display)

    def beside(self, form):
        """The painted window that stands beside the form, and its middle on the display."""
        window, _ = starts.await_window(self.screen, beside=[form])
        return window, self.screen.middle(window)
