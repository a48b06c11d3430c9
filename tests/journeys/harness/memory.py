"""What a running program holds in its memory: copies of a card, and where they lie."""

import array
import dataclasses
import pathlib
import re

from .secrets import SHORTEST, CardSearch, windows

MAPPING = re.compile(r"([0-9a-f]+)-([0-9a-f]+) (\S+) \S+ \S+ \S+ *(.*)")
# What the system tells of each page: it is in the memory or swapped out; it is a file's own.
ENTRY = 8
IN_USE = 1 << 63 | 1 << 62
OF_FILE = 1 << 61
PAGE = 4096
NOTHING = bytes(PAGE)
# The longest form of a card number, which may lie across two pages.
LONGEST = 256
# In so many bytes four that are packed digits stand by chance: five do not.
SHORTEST_PACKED = 10
# Digits in 8-bit or in 16-bit characters.
ROW = re.compile(rb"[0-9]{%d,}|(?:[0-9]\x00){%d,}" % (SHORTEST, SHORTEST))
TAIL = "the end of a card code"
# How often the mappings are read anew because the program gave one back in the meantime.
TRIES = 10


@dataclasses.dataclass(frozen=True)
class Copy:
    """One place where a part of a secret lies."""

    address: int
    text: str
    where: str
    is_wide: bool = False

    def __str__(self):
        return (f"{self.text} at {self.address:#x} in {self.where}"
                + (", 16 bits a character" if self.is_wide else ""))


class Moved(Exception):
    """A mapping went while it was read."""


def copies(process, numbers, codes=()):
    """Every place in the process's writable memory where a part of one of the numbers or one of the
    codes lies, in any of the forms that files are searched for (packed from ten digits)."""
    search = CardSearch(numbers, codes, shortest_packed=SHORTEST_PACKED)
    wanted = {part for number in numbers for part in windows(number, SHORTEST)}
    tails = re.compile(b"|".join(map(tail_of, codes)) or b"(?!)")
    found = []
    for start, name, content in contents(process):
        found += [Copy(start + tail.start(), TAIL, name) for tail in tails.finditer(content)]
        if not search.finds(content):
            continue
        rows = [Copy(start + row.start(), digits(row), name, b"\0" in row.group())
                for row in ROW.finditer(content)
                if any(part in wanted for part in windows(digits(row), SHORTEST))]
        found += rows
        found += [Copy(start + at, what, name) for at, what in others(search, start, content, rows)]
    return found


def tail_of(code):
    """The pattern of a code whose first character was overwritten, which is all that emptying a
    text does to it."""
    return b"|".join(bytes(width) + code[1:].encode(encoding) + bytes(width)
                     for width, encoding in ((1, "ascii"), (2, "utf-16-le")))


def digits(row):
    """The digits of a row, whatever their width."""
    return row.group().replace(b"\0", b"").decode("ascii")


def others(search, start, content, rows):
    """(place, finding) of what there is but for these rows, to the page."""
    rest = bytearray(content)
    for row in rows:
        place = row.address - start
        size = len(row.text) * (2 if row.is_wide else 1)
        rest[place:place + size] = b"\xff" * size
    rest = bytes(rest)
    whole = search.finds(rest)
    pages = [(at, what) for at in range(0, len(rest), PAGE) if whole
             for what in search.finds(rest[at:at + PAGE + LONGEST])]
    return pages or [(0, what) for what in whole]


def contents(process):
    """(address, what lies there, bytes) of all writable memory that holds anything."""
    for _ in range(TRIES):
        try:
            with open(f"/proc/{process}/mem", "rb", buffering=0) as memory:
                return [(at, pathlib.Path(name).name or "memory of no file", content)
                        for start, end, name in written(process)
                        for at, content in filled(start, whole(memory, process, start, end))]
        except Moved:
            pass
    raise AssertionError(f"the memory of {process} does not stand still")


def whole(memory, process, start, end):
    """All bytes of a mapping. A mapping that is there and cannot be read is an error."""
    content = bytearray()
    while len(content) < end - start:
        try:
            memory.seek(start + len(content))
            part = memory.read(end - start - len(content))
        except OSError as error:
            part, why = b"", str(error)
        else:
            why = "nothing came"
        if not part:
            if not any(first <= start and end <= last for first, last, _ in writable(process)):
                raise Moved
            raise AssertionError(f"process {process}: {start + len(content):#x} of the mapping "
                                 f"from {start:#x} to {end:#x} cannot be read: {why}")
        content += part
    return bytes(content)


def filled(start, content):
    """(address, bytes) of the runs of pages that hold anything at all."""
    run = None
    for at in range(0, len(content) + 1, PAGE):
        page = content[at:at + PAGE]
        if page != NOTHING and page and run is None:
            run = at
        elif run is not None and page in (NOTHING, b""):
            yield start + run, content[run:at]
            run = None


def writable(process):
    """(start, end, what lies there) of the memory that the process may write to."""
    for line in pathlib.Path(f"/proc/{process}/maps").read_text(encoding="utf-8").splitlines():
        start, end, rights, name = MAPPING.match(line).groups()
        if rights.startswith("rw"):
            yield int(start, 16), int(end, 16), name


def written(process):
    """The same without the pages of files that are in the memory as the file has them."""
    for start, end, name in writable(process):
        if not name.startswith("/") or name.endswith("(deleted)"):
            yield start, end, name
            continue
        run = None
        for at, entry in zip(range(start, end + 1, PAGE), [*pages(process, start, end), 0]):
            if entry & IN_USE and not entry & OF_FILE:
                run = at if run is None else run
            elif run is not None:
                yield run, at, name
                run = None


def pages(process, start, end):
    """What the system tells of the pages between two addresses."""
    with open(f"/proc/{process}/pagemap", "rb", buffering=0) as told:
        told.seek(start // PAGE * ENTRY)
        entries = array.array("Q", told.read((end - start) // PAGE * ENTRY))
    assert len(entries) == (end - start) // PAGE, f"the pages of {process} are not told"
    return entries
