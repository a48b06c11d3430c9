"""Plays the road of a charge with real keystrokes and keeps what there is to see.

Usage: demo.py FOLDER. On a display (DISPLAY is set) it plays there, otherwise on a virtual one.
"""

import os
import pathlib
import shutil
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from harness import company, payments
from harness.counter import Counter
from harness.display import Display
from harness.prefix import Prefix
from harness.printers import PrintServer
from harness.till import Till


def say(text):
    """Tells the onlooker what happens."""
    print("==", text, flush=True)


def play(till, prefix, printers):
    """From the first start to a payment in the shop's books and its receipt."""
    counter = Counter(till, keep=till.picture)
    say("first start: the first operator; company information is left for later")
    counter.start()
    till.picture("form")
    say("a charge in test mode: approved, and nothing is posted")
    counter.fill_charge("42.50", "2.50")
    till.picture("test-charge-filled")
    counter.submit(picture="test-charge-approved")
    till.picture("test-charge-finished")
    assert not payments.read(prefix), "a test charge was posted"
    say("test mode is switched off in the charge component's own dialog")
    counter.select("Charge")
    counter.set_test_mode(False)
    say("a charge that counts")
    counter.fill_charge("86.40", "6.40", description="Dining table")
    till.picture("charge-filled")
    counter.submit(picture="charge-approved")
    till.picture("charge-finished")
    record, = payments.read(prefix)
    company.store(prefix, company.COMPANY)
    say("its receipt, printed through the menu")
    counter.print_receipt(picture="print-menu")
    receipt = printers.document(1)
    counter.finish()
    return record, receipt


def main(folder):
    """Plays, and prints where to look."""
    folder.mkdir(parents=True, exist_ok=True)
    for old in folder.glob("*.png"):
        old.unlink()
    say("preparing a Wine of the demonstration's own")
    with (Display(number=os.environ.get("DISPLAY") or None) as display,
          PrintServer(folder / "print-server") as printers):
        printers.add("Receipts", "A4")
        prefix = Prefix.installed(folder / "prefix", display)
        prefix.print_server = printers.address
        till = Till(prefix, display, folder)
        try:
            record, receipt = play(till, prefix, printers)
        except BaseException:
            till.picture("stopped")
            raise
        finally:
            till.close()
    text = "".join(f"{name}: {value}\n" for name, value in record.items())
    (folder / "payment-record.txt").write_text(text, encoding="utf-8")
    receipt = shutil.copy(receipt, folder / "receipt.pdf")
    say("the payment record, as the host data server tells it")
    print(text, end="")
    say("what there is to see")
    print(*sorted(folder.glob("*.png")), folder / "payment-record.txt", receipt, sep="\n")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))
