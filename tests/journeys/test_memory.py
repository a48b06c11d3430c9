"""What the running program still holds of a card when the till is done with it."""

import pytest

from harness import cards, memory, processes
from harness.cards import CARD, ISSUER_DIGITS, Card
from harness.counter import FAILED

FIRST, SECOND = (Card(number=number) for number in cards.OTHER_NUMBERS)
DELETIONS = (("Home", "shift+End", "Delete"), ("End", *["BackSpace"] * 16),
             ("Home", "shift+End", "7", "BackSpace"))
BOXES = ("txtCardNumber", "txtCardCode", "txtMagStripe", "txtKbBuffer")
SECRETS = (CARD.number, ISSUER_DIGITS, FIRST.number, SECOND.number)


class Memory:
    """Looks for the cards of these journeys in the program's memory."""

    def __init__(self, prefix):
        self._process = processes.process_of(prefix, "Tollvane.exe")

    def copies(self):
        """Every copy there is now."""
        return memory.copies(self._process, SECRETS)

    def holds_only(self, number=None):
        """Fails unless all there is is the number that the charge component was given last, once,
        as the component keeps it."""
        there = self.copies()
        # What happens to stand behind it in the memory may look like one more digit.
        kept = [copy for copy in there
                if number and copy.text.startswith(number) and not copy.is_wide]
        assert len(kept) == len(there) == (1 if number else 0), list(map(str, there))

    def holds_nothing_of(self, number):
        """Fails when there is a copy of that number or of a part of it."""
        left = memory.copies(self._process, [number])
        assert not left, list(map(str, left))


@pytest.fixture
def held(till, open_counter, prefix):
    """The memory of the program at an open counter; no card was there yet, and nobody reads one
    off the form, since whoever does makes the program copy it."""
    del open_counter
    till.look_away(*BOXES)
    looker = Memory(prefix)
    looker.holds_only()
    return looker


def test_a_keyed_card_is_gone_when_the_next_entry_begins(till, open_counter, held):
    open_counter.fill_charge("42.50", "2.50", card=FIRST)
    assert len(held.copies()) > 0, "the search finds what is on the form"
    open_counter.submit()
    till.form()
    till.click_into("txtDescription")
    till.display.type("N")  # which starts the next entry
    till.wait("the next entry", lambda: till.text("txtCardNumber") == "")
    held.holds_only(FIRST.number)
    # A decline, and another card instead.
    open_counter.fill_charge("7002.20", card=FIRST)
    open_counter.submit(FAILED)
    till.enter("txtCardNumber", SECOND.number, till.form())
    till.enter("txtAmount", "20.00")
    open_counter.submit()
    open_counter.select("Charge")
    till.wait("the next entry", lambda: till.text("txtCardNumber") == "")
    held.holds_only(SECOND.number)


def test_a_swiped_card_is_gone_when_the_next_entry_begins(till, open_counter, held):
    open_counter.swipe(CARD)
    till.enter("txtAmount", "86.40", till.form())
    open_counter.fill_address()
    open_counter.submit()
    open_counter.select("Charge")
    till.wait("the next entry", lambda: till.text("txtCardNumber") == "")
    held.holds_only(CARD.number)
    # A card that was never submitted, replaced by another one before its entry ends.
    open_counter.swipe(FIRST)
    open_counter.swipe(SECOND)
    held.holds_nothing_of(FIRST.number)
    till.open_by_menu("Company Information", "c")
    till.display.press("Escape")
    till.form()
    held.holds_nothing_of(FIRST.number)


def test_a_card_number_that_was_deleted_by_hand_goes_with_its_entry(till, open_counter, held):
    for keys in DELETIONS:
        till.enter("txtCardNumber", FIRST.number, till.form())
        till.display.press(*keys)
        till.wait("the empty box", lambda: till.text("txtCardNumber") == "",
                  otherwise=lambda: till.text("txtCardNumber"))
        open_counter.swipe(SECOND)
        held.holds_nothing_of(FIRST.number)
