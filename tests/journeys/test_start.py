"""From an installed but never started program to the transaction form, and who is refused."""

from harness import payments
from harness.counter import MANAGER, Operator
from harness.prefix import SETTINGS_KEY
from harness.till import FORM_TITLE, TEST_MODE

NOT_LOADED = "Tollvane"
COMPANY_QUESTION = ("Your company information has not been entered.\n\n"
                    "This information is used when printing receipts.\n"
                    "Do you want to setup this program now?")
CLERK = Operator("Carl", "Evens", "carl", "till-drawer-3")


def test_the_first_start_creates_the_first_operator_and_asks_for_company_information(till, counter):
    till.start()
    counter.enter_first_operator(MANAGER)
    assert counter.refuse_company_question() == COMPANY_QUESTION
    form = till.form()
    till.picture("form")
    assert form.text == FORM_TITLE + TEST_MODE
    assert till.option() == "Charge"
    assert (form.rect[0], form.rect[1]) == (0, 0)
    assert till.text("txtAmount") == "$0.00"
    parts = till.control("sbrStatus", form)["parts"]
    assert parts[0].startswith("Data: C:\\") and "   Location: " in parts[0], parts
    counter.finish()


def test_the_second_start_asks_for_user_name_and_password(till, counter):
    counter.start()
    counter.finish()
    till.start()
    till.window("Sign In")
    counter.sign_in(MANAGER)
    counter.refuse_company_question()
    till.form()
    till.picture("form")


def test_a_stored_company_name_skips_the_question_and_shows_on_the_form(till, counter, prefix):
    prefix.set_value(r"\Company Information", "Name", "REG_SZ", "Harbor Chairs")
    prefix.set_value(r"\Company Information", "City", "REG_SZ", "Springfield")
    prefix.set_value(r"\Company Information", "State", "REG_SZ", "IL")
    prefix.set_value(r"\Company Information", "Zip", "REG_SZ", "62701")
    till.start()
    counter.enter_first_operator(MANAGER)
    form = till.form()
    till.picture("form")
    shown = till.control("lblCompanyInfo", form).text.replace("\r\n", "\n")
    assert shown == "Harbor Chairs\nSpringfield, IL 62701\n"


def test_wrong_passwords_never_say_which_half_was_wrong(till, counter):
    counter.start()
    counter.finish()
    till.start()
    window = till.window("Sign In")
    answers = set()
    for user, password in ((MANAGER.user, "not-the-password"), ("nobody", MANAGER.password)):
        till.enter("txtUserName", user, window)
        till.enter("txtPassword", password, window)
        till.display.press("Return")
        till.wait("the refusal", lambda: "not right" in till.control("lblMessage", window).text,
                  otherwise=lambda: till.control("lblMessage", window).text)
        till.picture("refused-" + user)
        till.wait("the next try to be allowed", lambda: till.control("cmdOK", window).enabled)
        answers.add(till.control("lblMessage", window).text)
    assert answers == {"The user name or the password is not right. Try again."} or len(answers) == 1
    counter.sign_in(MANAGER)
    counter.refuse_company_question()
    till.form()


def test_cancelling_the_login_ends_the_start(till, counter):
    counter.start()
    counter.finish()
    till.start()
    till.window("Sign In")
    till.display.press("Escape")
    text = till.answer(NOT_LOADED, "OK", picture="not-signed-in")
    assert text == ("There was an error loading the application.\n\n"
                    "Error: -2147219504, Authorization error. "
                    "You must login to take a credit card payment.")
    till.wait("the program to end", lambda: not till.windows())


def test_a_second_instance_is_refused_and_the_first_goes_on(till, counter):
    counter.start()
    till.start()
    text = till.answer("Application Is Running", "OK", picture="already-running")
    assert text == "Tollvane is already running."
    till.wait("one window to remain", lambda: len(till.windows()) == 1, otherwise=till.titles)
    till.form()


def add_clerk(till, counter):
    """The manager adds an operator who may not take payments."""
    till.start()
    window = till.window("Sign In")
    till.enter("txtUserName", MANAGER.user, window)
    till.enter("txtPassword", MANAGER.password, window)
    till.push("cmdOperators", window)
    operators = till.window("Operators")
    till.push("cmdAdd", operators)
    entry = till.window("Add Operator")
    for name, text in (("txtFirstName", CLERK.first), ("txtLastName", CLERK.last),
                       ("txtUserName", CLERK.user), ("txtPassword", CLERK.password),
                       ("txtPasswordAgain", CLERK.password)):
        till.enter(name, text, entry)
    if till.control("chkAcceptPayments", entry).checked:
        till.push("chkAcceptPayments", entry)
    till.picture("add-operator")
    till.display.press("Return")
    till.window("Operators")
    till.picture("operators")
    till.display.press("Return")


def test_an_operator_without_the_privilege_is_refused(till, counter):
    counter.start()
    counter.finish()
    add_clerk(till, counter)
    till.window("Sign In")
    counter.sign_in(CLERK)
    text = till.answer(NOT_LOADED, "OK", picture="no-privilege")
    assert text == ("There was an error loading the application.\n\n"
                    "Error: -2147219503, Authorization error. "
                    "You do not have sufficient privilge to accept credit card payments.")
    till.wait("the program to end", lambda: not till.windows())


def test_a_missing_charge_component_is_named_and_the_form_is_never_shown(till, counter, prefix):
    prefix.run("regsvr32", "/u", "/s", "zendacard.dll")
    till.start()
    counter.enter_first_operator(MANAGER)
    text = till.answer(NOT_LOADED, "OK", picture="no-charge-component")
    assert text == ("There was an error loading the application.\n\n"
                    "Error: 429, Error creating ZendaCard object. "
                    "ActiveX component can't create object")
    till.wait("the program to end", lambda: not till.windows())


def test_the_position_is_kept_in_the_settings(till, counter, prefix):
    counter.start()
    till.display.press("alt+F4")
    till.wait("the program to end", lambda: not till.windows())
    assert prefix.value(r"\Window", "X") == "0x0", SETTINGS_KEY
    assert prefix.value(r"\Window", "Y") == "0x0"
    assert payments.read(prefix) == []
