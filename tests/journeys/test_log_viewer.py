"""The log viewer: a log as the charge component writes it, by keyboard."""

import subprocess
import time

from harness.prefix import TOP
from harness.waiting import until

LOG = "drive_c/shop one/ZENDACARD.LOG"
TITLE = "ZENDACARD.LOG - LogLens"
# Without quotation marks, though there is a blank in it.
MILLION = "54,110,000.00"
NAMED = r"C:\shop one\ZENDACARD.LOG"


def line(who="Olive Trent", kind="CHARGE", amount="12.50", result="APPROVED", number=1,
         reference="-", day="2026-11-21"):
    """One line of the log with its end."""
    return (f"{day} 09:05:03  {who:20}  {kind:7}  LIVE  {amount:>12}  ****1881  {result:8}  1/1/0"
            f"    123456  {number:<10}  {reference:10}  [{number:020x}]  Done.\r\n")


class Viewer:
    """The viewer on a log of the journey's own."""

    def __init__(self, till, content):
        self.till = till
        self.log = till.prefix.folder / LOG
        self.log.parent.mkdir(parents=True, exist_ok=True)
        self.log.write_bytes(content)
        till.prefix.start("LogLens.exe", NAMED)
        self.window = till.window(TITLE)

    def state(self):
        """What the status bar says."""
        parts = self.till.control("sbrState", self.window)["parts"]
        return parts[0] if parts else ""

    def await_state(self, text):
        """Waits until the status bar says so."""
        until(f"the state {text!r}", lambda: self.state() == text, otherwise=self.state)

    def total(self, name):
        """One sum below the list."""
        return self.till.control(name, self.window).text


def test_lines_are_filtered_and_added_up_by_keyboard(till):
    viewer = Viewer(till, "".join([
        line(number=1, amount="20.00"), line(number=2, amount="0.10", who="Ben Moss"),
        line(number=3, kind="REFUND", amount="5.00", day="2026-11-22"),
        line(number=4, kind="VOID", amount="0.00", reference="1", day="2026-11-22"),
        line(number=5, result="DECLINED"), "half a li\r\n"]).encode())
    viewer.await_state("6 of 6 lines, 1 of them damaged and not counted")
    till.picture("all")
    assert viewer.total("lblLiveCharges") == "20.10  (2)"
    assert viewer.total("lblLiveRefunds") == "5.00  (1)"
    assert viewer.total("lblLiveVoids") == "20.00  (1)"
    assert viewer.total("lblLiveNet") == "-4.90"
    till.display.press("alt+f")
    till.display.type("2026-11-22")
    viewer.await_state("2 of 6 lines")
    assert viewer.total("lblLiveNet") == "-25.00"
    till.picture("since-a-day")
    till.display.press("alt+r", "End")
    viewer.await_state("1 of 6 lines, 1 of them damaged and not counted")
    till.picture("damaged")
    till.display.press("ctrl+l", "alt+o", "End")
    viewer.await_state("1 of 6 lines")
    till.display.press("ctrl+l", "alt+y", "v")
    viewer.await_state("0 of 6 lines")
    till.display.press("v")
    viewer.await_state("1 of 6 lines")


def test_selected_lines_are_copied_with_tabs_between_their_columns(till):
    viewer = Viewer(till, (line(number=1) + line(number=2, day="2026-11-22")).encode())
    viewer.await_state("2 of 2 lines")
    till.display.press("Home", "ctrl+c", "alt+f", "ctrl+v")
    until("the beginning of the first line", lambda: viewer.total("txtFrom") == "2026-11-21\t0",
          otherwise=lambda: viewer.total("txtFrom"))


def test_the_log_may_grow_and_shrink_while_it_is_looked_at(till):
    viewer = Viewer(till, line(number=1).encode())
    viewer.await_state("1 of 1 line")
    with open(viewer.log, "ab") as log:
        log.write(line(number=2).encode() + b" " * 512)
    viewer.await_state("2 of 2 lines")
    with open(viewer.log, "r+b") as log:
        log.truncate(len(line()))
    viewer.await_state("1 of 1 line")
    assert viewer.total("lblLiveNet") == "12.50"


def test_a_log_that_is_not_there_yet_is_waited_for(till):
    viewer = Viewer(till, b"")
    viewer.log.unlink()
    viewer.await_state("There is no log yet: " + NAMED)
    till.picture("no-log")
    viewer.log.write_bytes(line().encode())
    viewer.await_state("1 of 1 line")


def slow_reading(file):
    """An environment in which some 500 readings of a log of a million lines take fifteen seconds,
    however fast or busy the machine is."""
    source = TOP / "tests" / "journeys" / "harness" / "slow_reads.c"
    library = TOP / "build" / "journeys" / "slow_reads.so"
    subprocess.run(["gcc", "-shared", "-fPIC", "-O1", "-o", library, source, "-ldl"], check=True)
    return {"LD_PRELOAD": str(library), "TOLLVANE_SLOW_FILE": str(file.resolve())}


def test_the_window_of_a_million_lines_does_not_wait_for_them(till):
    block = "".join(line(number=n, amount=f"{n % 90 + 10}.01") for n in range(1000)).encode()
    log = till.prefix.folder / LOG
    log.parent.mkdir(parents=True)
    with open(log, "wb") as file:
        for _ in range(1000):
            file.write(block)

    started = time.monotonic()
    till.prefix.extra = slow_reading(log)
    till.prefix.start("LogLens.exe", NAMED)
    window = until("the window",
                   lambda: next((w for w in till.windows() if w.text == TITLE), None), interval=0.01)
    shown = time.monotonic() - started

    def state():
        bar = window.control("sbrState")
        return "".join(bar["parts"]) if bar else ""

    until("the reading", lambda: state().startswith("Reading the log"), otherwise=state)
    until("the end of the log", lambda: state() == "1,000,000 of 1,000,000 lines",
          patience=120, otherwise=state)
    print(f"window after {shown:.2f} s, all lines after {time.monotonic() - started:.2f} s")
    till.picture("million")
    assert till.control("lblLiveCharges", window).text == f"{MILLION}  (1000000)"
