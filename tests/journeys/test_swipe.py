"""Card readers at the real window: bursts of real keystrokes into whatever field has the focus."""

import itertools

import pytest

FIELDS = ("txtCardName", "txtDescription", "txtAmount", "txtCardNumber", "txtEMail", "txtBillToZip",
          "txtTaxAmount", "txtBillToStreet", "txtCardCode", "txtPONumber")
EMPTY = ("txtAuthNum", "txtTransactionNumber", "txtBillToStreet", "txtBillToCity", "txtBillToZip",
         "txtEMail", "txtDescription", "txtCardCode")
SWIPES = 1000


def burst(number):
    """What a reader sends: tracks 1 and 2, each closed by Enter."""
    return (f"%B{number}^SMITH/JOHN^2912101000000?", f";{number}=29121010000000000?")


def swipe(till, place, number):
    """Clicks into a field and swipes, as fast as the display takes the keys."""
    first, second = burst(number)
    till.display.run("xdotool", "mousemove", *map(str, place), "click", "1",
                     "type", "--delay", "0", "--args", "1", first, "key", "Return",
                     "type", "--delay", "0", "--args", "1", second, "key", "Return")


def shown(form):
    """The texts of the form's boxes, by name, and the name of the one with the caret."""
    controls = form.controls()
    texts = {c.name: c.text for c in controls if c.name.startswith(("txt", "cbo"))}
    return texts, next((c.name for c in controls if c.focused), None)


@pytest.mark.parametrize("swipes", [SWIPES])
def test_every_swipe_is_taken_and_nothing_lands_elsewhere(till, counter, swipes):
    form = counter.start()
    places = {name: form.control(name).centre for name in FIELDS}
    for count, name in zip(range(swipes), itertools.cycle(FIELDS)):
        number = f"4{count:015}"
        swipe(till, places[name], number)
        till.wait(f"swipe {count} into {name}",
                  lambda: shown(form)[0]["txtCardNumber"] == number and shown(form)[1] == "txtAmount",
                  otherwise=lambda: shown(form))
        texts, _ = shown(form)
        assert texts["txtCardName"] == "JOHN SMITH"
        assert texts["cboExpMonth"].startswith("12") and texts["cboExpYear"] == "2029"
        assert {box: texts[box] for box in EMPTY} == dict.fromkeys(EMPTY, ""), f"swipe into {name}"
        assert texts["txtAmount"] == "0.00" and texts["txtTaxAmount"] == "$0.00"
        assert texts["txtInvoiceNumber"] == texts["txtPONumber"]
        assert texts["txtPONumber"].isdigit() and number not in texts["txtPONumber"]
        assert len(till.windows()) == 1, till.titles()
    till.picture("swiped")


def test_what_begins_like_a_swipe_stays_where_it_is_typed(till, counter):
    form = counter.start()
    text = "10% off; +1 for %A;5"
    till.enter("txtDescription", text, form)
    till.wait("the whole text", lambda: till.text("txtDescription") == text,
              otherwise=lambda: till.text("txtDescription"))
