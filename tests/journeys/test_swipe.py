"""Card readers at the real window: bursts of real keystrokes into whatever field has the focus.

TOLLVANE_SWIPES sets how many bursts are sent at each pace, "milliseconds:bursts ...", and how many
tills share them, "milliseconds:bursts:tills ..."."""

import os

import pytest

from harness import cards
from harness.reader import Reader
from harness.waiting import until

# Where the bursts go, and where a Tab leads from there.
FIELDS = {"txtDescription": "txtInvoiceNumber", "txtAmount": "chkTaxExempt",
          "txtCardNumber": "cboExpMonth", "txtCardName": "txtCardNumber",
          "txtEMail": "txtDescription", "txtBillToZip": "txtEMail", "txtTaxAmount": "chkVoiceAuth",
          "txtBillToStreet": "txtBillToCity", "txtPONumber": "cmdSubmit"}
EMPTY = ("txtAuthNum", "txtTransactionNumber", "txtBillToStreet", "txtBillToCity", "txtBillToZip",
         "txtEMail", "txtDescription", "txtCardCode")
# A swipe leads to the amount, and the Tab behind it further.
NEXT = FIELDS["txtAmount"]
SWIPES = os.environ.get("TOLLVANE_SWIPES", "0:450 1:300 2:210 12:40")
# What comes right before a good swipe when the card was pulled too slowly or the wrong way.
BROKEN_OFF = ("", "", "%B4", "", "%B4999{tail}", "", "%", "%B4999{tail}^SMI", "", ";4999{tail}", "",
              "%B4999{tail}^SMITH/JOHN^2901101")
# What a reader sends of a card of which it reads no track 1: every fifth burst.
UNREADABLE = (";E?+E?\r", ";4999{tail}=29011010000000000?\r", ";4999{tail}=2901?7\r",
              "+014999{tail}=724780000?\r", ";4999{tail}=2901?+014999{tail}=72?\r")
FIFTH = 5


def shares():
    """(milliseconds, first burst, the one behind the last) of each till."""
    found = []
    for plan in SWIPES.split():
        pace, bursts, tills, *_ = [*map(int, plan.split(":")), 1]
        found += [(pace, bursts * till // tills, bursts * (till + 1) // tills)
                  for till in range(tills)]
    return found


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
        self._form, self._reader, self._pace = form, reader, pace
        self._places = {name: form.control(name).centre for name in FIELDS}
        self._entry = form.watch(expected(""))

    def send(self, name, text):
        """Clicks into a field and sends what a reader sends; a Tab comes last."""
        self._reader.click(self._places[name])
        # The window manager may hand the click on later than the keys behind it.
        self._await_caret(name, name, 0.002, self._form.focused)
        self._reader.send(text + "\t", self._pace)

    def shows(self, what, number, caret):
        """Waits for what the Tab does, the last of all, and until the form shows this card and nothing
        else."""
        self._await_caret(what, caret, 0.01,
                          lambda: (self._form.focused(), self._different(number)))
        until(what, lambda: not self._different(number), interval=0.01,
              otherwise=lambda: self._different(number))

    def _await_caret(self, what, name, interval, otherwise):
        until(f"the caret in {name}: {what}", lambda: self._form.focused() == name,
              interval=interval, otherwise=otherwise)

    def _different(self, number):
        there, _ = self._entry()
        return {name: there[name] for name, text in expected(number).items()
                if there[name] != text}


def swipe(desk, count):
    """A good card, behind a swipe that was broken off or not; answers its number."""
    number = cards.numbered(count)
    name = list(FIELDS)[count % len(FIELDS)]
    # Another one for the same field each time around.
    broken = BROKEN_OFF[(count + count // len(BROKEN_OFF)) % len(BROKEN_OFF)]
    desk.send(name, broken.format(tail=tail_of(count)) + burst(number))
    desk.shows(f"swipe {count} into {name} behind {broken!r}", number, NEXT)
    return number


def swipe_unreadable(desk, count, number):
    """A card that leaves the entry as it was; `number` is the one that it shows."""
    name = list(FIELDS)[count % len(FIELDS)]
    text = UNREADABLE[count // FIFTH % len(UNREADABLE)].format(tail=tail_of(count))
    desk.send(name, text)
    desk.shows(f"unreadable card {count} at {name}, {text!r}", number, FIELDS[name])


def tail_of(count):
    """The digits by which a malformed card would be found."""
    return f"{count:04}{cards.MARK}"


@pytest.mark.parametrize("pace, first, last", shares())
def test_every_swipe_is_taken_and_nothing_lands_elsewhere(till, counter, display, pace, first, last):
    form = counter.start()
    with Reader(display) as reader:
        desk = Desk(form, reader, pace)
        for place, count in enumerate(range(first, last), 1):
            if place % FIFTH:
                number = swipe(desk, count)
            else:
                swipe_unreadable(desk, count, number)
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
