"""The shipped program where money is written in other ways: the amount that the box shows when it
is left is the amount of the charge."""

import dataclasses

import pytest

from harness import books, country, payments
from harness.cards import CARD

INTERNATIONAL = r"HKCU\Control Panel\International"
COMMA = {"sDecimal": ",", "sThousand": ".", "sMonDecimalSep": ",", "sMonThousandSep": "."}
# The keys are those of 1234.56. Where a currency has no decimals the box shows a whole amount once
# it is left, and what the operator sees is what is charged.
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
def test_a_charge_is_posted_as_it_was_shown(till, counter, prefix, manner):
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


@dataclasses.dataclass(frozen=True)
class Place:
    """A country: its locale, the Windows code page there and what comes of its users' typing."""

    locale: str
    page: str
    family: str  # a name in letters of the country
    typed: str   # keyed as amount
    shown: str
    cents: int   # what the processor gets


# The second bytes of these letters look like "c", "^", "|", "_" and the backslash.
PLACES = {
    "Japan": Place("ja_JP", "cp932", "\u7530\u4e2d\u30bf\u30dd\u30c0\u30bd\uff81\uff71\uff72",
                   "1235", "\uffe51,235", 123500),
    "Saudi Arabia": Place("ar_SA", "cp1256", "\u0627\u0644\u0639\u0631\u0628\u064a",
                          "1234.56", "1,234.56\u0631.\u0633.\u200f", 123456),
}


@pytest.fixture(params=PLACES)
def place(request):
    """One country after the other."""
    return PLACES[request.param]


@pytest.fixture
def abroad(prefix, place):
    """The prefix of somebody who lives there; to be asked for before the till."""
    country.live_in(prefix, place.locale)
    return prefix


def fill(till, place, name, text, expected):
    """Types letters of the country into a box; they come as those of an input method do."""
    form = till.form()
    till.enter(name, text, form)
    till.wait(f"the text of {name}", lambda: till.control(name, form).text == expected,
              otherwise=lambda: till.control(name, form).text)
    assert expected.encode(place.page).decode(place.page) == expected


def test_letters_of_the_country_and_amounts_arrive_whole(abroad, place, till, counter):
    counter.start()
    form = counter.set_test_mode(False)
    assert form.text == "Credit Card Charge/Credit"
    counter.fill_charge(place.typed)
    assert till.text("txtAmount") == place.shown
    fill(till, place, "txtCardName", f"Mary {place.family}", f"MARY {place.family}")
    fill(till, place, "txtDescription", place.family, place.family)
    # The box takes 40 bytes; at an odd place only half a Japanese letter would have room.
    fill(till, place, "txtBillToCity", "X" + place.family[0] * 40,
         ("X" + place.family[0] * 40).encode(place.page)[:40].decode(place.page, "ignore"))
    till.picture("filled")
    assert counter.submit(picture="approved").startswith("The authorization was successful.")
    counter.swipe()
    till.enter("txtAmount", place.typed)
    counter.fill_address()
    counter.submit()
    counter.finish()
    abroad.stop()
    read = books.read(abroad.folder)
    assert read.problems() == []
    assert [amount for _, amount in read.ledger] == [place.cents] * 2
    assert [amount for _, amount in read.payments] == [place.cents] * 2
    names = [place.family, CARD.holder.split()[-1].upper()]
    assert books.family_names(abroad.folder) == names
