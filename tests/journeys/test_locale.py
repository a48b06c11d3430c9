"""The shipped program where money is written in other ways: the same keys, the same amount."""

import pytest

from harness import payments

INTERNATIONAL = r"HKCU\Control Panel\International"
COMMA = {"sDecimal": ",", "sThousand": ".", "sMonDecimalSep": ",", "sMonThousandSep": "."}
MANNERS = {
    "decimal comma, symbol behind": (
        {**COMMA, "sCurrency": "EUR", "iCurrency": "3", "iNegCurr": "8"},
        "1.234,56 EUR", "1234.56"),
    "no decimals": (
        {"sCurrency": "JPY", "iCurrDigits": "0", "iCurrency": "2", "iNegCurr": "9"},
        "JPY 1,235", "1235"),
    "three decimals": (
        {"sCurrency": "KD", "iCurrDigits": "3", "iCurrency": "1", "iNegCurr": "5"},
        "1,234.560KD", "1234.56"),
}


@pytest.mark.parametrize("manner", MANNERS)
def test_a_charge_is_posted_as_it_was_keyed(till, counter, prefix, manner):
    settings, shown, posted = MANNERS[manner]
    for name, text in settings.items():
        prefix.run("reg", "add", INTERNATIONAL, "/v", name, "/d", text, "/f")
    counter.start()
    counter.set_test_mode(False)
    counter.fill_charge("1234" + settings.get("sDecimal", ".") + "56")
    assert till.text("txtAmount") == shown
    till.picture("filled")
    counter.submit()
    record, = payments.read(prefix)
    assert record["Amount"].replace(",", ".") == posted
