"""Receipts printed through the menu on a real queue: their words, places and looks."""

import datetime

import pytest

from harness import company
from harness.company import COMPANY
from harness.cards import CARD
from harness.paper import Sheet

LABELS = ("Name", "Card Number", "Amount", "Authorized", "Transaction ID")
SUPPRESSED = "Information suppressed for security"
POINTS_PER_TWIP = 1 / 20


def value_of(row):
    """The first word of a row's value."""
    label = max((label for label in LABELS if row.text.startswith(label + " ")), key=len,
                default=None)
    return row.words[len(label.split())] if label else None


def check(sheet, shop, rows):
    """Both copies say this and look the same, in their halves of the page."""
    today = datetime.date.today().strftime("Date %m-%d-%Y")
    halves = sheet.halves()
    for half, label in zip(halves, ("(customer)", "(store)")):
        assert [row.text for row in half] == ["Tollvane Receipt", label, today,
                                              *company.rows(shop), *rows]
        for row in half[:2]:
            assert row.middle == pytest.approx(sheet.width / 2, abs=1), row
        assert half[2].left == pytest.approx(0, abs=0.5)
        for row in half[3:]:
            if row.text != SUPPRESSED:
                assert row.left == pytest.approx(300 * POINTS_PER_TWIP, abs=0.3), row
        # One column of values, a little to the right of the widest label.
        column = [value_of(row).left for row in half if value_of(row)]
        column += [row.left for row in half if row.text == SUPPRESSED]
        assert max(column) - min(column) < 0.5, column
        assert all(word.right < min(column) for row in half if value_of(row)
                   for word in row.words[:row.words.index(value_of(row))])
    # The store's copy is the customer's, moved down.
    distances = [store.top - customer.top for customer, store in zip(*halves)]
    assert max(distances) - min(distances) < 0.5, distances
    assert sheet.outside() == []
    assert sheet.overlapping() == []
    check_rule(sheet)


def check_rule(sheet):
    """A line from edge to edge at half the page, and nothing else like it."""
    ink = sheet.ink()
    ruled = [height for height, share in enumerate(ink) if share > 0.9]
    assert ruled and max(ruled) - min(ruled) < 2, ruled
    assert ruled[0] == pytest.approx(sheet.height / 2, abs=2)


def check_secrecy(printers, card=CARD):
    """Nobody reads the card's number, its code or its expiry on the paper."""
    for document in printers.documents():
        shown = " ".join(word.text for word in Sheet(document).words)
        assert card.number[:-4] not in shown
        assert card.code not in shown
        assert card.year not in shown.replace(datetime.date.today().strftime("-%Y"), "")


def masked(card=CARD):
    """The card as the paper shows it."""
    return "*" * (len(card.number) - 4) + card.number[-4:]


def printed(printers, counter, number, pictures, name):
    """Prints the entry that was just approved and returns the sheet."""
    counter.print_receipt(picture=f"{name}-menu")
    sheet = Sheet(printers.document(number))
    sheet.picture(pictures / f"receipt-{name}.png")
    counter.till.form()
    return sheet


@pytest.fixture
def a4_counter(printers, prefix, request):
    """An open counter with a queue for A4. The program looks for printers when it starts."""
    printers.add("Till", "A4")
    counter = request.getfixturevalue("open_counter")
    company.store(prefix, COMPANY)
    return counter


def test_a_charge_and_a_void_are_printed_on_a4(printers, till, a4_counter, pictures):
    transaction = a4_counter.charge("1642.50")
    approval = till.text("txtAuthNum")
    sheet = printed(printers, a4_counter, 1, pictures, "charge")
    assert (round(sheet.width), round(sheet.height)) == (595, 842)
    check(sheet, COMPANY, [f"Name {CARD.holder.upper()}", f"Card Number {masked()}", SUPPRESSED,
                           "Amount $1,642.50", f"Authorized {approval}",
                           f"Transaction ID {transaction}"])

    a4_counter.select("Void")
    a4_counter.fill_reference("1642.50", transaction)
    a4_counter.submit()
    sheet = printed(printers, a4_counter, 2, pictures, "void")
    check(sheet, COMPANY, ["Name", "Card Number ** VOID TRANSACTION **", SUPPRESSED,
                           "Amount ** VOID **",
                           f"Transaction ID {till.text('txtTransactionNumber')}"])
    check_secrecy(printers)


def test_a_swiped_charge_and_a_refund_are_printed_on_letter(printers, prefix, till, counter,
                                                            pictures):
    printers.add("Till", "Letter")
    counter.start()
    counter.set_test_mode(False)
    shop = {**COMPANY, "Name": "The Harbor Chair, Table and Lighthouse Lamp Company",
            "Additional Address": "Warehouse 7, Second Floor"}
    company.store(prefix, shop)
    counter.swipe()
    till.enter("txtAmount", "86.40", till.form())
    counter.fill_address()
    counter.submit(picture="approved")
    transaction = till.text("txtTransactionNumber")
    rows = [f"Name {CARD.holder.upper()}", f"Card Number {masked()}", SUPPRESSED,
            "Amount $86.40", f"Authorized {till.text('txtAuthNum')}",
            f"Transaction ID {transaction}"]
    sheet = printed(printers, counter, 1, pictures, "swiped")
    assert (round(sheet.width), round(sheet.height)) == (612, 792)
    check(sheet, shop, rows)
    # As often as wanted.
    check(printed(printers, counter, 2, pictures, "again"), shop, rows)

    counter.select("Refund")
    counter.fill_reference("30.00", transaction, CARD.number)
    counter.submit()
    sheet = printed(printers, counter, 3, pictures, "refund")
    check(sheet, shop, ["Name", f"Card Number {masked()}", SUPPRESSED,
                           "Amount $30.00 - credit",
                           f"Transaction ID {till.text('txtTransactionNumber')}"])
    check_secrecy(printers)


def test_without_a_printer_the_receipt_says_so(till, open_counter):
    open_counter.charge("12.00")
    open_counter.print_receipt()
    text = till.answer("There is no default printer", "OK", picture="no-printer")
    assert text == ("There was an error printing the receipt.\n\n"
                    "Error = 484, There is no default printer.")
    till.form()
    till.picture("after-the-box")


def test_a_queue_that_refuses_is_reported_and_the_receipt_can_be_printed_later(
        printers, till, a4_counter, pictures):
    a4_counter.charge("12.00")
    printers.refuse("Till")
    a4_counter.print_receipt()
    box = till.wait("the box", lambda: [w for w in till.windows() if w.is_message_box],
                    otherwise=till.titles)
    title = box[0].text
    text = till.answer(title, "OK", picture="refused")
    assert text.startswith("There was an error printing the receipt.\n\nError = ")
    assert text.endswith(f", {title}.")
    printers.accept("Till")
    sheet = printed(printers, a4_counter, 1, pictures, "later")
    assert len(sheet.halves()[1]) == len(sheet.halves()[0])
    till.wait("an empty queue", printers.is_idle)
