"""What a running program holds in its memory: copies of a card, and where they lie."""

import dataclasses
import pathlib
import re

from .secrets import SHORTEST, windows

MAPPING = re.compile(r"([0-9a-f]+)-([0-9a-f]+) (\S+) \S+ \S+ \S+ *(.*)")
PAGE = 4096
NOTHING = bytes(PAGE)
# Digits in 8-bit or in 16-bit characters.
ROW = re.compile(rb"[0-9]{%d,}|(?:[0-9]\x00){%d,}" % (SHORTEST, SHORTEST))


@dataclasses.dataclass(frozen=True)
class Copy:
    """One place where a part of a secret lies."""

    address: int
    text: str
    where: str
    is_wide: bool

    def __str__(self):
        return (f"{self.text} at {self.address:#x} in {self.where}, "
                f"{16 if self.is_wide else 8} bits a character")


def copies(process, numbers):
    """Every place in the process's writable memory where eight or more digits in a row of one of
    the numbers lie, in 8-bit or 16-bit characters."""
    wanted = {part for number in numbers for part in windows(number, SHORTEST)}
    found = []
    with open(f"/proc/{process}/mem", "rb", buffering=0) as memory:
        for start, end, name in writable(process):
            for at, content in filled(memory, start, end):
                for row in ROW.finditer(content):
                    text = row.group().replace(b"\0", b"").decode("ascii")
                    if any(part in wanted for part in windows(text, SHORTEST)):
                        found.append(Copy(at + row.start(), text, name, b"\0" in row.group()))
    return found


def filled(memory, start, end):
    """(address, bytes) of the runs of pages that hold anything at all."""
    try:
        memory.seek(start)
        content = memory.read(end - start)
    except OSError:
        return  # nobody can read it, not even the program
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
            yield int(start, 16), int(end, 16), pathlib.Path(name).name or "memory of no file"
