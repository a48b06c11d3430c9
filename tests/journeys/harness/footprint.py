"""Memory that a program of a prefix shares with nobody, as the system tells it."""

import pathlib

from .memory import process_of


def private_kb(prefix, program):
    """The private memory (KB) of a program that runs in a prefix."""
    facts = pathlib.Path(f"/proc/{process_of(prefix, program)}/smaps_rollup")
    return sum(int(line.split()[1]) for line in facts.read_text(encoding="ascii").splitlines()
               if line.startswith(("Private_Clean:", "Private_Dirty:")))
