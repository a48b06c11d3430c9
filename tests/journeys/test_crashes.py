"""Sales that are interrupted at a change of a file, and what the next start makes of them."""

import os

import pytest

from harness import crash, payments
from harness.counter import CARD, MANAGER

SEED = int(os.environ.get("TOLLVANE_SEED", "20261121"))
UNRECORDED = "Payments Not Recorded"
# The changes of the charge component's files, in a run with one sale, after which the program is
# killed: with the eleventh the processor's answer is in the journal, and nowhere else.
LAST = 11


@pytest.fixture
def shop(pictures):
    """An installation without a window."""
    made = crash.Shop(pictures / "prefix")
    yield made
    made.close()


@pytest.mark.parametrize("half", (0, 1))
def test_no_interrupted_sale_is_lost_doubled_or_damages_the_books(shop, half):
    kills, errors = crash.faults(shop)
    chosen = crash.sample(kills, 8, SEED)[half::2] + crash.sample(errors, 4, SEED)[half::2]
    wrong = [f"{fault}: {problem}" for fault in chosen for problem in shop.attempt(fault)]
    assert not wrong, (f"seed {SEED}", wrong)


def test_a_payment_that_was_not_recorded_is_offered_at_the_next_start(till, counter, prefix):
    prefix.run("reg", *crash.LIVE)
    disk = crash.Disk(prefix)
    disk.set(crash.Fault("before", crash.CHARGE_FILES, LAST + 1))
    counter.start()
    counter.fill_charge("31.40")
    till.push("cmdSubmit", till.form())
    till.wait("the end of the program", lambda: not till.windows(), otherwise=till.titles)
    assert disk.has_struck()
    disk.set(crash.NO_FAULT)
    till.start()
    counter.sign_in(MANAGER)
    dialog = till.window(UNRECORDED)
    till.picture("not-recorded")
    assert till.control("lstPayments", dialog)["count"] == 1
    assert till.focused() == "cmdRecord"
    till.push("cmdRecord", dialog)
    counter.refuse_company_question()
    till.form()
    record, = payments.read(prefix)
    assert record == {**record, "Account": "****" + CARD.number[-4:], "Amount": "31.4",
                      "PaidBy": "Charge", "TransID": "1000000001", "Operator": MANAGER.user}
    assert len(record["Approval"]) == 6
