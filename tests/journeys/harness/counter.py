"""What the staff of a shop do at the till, step by step, with the keyboard."""

import dataclasses

from .cards import CARD, track_end

QUESTION = "Enter Company Information Now?"
APPROVED = "Approved"
FAILED = "Authorization Failed"


@dataclasses.dataclass(frozen=True)
class Operator:
    """Somebody who may sign in."""

    first: str = "Olive"
    last: str = "Trent"
    user: str = "olive"
    password: str = "counter-7-bell"


MANAGER = Operator()


class Counter:
    """The steps; each waits for what it needs and leaves the form or a message in front."""

    def __init__(self, till, keep=lambda name: None):
        """`keep` is called with a name at every state that is worth a picture."""
        self.till = till
        self.keep = keep

    def start(self, operator=MANAGER):
        """Starts the program for the first time ever, up to the transaction form."""
        self.till.start()
        self.enter_first_operator(operator)
        self.refuse_company_question()
        return self.till.form()

    def start_again(self, operator=MANAGER):
        """Starts the program when an operator is already there."""
        self.till.start()
        self.sign_in(operator)
        self.refuse_company_question()
        return self.till.form()

    def enter_first_operator(self, operator):
        """Fills the dialog that the very first start brings."""
        window = self.till.window("First Operator")
        self.keep("first-operator-empty")
        self.till.enter("txtFirstName", operator.first, window)
        self.till.enter("txtLastName", operator.last, window)
        self.till.enter("txtUserName", operator.user, window)
        self.till.enter("txtPassword", operator.password, window)
        self.till.enter("txtPasswordAgain", operator.password, window)
        self.keep("first-operator")
        self.till.display.press("Return")

    def sign_in(self, operator):
        """Signs in; what comes next depends on what the operator may do."""
        window = self.till.window("Sign In")
        self.till.enter("txtUserName", operator.user, window)
        self.till.enter("txtPassword", operator.password, window)
        self.keep("sign-in")
        self.till.display.press("Return")

    def refuse_company_question(self):
        """Answers No and returns the question."""
        self.till.window(QUESTION)
        self.keep("company-question")
        return self.till.answer(QUESTION, "No")

    def set_test_mode(self, wanted):
        """Opens the charge component's own dialog through the form's pop-up menu."""
        form = self.till.form()
        self.till.push("cmdModify", form)
        self.till.await_menu()
        self.keep("configure-menu")
        self.till.display.press("g")
        dialog = self.till.window("Gateway Setup")
        if self.till.control("chkTestMode", dialog).checked != wanted:
            self.till.push("chkTestMode", dialog)
        self.keep("gateway-setup")
        self.till.display.press("Return")
        return self.till.form(test_mode=wanted)

    def fill_card(self, card=CARD):
        """Keys the card."""
        form = self.till.form()
        self.till.enter("txtCardName", card.holder, form)
        self.till.enter("txtCardNumber", card.number, form)
        self.till.enter("txtCardCode", card.code, form)
        self.till.choose("cboExpMonth", card.month, form)
        self.till.choose("cboExpYear", card.year, form)

    def swipe(self, card=CARD):
        """Swipes the card through a reader that sends tracks 1 and 2, each closed by Enter."""
        form = self.till.form()
        self.till.click_into("txtCardName", form)
        *given, family = card.holder.upper().split()
        first = f"%B{card.number}^{family}/{' '.join(given)}^{track_end(card)}?"
        second = f";{card.number}={track_end(card)}0?"
        for track in (first, second):
            self.till.display.type(track, delay=1)
            self.till.display.press("Return")
        shown = (card.number, "*" * len(card.number))
        # The card before may be the one whose stars are seen, but then the focus is elsewhere yet.
        self.till.wait("the swiped card",
                       lambda: self.till.focused() == "txtAmount"
                       and self.till.control("txtCardNumber", form).text in shown,
                       otherwise=lambda: self.till.control("txtCardNumber", form).text)

    def fill_address(self):
        """Keys a whole billing address."""
        form = self.till.form()
        self.till.enter("txtBillToStreet", "12 Harbor Road", form)
        self.till.enter("txtBillToCity", "Springfield", form)
        self.till.choose("cboBillToState", "IL", form)
        self.till.enter("txtBillToZip", "62701", form)

    def fill_charge(self, amount, tax="", card=CARD, description="Two chairs"):
        """Keys everything that an ordinary charge needs."""
        form = self.till.form()
        self.fill_card(card)
        self.till.enter("txtAmount", amount, form)
        if tax:
            self.till.enter("txtTaxAmount", tax, form)
        self.fill_address()
        self.till.enter("txtEMail", "mary@example.com", form)
        self.till.enter("txtDescription", description, form)

    def select(self, kind):
        """Selects "Charge", "Refund" or "Void"."""
        form = self.till.form()
        button = next(c for c in form.controls() if c.caption == kind)
        self.till.display.click(*button.centre)
        self.till.wait("the type " + kind, lambda: self.till.option() == kind)

    def fill_reference(self, amount, transaction, number=None):
        """Keys what a void needs, the amount and the earlier transaction, and for a refund the card."""
        form = self.till.form()
        if number:
            self.till.enter("txtCardNumber", number, form)
        self.till.enter("txtAmount", amount, form)
        self.till.enter("txtTransactionNumber", transaction, form)

    def submit(self, title=APPROVED, picture=None):
        """Submits, answers the result and returns its text. The form, which drops keys while it is
        busy, is ready for the next step then, or another window is in front."""
        form = self.till.form()
        self.till.push("cmdSubmit", form)
        self.till.window(title)
        if picture:
            self.keep(picture)
        text = self.till.answer(title, "OK")
        self.till.wait("the form to be ready",
                       lambda: (self.till.front().hwnd != form.hwnd
                                or self.till.control("cmdSubmit", form).enabled))
        return text

    def charge(self, amount, **details):
        """One approved charge; returns its transaction id."""
        self.fill_charge(amount, **details)
        self.submit()
        return self.till.text("txtTransactionNumber")

    def print_receipt(self, picture=None):
        """Prints through the menu, by keyboard alone."""
        self.till.form()
        self.till.display.press("alt+r")
        self.till.await_menu()
        if picture:
            self.keep(picture)
        self.till.display.press("r")

    def finish(self):
        """Closes the program by its own button ("Cancel" or "Finished")."""
        self.till.push("cmdCancel", self.till.form())
        self.till.wait("the program to end", lambda: not self.till.windows())
