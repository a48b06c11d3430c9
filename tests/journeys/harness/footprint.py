"""What a program of a prefix keeps busy: threads, and memory that it shares with nobody."""

import pathlib

from . import processes

# What Wine touches of the stack of each thread as soon as it starts.
STACK_KB = 976


def threads(prefix, program):
    """How many threads a program of a prefix has."""
    number = processes.process_of(prefix, program)
    return len(list(pathlib.Path(f"/proc/{number}/task").iterdir()))


def private_kb(prefix, program):
    """The private memory (KB) of a program that runs in a prefix, without the stacks of its
    threads: those that carry calls between processes come and go."""
    private = processes.private_kb([processes.process_of(prefix, program)])
    return private - STACK_KB * threads(prefix, program)
