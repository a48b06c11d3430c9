"""Many payments in one instance of the program: what it holds does not grow.

TOLLVANE_LONG_RUN sets how many; TOLLVANE_PROOF names a folder for the list of what was held."""

import os
import pathlib

from harness import cards, footprint, objects, payments, processes
from harness.reader import Reader
from harness.waiting import until

TRANSACTIONS = int(os.environ.get("TOLLVANE_LONG_RUN", "30"))
# By then every box, menu and cache has been there once.
WARM_UP = min(100, TRANSACTIONS // 3)
SAMPLES = 40
HOLDER, AMOUNT = "txtCardName", "txtAmount"
EMPTY_AT_FIRST = ("txtAuthNum", "txtTransactionNumber")
APPROVED = "Approved"
PROGRAM = "Tollvane.exe"
SERVER = "dcZenda32.exe"
# What may come and go between two payments, and what memory may grow by over the whole run (KB). A
# short one sees mostly what is there once.
SPARE = {"handles": 6, "server's handles": 6, "gdi": 6, "windows": 0, "threads": 4,
         "charge objects": 0, "environment objects": 0, "server's objects": 0}
GROWTH = dict.fromkeys((PROGRAM, SERVER), 1024 if TRANSACTIONS >= 500 else 2048)


def burst(number):
    """What a reader sends: tracks 1 and 2, each closed by Enter."""
    return f"%B{number}^SMITH/JOHN^2912101000000?\r;{number}=29121010000000000?\r"


class Clerk:
    """Takes one payment after the other."""

    def __init__(self, till, reader, form):
        self._till, self._reader = till, reader
        self._holder = form.control(HOLDER).centre
        self._look = form.watch((HOLDER, AMOUNT, "txtCardNumber", *EMPTY_AT_FIRST))

    def pay(self, count):
        """Swipes a card, keys an amount of its own, submits and answers the box."""
        number = cards.numbered(count)
        self._reader.click(self._holder)
        self._await("the caret", lambda texts, caret: caret == HOLDER)
        self._reader.send(burst(number))
        self._await(f"card {count}", lambda texts, caret: (
            texts["txtCardNumber"] == number and caret == AMOUNT
            and not any(texts[name] for name in EMPTY_AT_FIRST)))
        self._reader.send(f"{10 + count / 100:.2f}")
        self._await(f"amount {count}", lambda texts, caret: f"{10 + count / 100:.2f}" in texts[AMOUNT])
        self._reader.press_with_alt("s")
        until(f"approval {count}", self._box_is_there, interval=0.01, otherwise=self._till.titles)
        self._reader.send("\r")
        until("the form", lambda: len(self._till.windows()) == 1, interval=0.01,
              otherwise=self._till.titles)

    def _box_is_there(self):
        return any(w.text == APPROVED and w.foreground and self._till.display.types_into(w.xid)
                   for w in self._till.windows())

    def _await(self, what, question):
        until(what, lambda: question(*self._look()), interval=0.005, otherwise=self._look)


def held(till, prefix):
    """What the program and its server hold now: handles, windows, objects, memory."""
    return {**till.counts(), "server's handles": till.handles(SERVER),
            "threads": footprint.threads(prefix, PROGRAM),
            "charge objects": objects.alive(prefix, PROGRAM, "zendacard.dll"),
            "environment objects": objects.alive(prefix, PROGRAM, "habitat.dll"),
            "server's objects": objects.alive(prefix, SERVER, SERVER),
            **{name: processes.private_kb([processes.process_of(prefix, name)])
               for name in GROWTH}}


def growth(samples, name):
    """What a figure grew by over the samples: twice as much as from the lowest of their first half
    to the lowest of their second, for some memory is given back late: a thread's stack when the next
    thread ends."""
    half = len(samples) // 2
    lowest = [min(one[name] for one in some) for some in (samples[:half], samples[half:])]
    return 2 * (lowest[1] - lowest[0])


def keep(samples):
    """Leaves the list where ./prove collects it."""
    folder = os.environ.get("TOLLVANE_PROOF")
    if folder:
        names = list(samples[0])
        lines = ["\t".join(names), *("\t".join(str(one[name]) for name in names)
                                     for one in samples)]
        pathlib.Path(folder, "held.txt").write_text("\n".join(lines) + "\n", encoding="ascii")


def test_what_the_program_holds_does_not_grow_with_the_payments(till, open_counter, prefix,
                                                               display):
    for field in ("InvoiceNumber", "PONumber", "CardCode", "BillToAddress", "Description"):
        prefix.set_value(r"\Options\Required Fields", field, "REG_DWORD", 0)
    prefix.set_value(r"\Options", "ShopAddressForBillToAddress", "REG_DWORD", 0)
    step = max(1, (TRANSACTIONS - WARM_UP) // SAMPLES)
    samples = []
    with Reader(display) as reader:
        clerk = Clerk(till, reader, open_counter.till.form())
        for count in range(1, TRANSACTIONS + 1):
            clerk.pay(count)
            if count >= WARM_UP and (count - WARM_UP) % step == 0:
                samples.append({"payments": count, **held(till, prefix)})
    keep(samples)
    for name, spare in SPARE.items():
        assert samples[0][name] > 0, f"{name} cannot be told"
        assert samples[-1][name] <= samples[0][name] + spare, (name, samples[0], samples[-1])
    for name, limit in GROWTH.items():
        assert growth(samples, name) <= limit, (name, samples)
    assert len(payments.read(prefix)) == TRANSACTIONS
