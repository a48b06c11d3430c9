"""The cards that are used at the till. Their numbers pass the check and belong to nobody."""

import dataclasses

from .secrets import CardSearch

# Of a card so many digits may be shown.
MOST_SHOWN = 4

# Digits that no clock and no counter brings: they tell the numbers from everything else.
MARK = "73951864"
ISSUER_DIGITS = "5926384715"


@dataclasses.dataclass(frozen=True)
class Card:
    """A card as its holder reads it out."""

    holder: str = "Mary Ann Smith"
    number: str = "4012888888881881"
    code: str = "7391"
    month: str = "August"
    year: str = "2029"


CARD = Card()


def track_end(card):
    """What a track holds last: the expiry date, the service code, the issuer's own digits."""
    return f"{card.year[2:]}08101{ISSUER_DIGITS}"


def numbered(count):
    """A card number of 16 digits; another one for each count below a million."""
    return with_check_digit(f"4{count:06}{MARK}")


def with_check_digit(digits):
    """The number of which these are all digits but the last."""
    doubled = sum(sum(divmod(2 * int(digit), 10)) for digit in digits[::-2])
    return digits + str(-(doubled + sum(map(int, digits[-2::-2]))) % 10)


# The shortest and the longest that there are, without eight digits in common with any other.
OTHER_NUMBERS = (with_check_digit("57813579246"), with_check_digit("401288864213597268"))
# Those that the components are called with by clients without a window.
CLIENTS_NUMBERS = ("5555555555554444",)

# What must never be found on a machine, and what no window may show.
SEARCH = CardSearch((CARD.number, MARK, ISSUER_DIGITS, *OTHER_NUMBERS, *CLIENTS_NUMBERS),
                    (CARD.code,))
SHOWN = CardSearch((CARD.number, MARK, ISSUER_DIGITS, *OTHER_NUMBERS), (CARD.code,),
                   shortest=MOST_SHOWN + 1)
