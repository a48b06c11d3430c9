"""What a program of a prefix keeps busy: threads."""

import pathlib

from . import processes


def threads(prefix, program):
    """How many threads a program of a prefix has."""
    number = processes.process_of(prefix, program)
    return len(list(pathlib.Path(f"/proc/{number}/task").iterdir()))
