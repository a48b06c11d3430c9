"""The search for card data finds what it must: a test of the judge, with planted numbers."""

import contextlib
import subprocess
import zlib

import pytest

from harness import memory
from harness.cards import CARD, SEARCH, SHOWN, track_end, with_check_digit
from harness.secrets import CardSearch, unpacked

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


def packed(digits, filler="f"):
    """Two digits to a byte, the last one alone when they are odd."""
    return bytes.fromhex(digits + filler * (len(digits) % 2))


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
    "packed backwards": lambda digits: packed(digits[::-1]),
    "packed backwards behind a digit": lambda digits: packed("9" + digits[::-1]),
    "packed, last byte first": lambda digits: packed(digits)[::-1],
    "packed behind a digit, last byte first": lambda digits: packed("9" + digits)[::-1],
    "swiped": lambda digits: f"%B{digits}^SMITH/JOHN^2908101?".encode(),
}


@pytest.mark.parametrize("encoding", ENCODINGS)
def test_a_planted_number_is_found_at_every_length(tmp_path, encoding):
    file = tmp_path / "left.bin"
    for length in LENGTHS:
        planted = ENCODINGS[encoding](number(length))
        file.write_bytes(b"\x01before\n\xff" + planted + b"\xffafter")
        assert CardSearch([number(length)]).finds_in([file]), (length, planted)


@contextlib.contextmanager
def process_with(planted):
    """A process that has these bytes in its memory: it was given them to copy."""
    with subprocess.Popen(["cat"], stdin=subprocess.PIPE, stdout=subprocess.PIPE) as holder:
        holder.stdin.write(planted)
        holder.stdin.flush()
        assert holder.stdout.read(len(planted)) == planted
        yield holder.pid
        holder.stdin.close()


@pytest.mark.parametrize("encoding", ENCODINGS)
def test_a_number_planted_in_the_memory_of_a_process_is_found(encoding):
    for length in (min(LENGTHS), max(LENGTHS)):
        planted = ENCODINGS[encoding](number(length))
        with process_with(b"<" + planted + b">") as holder:
            assert memory.copies(holder, [number(length)]), (length, planted)
            assert not memory.copies(holder, [CARD.number]), planted


@pytest.mark.parametrize("encode", [str.encode, lambda code: code.encode("utf-16-le")])
def test_a_code_planted_in_the_memory_of_a_process_is_found(encode):
    with process_with(b"=" + encode(CARD.code) + b"\0;") as holder:
        found = memory.copies(holder, [CARD.number], [CARD.code])
        assert {copy.text for copy in found} == {"card code"}
    with process_with(b"=" + encode("\0" + CARD.code[1:]) + b"\0\0;") as holder:
        found = memory.copies(holder, [CARD.number], [CARD.code])
        assert {copy.text for copy in found} == {memory.TAIL}


def test_memory_that_cannot_be_read_is_an_error():
    with process_with(b"nothing") as holder:
        with open(f"/proc/{holder}/mem", "rb", buffering=0) as unread:
            start, end, _ = next(memory.writable(holder))
            assert len(memory.whole(unread, holder, start, end)) == end - start
            # The same answers, and no mapping that they could have come from.
            with pytest.raises(memory.Moved):
                memory.whole(unread, holder, 0, 4096)
            with pytest.raises(AssertionError, match="cannot be read"):
                memory.whole(ShortMemory(unread), holder, start, end)


class ShortMemory:
    """A memory whose last byte nobody can read."""

    def __init__(self, memory_file):
        self._file = memory_file

    def seek(self, place):
        """Goes to an address."""
        self._file.seek(place)

    def read(self, size):
        """All but the last byte."""
        return self._file.read(size - 1)


@pytest.mark.parametrize("encode", [str.encode, lambda part: part.encode("utf-16-le"),
                                    lambda part: part[::-1].encode()])
def test_a_part_of_eight_digits_is_found(encode):
    for length in LENGTHS:
        whole = number(length)
        for at in range(length - 7):
            assert CardSearch([whole]).finds(b"<" + encode(whole[at:at + 8]) + b">"), whole[at:]


@pytest.mark.parametrize("encode", [
    packed, lambda part: packed(part[::-1]), lambda part: packed(part)[::-1],
    lambda part: packed("1" + part, filler="9"), lambda part: packed("1" + part[::-1], filler="9")])
@pytest.mark.parametrize("size", (8, 9, 10, 11))
def test_a_packed_part_of_eight_digits_is_found(encode, size):
    for length in LENGTHS:
        whole = number(length)
        for at in range(length - size + 1):
            planted = b"\x7f" + encode(whole[at:at + size]) + b"\xfe"
            assert CardSearch([whole]).finds(planted) == ["packed digits"], whole[at:]


@pytest.mark.parametrize("pack", [bytes, zlib.compress])
def test_a_number_in_a_part_of_a_document_is_found(pack):
    part = pack(b"BT (" + CARD.number.encode() + b") Tj ET")
    assert SEARCH.finds(unpacked(b"<</Length 1>>\nstream\n" + part + b"\nendstream\nendobj"))


@pytest.mark.parametrize("planted, finding", [
    (CARD.number.encode(), "digits"),
    (track_end(CARD).encode("utf-16-le"), "digits"),
    (b"code=" + CARD.code.encode() + b";", "card code"),
    (f"<{CARD.code}>".encode("utf-16-le"), "card code"),
])
def test_the_cards_of_the_journeys_are_known(planted, finding):
    assert SEARCH.finds(b"before " + planted + b" after") == [finding]


@pytest.mark.parametrize("title", [
    f"Approved, card {CARD.number[-5:]}", f"{CARD.number[:5]} - Charge", f"Code {CARD.code}"])
def test_more_than_the_last_digits_in_a_title_is_found(title):
    assert SHOWN.finds(title.encode())


def test_the_last_digits_in_a_title_are_not_found():
    assert not SHOWN.finds(f"Approved, card {'*' * 12}{CARD.number[-4:]}, $7,391.00".encode())


@pytest.mark.parametrize("harmless", [
    b"************1881", b"5012345678123456", b"1881", b"88888888 88888888", b"12407391", b"7391a",
    b"\x00" * 64 + b"0000000000000000", "a7391".encode("utf-16-le")])
def test_a_masked_number_is_not_found(harmless):
    assert SEARCH.finds(harmless) == []
