"""Memory that a program of a prefix shares with nobody, as the system tells it."""

import pathlib

from .memory import process_of

# What Wine touches of the stack of each thread as soon as it starts.
STACK_KB = 976


def threads(prefix, program):
    """How many threads a program of a prefix has."""
    return len(list(pathlib.Path(f"/proc/{process_of(prefix, program)}/task").iterdir()))


def private_kb(prefix, program):
    """The private memory (KB) of a program that runs in a prefix, without the stacks of its
    threads: those that carry calls between processes come and go."""
    facts = pathlib.Path(f"/proc/{process_of(prefix, program)}/smaps_rollup")
    private = sum(int(line.split()[1]) for line in facts.read_text(encoding="ascii").splitlines()
                  if line.startswith(("Private_Clean:", "Private_Dirty:")))
    return private - STACK_KB * threads(prefix, program)
