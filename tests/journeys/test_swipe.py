"""Card readers at the real window: bursts of real keystrokes into whatever field has the focus."""

import itertools
import os

import pytest

from harness.waiting import until

FIELDS = ("txtCardName", "txtDescription", "txtAmount", "txtCardNumber", "txtEMail", "txtBillToZip",
          "txtTaxAmount", "txtBillToStreet", "txtPONumber")
EMPTY = ("txtAuthNum", "txtTransactionNumber", "txtBillToStreet", "txtBillToCity", "txtBillToZip",
         "txtEMail", "txtDescription", "txtCardCode")
SWIPES = int(os.environ.get("TOLLVANE_SWIPES", "1000"))


def burst(number):
    """What a reader sends: tracks 1 and 2, each closed by Enter."""
    return (f"%B{number}^SMITH/JOHN^2912101000000?", f";{number}=29121010000000000?")


def swipe(till, place, number):
    """Clicks into a field and swipes, as fast as the display takes the keys; a Tab comes last."""
    first, second = burst(number)
    till.display.run("xdotool", "mousemove", *map(str, place), "click", "1",
                     "type", "--delay", "0", "--args", "1", first, "key", "Return",
                     "type", "--delay", "0", "--args", "1", second, "key", "Return", "key", "Tab")


def expected(number):
    """What the form shows when a swipe was taken whole and the Tab has moved on."""
    return {**dict.fromkeys(EMPTY, ""), "txtCardName": "JOHN SMITH", "txtCardNumber": number,
            "cboExpMonth": "12   December", "cboExpYear": "2029", "txtAmount": "$0.00",
            "txtTaxAmount": "$0.00", "focus": "chkTaxExempt"}


@pytest.mark.parametrize("swipes", [SWIPES])
def test_every_swipe_is_taken_and_nothing_lands_elsewhere(till, counter, swipes):
    form = counter.start()
    places = {name: form.control(name).centre for name in FIELDS}
    look = form.watch((*expected(""), "chkTaxExempt"))

    def different(number):
        """What is not as it should be."""
        texts, focus = look()
        there = {**texts, "focus": focus}
        return {name: there[name] for name, text in expected(number).items()
                if there[name] != text}

    for count, name in zip(range(swipes), itertools.cycle(FIELDS)):
        number = f"4{count:015}"
        swipe(till, places[name], number)
        until(f"swipe {count} into {name}", lambda sent=number: not different(sent),
              interval=0.002, otherwise=lambda sent=number: different(sent))
    order = till.text("txtPONumber")
    assert order.isdigit() and order == till.text("txtInvoiceNumber"), order
    assert len(till.windows()) == 1, till.titles()
    till.picture("swiped")


def test_what_begins_like_a_swipe_stays_where_it_is_typed(till, counter):
    form = counter.start()
    text = "10% off; +1 for %A;5"
    till.enter("txtDescription", text, form)
    till.wait("the whole text", lambda: till.text("txtDescription") == text,
              otherwise=lambda: till.text("txtDescription"))
