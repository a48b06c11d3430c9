"""Looks for card data in everything that a journey left behind, however it was written down."""

import re
import subprocess
import zlib

SHORTEST = 8  # digits in a row that are too many to be left
# What may stand between the digits: the zeros of wider characters, and what people group them by.
BETWEEN = b"\0 \t\r\n\\-.,"
# Digits as text of hexadecimal bytes, in which the registry's files show binary values.
SPELLED = rb"(?:3[0-9](?:00)*){%d,}"
STREAM = re.compile(rb"\bstream\r?\n(.*?)\r?\nendstream\b", re.DOTALL)
SPELLED_DIGIT = re.compile(rb"3([0-9])(?:00)*")


class CardSearch:
    """Knows some card numbers and the issuer's digits of tracks, and finds them and their parts;
    card codes it finds where they stand as a word, for any four digits may be part of a number."""

    def __init__(self, numbers, codes=(), shortest=SHORTEST, shortest_packed=SHORTEST):
        """A part is found from `shortest` digits on, and from `shortest_packed` (an even number)
        where two of them are packed into a byte."""
        both_ways = [row for number in numbers for row in (number, number[::-1])]
        self._shortest = shortest
        self._rows = {window for row in both_ways for window in windows(row, shortest)}
        self._digits = re.compile(rb"[0-9]{%d,}" % shortest)
        self._spelled = re.compile(SPELLED % shortest)
        self._packed = {bytes.fromhex(window) for row in both_ways
                        for window in windows(row, shortest_packed) if is_varied(window)}
        self._codes = [(forms(code), word(code)) for code in codes]

    def finds(self, content):
        """What there is of the cards in these bytes: a list of sorts of findings."""
        squeezed = content.translate(None, BETWEEN)
        found = []
        if any(self._has_row(row) for row in self._digits.findall(squeezed)):
            found.append("digits")
        if any(self._has_row(b"".join(SPELLED_DIGIT.findall(row)))
               for row in self._spelled.findall(squeezed)):
            found.append("digits in hexadecimal")
        if any(part in view for view in packings(content) for part in self._packed):
            found.append("packed digits")
        if any(code.search(content) for plain, code in self._codes
               if any(form in content for form in plain)):
            found.append("card code")
        return found

    def finds_in(self, files):
        """The same for files: {path: findings} of those that hold anything."""
        found = {str(path): self.finds(content_of(path)) for path in files}
        return {path: what for path, what in found.items() if what}

    def _has_row(self, row):
        text, size = row.decode("ascii"), self._shortest
        return any(text[at:at + size] in self._rows for at in range(len(text) - size + 1))


def packings(content):
    """Bytes as digits may be packed into them: two to a byte, from its first or its second half on,
    the first byte first or the last."""
    for view in (content, content[::-1]):
        yield view
        yield (int.from_bytes(view, "big") << 4).to_bytes(len(view) + 1, "big")


def windows(digits, length):
    """Every part of that length which is no mere repetition of one digit, as any file holds it."""
    parts = [digits[at:at + length] for at in range(len(digits) - length + 1)]
    return [part for part in parts if max(map(part.count, part)) < length - 1]


def is_varied(part):
    """False for a part that stands, when packed, in the pictures that every program brings (more than
    half of its digits are the same) or in words (it has two or three digits: "UUDD")."""
    return max(map(part.count, part)) <= len(part) // 2 and len(set(part)) > 3


def forms(code):
    """The code in 8-bit and in 16-bit characters."""
    return code.encode("ascii"), code.encode("utf-16-le")


def word(code):
    """A pattern of the code with no letter or digit next to it, in 8-bit and 16-bit characters."""
    narrow, wide = forms(code)
    return re.compile(rb"(?<![0-9A-Za-z])" + narrow + rb"(?![0-9A-Za-z])"
                      rb"|(?<![0-9A-Za-z]\0)" + wide + rb"(?![0-9A-Za-z]\0)")


def content_of(path):
    """What a file holds; a printed document inflated, and its text too."""
    content = path.read_bytes()
    if content.startswith(b"%PDF"):
        content = unpacked(content)
        content += subprocess.run(["pdftotext", "-layout", str(path), "-"], check=True,
                                  capture_output=True).stdout
    return content


def unpacked(document):
    """A document with its deflated parts inflated; any four bytes stand in those by chance."""
    return STREAM.sub(lambda part: inflated(part.group(1)), document)


def inflated(part):
    """What a part of a document holds, as it is when it was not deflated."""
    try:
        return zlib.decompressobj().decompress(part)
    except zlib.error:
        return part


def left_behind(prefix, template):
    """The files of a prefix that are not as its template had them."""
    return [path for path in prefix.rglob("*")
            if path.is_file() and not path.is_symlink() and "dosdevices" not in path.parts
            and not is_same(path, template / path.relative_to(prefix))]


def is_same(path, original):
    """True for a link to the original and for a copy that nobody has written to."""
    if not original.exists():
        return False
    one, other = path.stat(), original.stat()
    return ((one.st_dev, one.st_ino) == (other.st_dev, other.st_ino)
            or (one.st_size, one.st_mtime_ns) == (other.st_size, other.st_mtime_ns))
