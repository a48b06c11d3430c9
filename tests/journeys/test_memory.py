"""What the running program still holds of a card when the till is done with it."""

import json
import os

import pytest

from harness import cards, memory, processes
from harness.cards import CARD, ISSUER_DIGITS, Card
from harness.counter import FAILED

FIRST, SECOND = (Card(number=number) for number in cards.OTHER_NUMBERS)
DELETIONS = (("Home", "shift+End", "Delete"), ("End", *["BackSpace"] * len(FIRST.number)),
             ("Home", "shift+End", "7", "BackSpace"))
BOXES = ("txtCardNumber", "txtCardCode", "txtMagStripe", "txtKbBuffer")
PROGRAMS = ("Tollvane.exe", "dcZenda32.exe")
# The steps after which the memory is searched.
ON_FORM = "keying a card and its code, which are still on the form"
CLEARED = "ClearText"
BEGUN = "the beginning of the next transaction with another card"
SWIPED = "a swipe over a swipe"
CLOSED = "the exit of a dialog"
DELETED = "a deletion by hand and the next swipe"
CODES = (CARD.code,)
SECRETS = (CARD.number, ISSUER_DIGITS, FIRST.number, SECOND.number)


class Memory:
    """Looks for the cards of these journeys in the memory of the program and of its server."""

    def __init__(self, prefix):
        self._prefix = prefix
        self._processes = {name: processes.process_of(prefix, name) for name in PROGRAMS}

    def copies(self, program=PROGRAMS[0]):
        """Every copy there is now."""
        return memory.copies(self._processes[program], SECRETS, CODES)

    def holds_only(self, number, after):
        """Fails unless all there is is the number that the charge component was given last, once,
        as the component keeps it."""
        self._check(after, self.copies(), number)

    def holds_nothing_of(self, number, after, kept=None):
        """Fails when there is a copy of that number, of a part of it or of a card's code, but for
        the number that the charge component may keep."""
        self._check(after, memory.copies(self._processes[PROGRAMS[0]], [number], CODES), kept)

    def _check(self, after, there, number):
        # What happens to stand behind it in the memory may look like one more digit.
        kept = [copy for copy in there
                if number and copy.text.startswith(number) and not copy.is_wide]
        left = [copy for copy in there if copy not in kept[:1]]
        note(after, PROGRAMS[0], len(kept[:1]), left)
        self.server_holds_nothing(after)
        assert not left and len(kept) == (1 if number else 0), list(map(str, there))

    def nobody_else_holds_anything(self):
        """Fails when a copy came into any other process of the installation: Wine's own."""
        for process in processes.of_prefix(self._prefix):
            name = processes.program_of(process)
            if name not in (*PROGRAMS, "probe.exe"):
                left = memory.copies(process, SECRETS, CODES)
                note("the last step of a journey", name, 0, left)
                assert not left, (name, list(map(str, left)))

    def server_holds_nothing(self, after):
        """Fails when a copy of anything came into the host data server."""
        left = self.copies(PROGRAMS[1])
        note(after, PROGRAMS[1], 0, left)
        assert not left, list(map(str, left))


def note(after, program, kept, left):
    """Adds a line on one look to the list that ./prove counts, where it wants one."""
    proof = os.environ.get("TOLLVANE_COPIES")
    if proof:
        with open(proof, "a", encoding="utf-8") as lines:
            lines.write(json.dumps({"after": after, "program": program, "kept": kept,
                                    "left": len(left)}) + "\n")


@pytest.fixture
def held(till, open_counter, prefix):
    """The memory of the program at an open counter; no card was there yet, and nobody reads one
    off the form, since whoever does makes the program copy it."""
    del open_counter
    till.look_away(*BOXES)
    looker = Memory(prefix)
    looker.holds_only(None, "the sign-in")
    return looker


def test_a_keyed_card_is_gone_when_the_next_entry_begins(till, open_counter, held):
    open_counter.fill_charge("42.50", "2.50", card=FIRST)
    there = held.copies()
    note(ON_FORM, PROGRAMS[0], 0, there)
    found = [copy.text for copy in there]
    assert FIRST.number in found and "card code" in found, "the search finds what is on the form"
    open_counter.submit()
    till.form()
    till.click_into("txtDescription")
    till.display.type("N")  # which starts the next entry
    till.wait("the next entry", lambda: till.text("txtCardNumber") == "")
    held.holds_only(FIRST.number, CLEARED)
    open_counter.swipe(CARD)
    held.holds_nothing_of(FIRST.number, BEGUN, kept=FIRST.number)
    # A decline, and another card instead.
    open_counter.fill_charge("7002.20", card=FIRST)
    open_counter.submit(FAILED)
    till.enter("txtCardNumber", SECOND.number, till.form())
    till.enter("txtAmount", "20.00")
    open_counter.submit()
    open_counter.select("Charge")
    till.wait("the next entry", lambda: till.text("txtCardNumber") == "")
    held.holds_only(SECOND.number, CLEARED)
    close_a_dialog(till)
    held.holds_only(SECOND.number, CLOSED)
    held.nobody_else_holds_anything()


def test_a_swiped_card_is_gone_when_the_next_entry_begins(till, open_counter, held):
    open_counter.swipe(CARD)
    till.enter("txtAmount", "86.40", till.form())
    open_counter.fill_address()
    open_counter.submit()
    open_counter.select("Charge")
    till.wait("the next entry", lambda: till.text("txtCardNumber") == "")
    held.holds_only(CARD.number, CLEARED)
    # A card that was never submitted, replaced by another one before its entry ends.
    open_counter.swipe(FIRST)
    held.holds_nothing_of(CARD.number, BEGUN, kept=CARD.number)
    open_counter.swipe(SECOND)
    held.holds_nothing_of(FIRST.number, SWIPED)
    close_a_dialog(till)
    held.holds_nothing_of(FIRST.number, CLOSED)
    held.nobody_else_holds_anything()


def test_a_card_number_that_was_deleted_by_hand_goes_with_its_entry(till, open_counter, held):
    for keys in DELETIONS:
        till.enter("txtCardNumber", FIRST.number, till.form())
        till.display.press(*keys)
        till.wait("the empty box", lambda: till.text("txtCardNumber") == "",
                  otherwise=lambda: till.text("txtCardNumber"))
        open_counter.swipe(SECOND)
        held.holds_nothing_of(FIRST.number, DELETED)


def close_a_dialog(till):
    """Opens a dialog and leaves it."""
    till.open_by_menu("Company Information", "c")
    till.display.press("Escape")
    till.form()
