"""Card readers at the real window: bursts of real keystrokes into whatever field has the focus.

TOLLVANE_SWIPES sets how many bursts are sent at each pace, "milliseconds:bursts ..."."""

import itertools
import os

import pytest

from harness import cards
from harness.reader import Reader
from harness.waiting import until

FIELDS = ("txtDescription", "txtAmount", "txtCardNumber", "txtCardName", "txtEMail", "txtBillToZip",
          "txtTaxAmount", "txtBillToStreet", "txtPONumber")
EMPTY = ("txtAuthNum", "txtTransactionNumber", "txtBillToStreet", "txtBillToCity", "txtBillToZip",
         "txtEMail", "txtDescription", "txtCardCode")
NEXT = "chkTaxExempt"
SWIPES = os.environ.get("TOLLVANE_SWIPES", "0:450 1:300 2:210 12:40")
# What comes right before a good swipe when the card was pulled too slowly or the wrong way.
BROKEN_OFF = ("", "", "%B4", "", "%B4999{tail}", "", "%", "%B4999{tail}^SMI", "", ";4999{tail}", "",
              "%B4999{tail}^SMITH/JOHN^2901101")
# What a reader sends of a card of which it reads no track 1.
UNREADABLE = (";E?+E?\r", ";4999{tail}=29011010000000000?\r", ";4999{tail}=2901?7\r",
              "+014999{tail}=724780000?\r", ";4999{tail}=2901?+014999{tail}=72?\r")


def paces():
    """(milliseconds, bursts) of each pace that is to be played."""
    return [tuple(map(int, pace.split(":"))) for pace in SWIPES.split()]


def burst(number):
    """What a reader sends: tracks 1 and 2, each closed by Enter."""
    return f"%B{number}^SMITH/JOHN^2912101000000?\r;{number}=29121010000000000?\r"


def expected(number):
    """What the form shows when a swipe was taken whole and the Tab has moved on."""
    return {**dict.fromkeys(EMPTY, ""), "txtCardName": "JOHN SMITH", "txtCardNumber": number,
            "cboExpMonth": "12   December", "cboExpYear": "2029", "txtAmount": "$0.00",
            "txtTaxAmount": "$0.00"}


class Desk:
    """Sends bursts into fields of the form and says what they left there."""

    def __init__(self, form, reader, pace):
        self._reader, self._pace = reader, pace
        self._places = {name: form.control(name).centre for name in FIELDS}
        self._entry = form.watch(expected(""))
        self._caret = form.watch((*FIELDS, NEXT, "chkVoiceAuth"))

    def caret(self):
        """The control that has the focus."""
        return self._caret()[1]

    def send(self, name, text):
        """Clicks into a field and sends what a reader sends; a Tab comes last."""
        self._reader.click(self._places[name])
        # The window manager may hand the click on later than the keys behind it.
        until(f"the caret in {name}", lambda: self.caret() == name, interval=0.001,
              otherwise=self.caret)
        self._reader.send(text + "\t", self._pace)

    def shows(self, what, number):
        """Waits until the form shows this card and nothing else."""
        until(what, lambda: not self._different(number), interval=0.002,
              otherwise=lambda: self._different(number))

    def _different(self, number):
        there, _ = self._entry()
        return {name: there[name] for name, text in expected(number).items()
                if there[name] != text}


@pytest.mark.parametrize("pace, swipes", paces())
def test_every_swipe_is_taken_and_nothing_lands_elsewhere(till, counter, display, pace, swipes):
    form = counter.start()
    with Reader(display) as reader:
        desk = Desk(form, reader, pace)
        unreadable = itertools.cycle(UNREADABLE)
        for count, name, broken in zip(range(swipes), itertools.cycle(FIELDS),
                                       itertools.cycle(BROKEN_OFF)):
            number, tail = cards.numbered(count), f"{count:04}{cards.MARK}"
            what = f"swipe {count} into {name} behind {broken!r}"
            desk.send(name, broken.format(tail=tail) + burst(number))
            until(what, lambda: desk.caret() == NEXT, interval=0.005, otherwise=desk.caret)
            desk.shows(what, number)
            if count % 4 == 3:
                text = next(unreadable).format(tail=tail)
                desk.send(name, text)
                what = f"unreadable card {count} at {name}, {text!r}"
                until(what, lambda at=name: desk.caret() != at, interval=0.005,
                      otherwise=till.titles)
                desk.shows(what, number)
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
