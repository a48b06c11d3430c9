"""Charges, refunds and voids at an open counter, and what they leave in the shop's books."""

import re

from harness import payments, secrets
from harness.cards import CARD, ISSUER_DIGITS, SEARCH
from harness.counter import FAILED
from harness.prefix import TEMPLATE

MASKED = "*" * 12 + CARD.number[-4:]


def details(text):
    """The lines "name:<tab>value" of a result message."""
    return dict(re.findall(r"^([^\n\t:]+):\t([^\n]*)$", text, re.MULTILINE))


def test_a_charge_in_test_mode_is_approved_and_posts_nothing(till, counter, prefix):
    counter.start()
    counter.fill_charge("42.50", "2.50")
    till.picture("filled")
    text = counter.submit(picture="approved")
    assert text.startswith("The authorization was successful.\n\nAproval code:\t"), text
    till.picture("finished")
    assert payments.read(prefix) == []


def test_a_charge_is_approved_shown_and_posted(till, open_counter, prefix):
    open_counter.fill_charge("42.50", "2.50")
    till.picture("filled")
    text = open_counter.submit(picture="approved")
    assert text.startswith("The authorization was successful.\n\n"), text
    shown = details(text)
    assert till.text("txtAuthNum") == shown["Aproval code"]
    assert till.text("txtTransactionNumber") == shown["Transaction ID"]
    assert till.control("cmdCancel", till.form()).caption == "Finished"
    till.wait("the focus on Finished", lambda: till.focused() == "cmdCancel",
              otherwise=till.focused)
    till.picture("finished")
    record, = payments.read(prefix)
    assert record == {**record, "Account": MASKED, "Amount": "42.5",
                      "Approval": shown["Aproval code"], "Expire": "0829", "PaidBy": "Charge",
                      "SoldToLast": "SMITH", "Street": "12 Harbor Road",
                      "TransID": shown["Transaction ID"], "Zip": "62701"}


def test_a_second_submission_after_an_approval_is_refused(till, open_counter, prefix):
    open_counter.charge("10.00")
    text = open_counter.submit("Transaction Already Authorized", picture="already-authorized")
    assert text == ("This transaction has already been authorized. "
                    "Please enter a new transaction to continue.")
    assert len(payments.read(prefix)) == 1


def test_a_declined_charge_says_why_keeps_the_entry_and_posts_nothing(till, open_counter, prefix):
    open_counter.fill_charge("7002.20")
    text = open_counter.submit(FAILED, picture="declined")
    assert text.startswith("The authorization failed.\n\nResponse code:\t2\nReason code:\t"), text
    assert "declined" in text.splitlines()[-1]
    form = till.form()
    till.picture("ready-to-correct")
    assert till.control("txtCardName", form).text == CARD.holder.upper()
    assert till.control("txtCardNumber", form).text == CARD.number
    assert till.control("txtCardName", form).enabled
    assert payments.read(prefix) == []
    # The operator corrects the amount and goes on.
    till.enter("txtAmount", "20.00", form)
    open_counter.submit()
    assert len(payments.read(prefix)) == 1


def test_a_refund_is_posted_with_a_negative_amount(till, open_counter, prefix):
    transaction = open_counter.charge("80.00")
    open_counter.select("Refund")
    till.picture("refund-empty")
    open_counter.fill_reference("30.00", transaction, CARD.number)
    till.picture("refund-filled")
    text = open_counter.submit(picture="refunded")
    assert text.startswith("The refund was successful.\n\n"), text
    charged, refunded = payments.read(prefix)
    assert (charged["Amount"], refunded["Amount"]) == ("80", "-30")
    assert refunded["Account"] == MASKED


def test_a_refund_above_what_is_left_is_refused(till, open_counter, prefix):
    transaction = open_counter.charge("15.00")
    open_counter.select("Refund")
    open_counter.fill_reference("15.01", transaction, CARD.number)
    text = open_counter.submit(FAILED, picture="refund-too-large")
    assert text.startswith("The refund failed.\n\nResponse code:\t3"), text
    assert "left to refund" in text
    assert len(payments.read(prefix)) == 1


def test_a_void_is_posted_as_a_void(till, open_counter, prefix):
    transaction = open_counter.charge("64.20")
    open_counter.select("Void")
    till.picture("void-empty")
    open_counter.fill_reference("64.20", transaction)
    text = open_counter.submit(picture="voided")
    assert text.startswith("The void was successful.\n\n"), text
    charged, voided = payments.read(prefix)
    assert (voided["Amount"], voided["Approval"]) == ("-64.2", "VOID")
    assert "Account" not in voided or voided["Account"] == ""


def test_a_charge_authorized_by_telephone_is_captured(till, open_counter, prefix):
    open_counter.fill_charge("31.00")
    till.push("chkVoiceAuth", till.form())
    till.wait("the approval code's box", lambda: till.control("txtAuthNum").enabled)
    till.enter("txtAuthNum", "A1B2C3", till.form())
    till.picture("voice-filled")
    text = open_counter.submit(picture="captured")
    assert text.startswith("The voice authorization capture was successful.\n\n"), text
    record, = payments.read(prefix)
    assert record["Amount"] == "31"


def test_no_trace_of_the_card_is_left_on_the_machine(till, open_counter, prefix):
    open_counter.charge("42.50", description="Swept")
    open_counter.select("Charge")
    open_counter.fill_charge("7002.20")
    open_counter.submit(FAILED)
    open_counter.select("Void")
    open_counter.select("Charge")
    open_counter.swipe()
    till.enter("txtAmount", "86.40", till.form())
    open_counter.fill_address()
    open_counter.submit()
    open_counter.finish()
    planted = prefix.folder / "drive_c" / "planted.bin"
    planted.write_bytes(f"{ISSUER_DIGITS} ".encode("utf-16-le") + CARD.code.encode())
    prefix.run("reg", "add", r"HKCU\Software\Planted", "/v", "Number", "/d", CARD.number, "/f")
    till.close()
    files = secrets.left_behind(prefix.folder, TEMPLATE)
    # The search that follows each journey works: it finds what was planted, and nothing else.
    registry = prefix.folder / "user.reg"
    assert SEARCH.finds_in(files) == {str(registry): ["digits"],
                                      str(planted): ["digits", "card code"]}
    assert any(MASKED.encode() in path.read_bytes() for path in files), "it looks into the books"
    planted.unlink()
    registry.unlink()
