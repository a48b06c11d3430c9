"""What the program is told through its own dialogs, and what becomes of it."""

from harness import cards, company
from harness.cards import CARD
from harness.counter import MANAGER, QUESTION
from harness.paper import Sheet
from harness.probe import Probe
from harness.waiting import until

COMPANY = r"\Company Information"
OPTIONS = r"\Options"
REQUIRED = r"\Options\Required Fields"
MISSING = "Required Field Missing"
SWIPE = f"%B{cards.numbered(1)}^SMITH/JOHN^2912101000000?"


def open_company(till):
    """The company information from the menu."""
    return till.open_by_menu("Company Information", "c")


def open_options(till):
    """The options from the menu."""
    return till.open_by_menu("Program Options", "o", "m")


def change_options(till, *captions, picture=None):
    """Switches boxes or buttons of the options dialog and stores them."""
    dialog = open_options(till)
    for caption in captions:
        control = till.control(caption, dialog)
        till.display.click(*control.centre)
        until(f"{caption} to be switched",
              lambda name=caption, was=control.checked: till.control(name, dialog).checked != was)
    if picture:
        till.picture(picture)
    till.display.press("Return")
    return till.form()


def return_to_form(till):
    """Clicks the form's title. Box and dialog went at once, after which the display's window
    manager gives nobody the keyboard."""
    until("the dialog to close", lambda: len(till.windows()) == 1, otherwise=till.titles)
    left, top, right, _ = till.windows()[0].rect
    till.display.click((left + right) // 2, top + 8)
    return till.form()


def test_the_company_information_is_filled_by_keyboard_alone_at_the_first_start(
        printers, till, counter, prefix, pictures):
    keys = till.display
    printers.add("Till", "Letter")
    till.start()
    counter.enter_first_operator(MANAGER)
    till.window(QUESTION)
    keys.press("alt+y")
    dialog = till.window("Company Information")
    till.picture("empty")
    until("the caret in the first field", lambda: till.focused() == "txtCompanyName",
          otherwise=till.focused)
    for text in ("Harbor Chairs", "12 Harbor Road", "Suite 5", "Springfield"):
        keys.type(text)
        keys.press("Tab")
    until("the list of states", lambda: till.focused() == "cboState", otherwise=till.focused)
    while till.control("cboState", dialog).text != "IL":
        before = till.control("cboState", dialog)["selected"]
        keys.press("Down")
        until("the next state", lambda was=before:
              till.control("cboState", dialog)["selected"] == was + 1)
    till.picture("state")
    assert till.control("lblStateName", dialog).text == "Illinois"
    for text in ("\t627011234", "\t8005551234", "\t12"):
        keys.type(text)
    keys.press("Tab")
    till.picture("filled")
    assert till.control("txtCompanyZip", dialog).text == "62701-1234"
    assert till.control("txtCompanyPhone", dialog).text == "(800) 555-1234"
    keys.press("Return")
    form = till.form()
    till.picture("form")
    shown = till.control("lblCompanyInfo", form).text.replace("\r\n", "\n")
    assert shown == ("Harbor Chairs\n12 Harbor Road\nSuite 5\n"
                     "Springfield, IL 62701-1234\n(800) 555-1234"), shown
    shop = {"Name": "Harbor Chairs", "Street": "12 Harbor Road", "City": "Springfield",
            "State": "IL", "Zip": "62701-1234", "Phone": "(800) 555-1234"}
    assert {name: prefix.value(COMPANY, name) for name in (*shop, "Location")} == {
        **shop, "Location": "0xc"}
    assert "Suite 5" in prefix.run("reg", "query", prefix.key(COMPANY), "/v", "Additional Address")

    counter.set_test_mode(False)
    counter.charge("10.00")
    counter.print_receipt(picture="print")
    sheet = Sheet(printers.document(1))
    sheet.picture(pictures / "receipt.png")
    rows = company.rows({**shop, "Additional Address": "Suite 5"})
    for half in sheet.halves():
        assert [row.text for row in half][3:3 + len(rows)] == rows


def test_a_required_field_is_asked_for(till, counter):
    counter.start()
    change_options(till, "Card Code", "PO Number", "Description", "Invoice number",
                   "Use invoice number for PO number", "Generate a default invoice number",
                   picture="switched")
    # The number that the form offered before has to go.
    form = till.form()
    till.enter("txtInvoiceNumber", "", form)
    till.enter("txtPONumber", "", form)
    counter.fill_charge("10.00", description="")
    for name, problem, text in (
            ("txtDescription", "The description field is required", "Two chairs"),
            ("txtInvoiceNumber", "The invoice number field is required", "INV-7"),
            ("txtPONumber", "The PO number field is required", "PO-7")):
        till.push("cmdSubmit", till.form())
        assert till.answer(MISSING, "OK", picture=name).startswith(problem)
        assert till.focused() == name
        till.display.type(text)
    till.enter("txtBillToCity", "", till.form())
    till.push("cmdSubmit", till.form())
    question = till.answer("Incomplete Billing Address", "Yes", picture="shop-address")
    assert "your shop address will be used instead" in question
    change_options(till, "Customer billing address")
    till.push("cmdSubmit", till.form())
    assert "is a required field" in till.answer("Incomplete Billing Address", "OK",
                                                picture="address")
    assert till.focused() == "txtBillToCity"
    till.display.type("Springfield")
    counter.submit()


def test_the_card_code_is_required_or_only_asked_for(till, counter):
    counter.start()
    counter.fill_charge("10.00")
    till.enter("txtCardCode", "", till.form())
    till.push("cmdSubmit", till.form())
    assert till.answer(MISSING, "OK").startswith("The card code field is required")
    change_options(till, "Card Code")
    till.push("cmdSubmit", till.form())
    till.answer("Card Security Code Not Entered", "Yes", picture="asked")
    assert till.focused() == "txtCardCode"
    till.display.type(CARD.code)
    counter.submit()


def test_the_address_is_the_shops_only_when_the_option_says_so(till, counter):
    counter.start()
    counter.fill_charge("10.00")
    till.enter("txtBillToCity", "", till.form())
    change_options(till, "Use shop's adress for blank address")
    counter.submit()


def test_what_a_new_entry_offers_follows_the_options(till, counter):
    counter.start()
    form = till.form()
    number = till.text("txtInvoiceNumber")
    assert number and till.text("txtPONumber") == number

    def swiped(invoice, order):
        """Swipes a card, which starts a new entry."""
        till.click_into("txtDescription", form)
        till.display.type(SWIPE, delay=1)
        until("the new entry", lambda: (bool(till.text("txtInvoiceNumber")),
                                        bool(till.text("txtPONumber"))) == (invoice, order),
              otherwise=lambda: till.text("txtInvoiceNumber"))

    change_options(till, "Use invoice number for PO number")
    swiped(invoice=True, order=False)
    change_options(till, "Generate a default invoice number")
    swiped(invoice=False, order=False)
    till.picture("no-numbers")


def test_the_tip_of_the_amount_is_shown_when_the_option_says_so(till, counter):
    form = counter.start()
    till.click("txtAmount", form)
    until("the amount", lambda: till.focused() == "txtAmount")
    assert len(till.windows()) == 1
    till.click("txtEMail", form)
    change_options(till, "Show refund/void warning")
    till.click("txtAmount", till.form())
    assert till.answer("Tip", "OK", picture="tip") == "Enter the amount to be charged."


def test_the_format_shapes_free_text_at_once(till, counter):
    form = counter.start()
    # Small letters stay in force for as long as the program runs, so they come last.
    for caption, shown in (("Proper Case", "Elm St"), ("None", "elm St"), ("lower Case", "elm st")):
        form = change_options(till, caption)
        for name in ("txtBillToStreet", "txtBillToCity", "txtDescription"):
            till.enter(name, "elm St", form)
            until(f"{shown} in {name}", lambda box=name, text=shown: till.text(box) == text,
                  otherwise=lambda box=name: till.text(box))


def test_whoever_may_not_store_settings_is_told_so_for_each(till, counter, prefix):
    counter.start()
    change_options(till, "PO Number")
    Probe(prefix).lock("Software\\Norrow Programs\\Tollvane")
    dialog = open_company(till)
    till.enter("txtCompanyName", "Harbor Chairs", dialog)
    till.display.press("Return")
    for thing in ("name", "street address", "addition address", "city", "state", "zip code",
                  "phone", "location"):
        kind = "SaveNumericValue" if thing == "location" else "SaveStringValue"
        text = till.answer(f"Tollvane:{kind}", "OK", picture=thing.replace(" ", "-"))
        assert text.startswith(f"There was an error saving the company {thing}.\n\nError: 5, "), text
    return_to_form(till)
    dialog = open_options(till)
    till.click("chkRPONumber", dialog)
    until("the change", lambda: till.control("cmdApply", dialog).enabled)
    till.display.press("Return")
    for count in range(10):
        title = next(t for t in ("Tollvane:SaveNumericValue",
                                 "Tollvane:SaveNumericValue:SaveBooleanValue, Err.Description")
                     if (count == 4) == (t == "Tollvane:SaveNumericValue"))
        assert "\n\nError: 5, " in till.answer(title, "OK")
    return_to_form(till)
    counter.charge("10.00")
    counter.finish()
