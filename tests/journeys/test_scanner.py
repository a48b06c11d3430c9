"""The search for card data finds what it must: a test of the judge, with planted numbers."""

import pytest

from harness.cards import CARD, SEARCH, track_end, with_check_digit
from harness.secrets import CardSearch

LENGTHS = range(12, 20)
DIGITS = "457318260946285173"


def number(length):
    """A number of that many digits."""
    return with_check_digit(DIGITS[:length - 1])


def grouped(digits, mark, size=4):
    """The digits in groups, as people write them."""
    return mark.join(digits[at:at + size] for at in range(0, len(digits), size))


def registry(content):
    """Bytes as a registry file shows them, broken over two lines."""
    shown = [f"{byte:02x}" for byte in content]
    return (",".join(shown[:9]) + ",\\\r\n  " + ",".join(shown[9:])).encode()


def packed(digits):
    """Two digits to a byte, the last one alone when they are odd."""
    return bytes.fromhex(digits + "f" * (len(digits) % 2))


ENCODINGS = {
    "plain": str.encode,
    "in a line": lambda digits: f"card {digits}, approved".encode(),
    "16-bit": lambda digits: digits.encode("utf-16-le"),
    "16-bit the other way": lambda digits: digits.encode("utf-16-be"),
    "32-bit": lambda digits: digits.encode("utf-32-le"),
    "blanks": lambda digits: grouped(digits, " ").encode(),
    "hyphens": lambda digits: grouped(digits, "-").encode(),
    "16-bit in groups": lambda digits: grouped(digits, " ").encode("utf-16-le"),
    "spaced": lambda digits: " ".join(digits).encode(),
    "reversed": lambda digits: digits[::-1].encode(),
    "reversed 16-bit": lambda digits: digits[::-1].encode("utf-16-le"),
    "registry": lambda digits: b'"Value"=hex:' + registry(digits.encode()),
    "registry 16-bit": lambda digits: b'"Value"=hex(1):' + registry(digits.encode("utf-16-le")),
    "packed": packed,
    "packed behind a digit": lambda digits: packed("9" + digits),
    "swiped": lambda digits: f"%B{digits}^SMITH/JOHN^2908101?".encode(),
}


@pytest.mark.parametrize("encoding", ENCODINGS)
def test_a_planted_number_is_found_at_every_length(tmp_path, encoding):
    file = tmp_path / "left.bin"
    for length in LENGTHS:
        planted = ENCODINGS[encoding](number(length))
        file.write_bytes(b"\x01before\n\xff" + planted + b"\xffafter")
        assert CardSearch([number(length)]).finds_in([file]), (length, planted)


@pytest.mark.parametrize("encode", [str.encode, lambda part: part.encode("utf-16-le"),
                                    lambda part: part[::-1].encode()])
def test_a_part_of_eight_digits_is_found(encode):
    for length in LENGTHS:
        whole = number(length)
        for at in range(length - 7):
            assert CardSearch([whole]).finds(b"<" + encode(whole[at:at + 8]) + b">"), whole[at:]


def test_a_packed_part_of_ten_digits_is_found():
    for at in range(6):
        part = number(16)[at:at + 10]
        assert CardSearch([number(16)]).finds(b"\x7f" + packed(part)), part


@pytest.mark.parametrize("planted, finding", [
    (CARD.number.encode(), "digits"),
    (track_end(CARD).encode("utf-16-le"), "digits"),
    (b"code=" + CARD.code.encode() + b";", "card code"),
    (f"<{CARD.code}>".encode("utf-16-le"), "card code"),
])
def test_the_cards_of_the_journeys_are_known(planted, finding):
    assert SEARCH.finds(b"before " + planted + b" after") == [finding]


@pytest.mark.parametrize("harmless", [
    b"************1881", b"5012345678123456", b"1881", b"88888888 88888888", b"12407391", b"7391a",
    b"\x00" * 64 + b"0000000000000000", "a7391".encode("utf-16-le")])
def test_a_masked_number_is_not_found(harmless):
    assert SEARCH.finds(harmless) == []
