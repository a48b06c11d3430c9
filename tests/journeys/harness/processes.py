"""Which processes there are, what they use (memory of their own, processor time) and when they have
ended, read from the system."""

import os
import pathlib

from .waiting import until

TICK = 1 / os.sysconf("SC_CLK_TCK")


def running():
    """The numbers of all processes."""
    return [int(entry.name) for entry in pathlib.Path("/proc").iterdir() if entry.name.isdigit()]


def marked(mark):
    """The processes whose environment holds a mark, such as a variable with its value."""
    wanted = mark.encode("utf-8")
    return [number for number in running() if wanted in environment(number).split(b"\0")]


def environment(number):
    """The environment of a process, whose first thread may have ended before the others."""
    tasks = pathlib.Path(f"/proc/{number}/task")
    try:
        found = (read(f"{number}/task/{task.name}", "environ") for task in tasks.iterdir())
        return next((text for text in found if text), b"")
    except OSError:
        return b""


def of_prefix(prefix):
    """The processes of a prefix."""
    return marked(f"WINEPREFIX={prefix.folder}")


def process_of(prefix, program):
    """The process that runs a program of a prefix."""
    for number in of_prefix(prefix):
        if program_of(number) == program:
            return number
    raise RuntimeError(f"{program} does not run in {prefix.folder}")


def program_of(number):
    """The file name of the program that a process runs."""
    name = read(number, "cmdline").split(b"\0")[0].decode("utf-8", "replace")
    return name.replace("\\", "/").rpartition("/")[2]


def described(prefix):
    """Every process of a prefix, with what each of its threads waits for in the system."""
    return {f"{program_of(number)} {number}": waits(number) for number in of_prefix(prefix)}


def waits(number):
    """State and place of waiting of each thread of a process, such as "S pipe_read"."""
    tasks = pathlib.Path(f"/proc/{number}/task")
    try:
        names = [f"{number}/task/{task.name}" for task in tasks.iterdir()]
    except OSError:
        return []
    states = [read(name, "stat").rpartition(b")")[2].split()[:1] for name in names]
    return [b" ".join([*state, read(name, "wchan")]).decode("ascii", "replace")
            for name, state in zip(names, states)]


def command(number):
    """The command line of a process, as one text."""
    return read(number, "cmdline").replace(b"\0", b" ").decode("utf-8", "replace")


def private_kb(numbers):
    """Memory that processes share with nobody (KB)."""
    total = 0
    for number in numbers:
        for line in read(number, "smaps_rollup").decode("ascii", "replace").splitlines():
            if line.startswith(("Private_Clean:", "Private_Dirty:")):
                total += int(line.split()[1])
    return total


def processor_seconds(numbers):
    """What processes, their threads that have ended and their children that have ended have spent on
    a processor (s), to the hundredth."""
    total = 0.0
    for number in numbers:
        fields = read(number, "stat").rpartition(b")")[2].split()
        # In user mode, in the system, and both of the children.
        total += sum(map(int, fields[11:15])) * TICK
    return total


def read(number, name):
    """One file of a process; empty when the process is gone."""
    try:
        return pathlib.Path(f"/proc/{number}/{name}").read_bytes()
    except OSError:
        return b""


def await_end(numbers):
    """Waits until none of the processes runs any more."""
    def left():
        return [number for number in numbers if read(number, "cmdline")]
    until("the end of processes", lambda: not left(), interval=0.01,
          otherwise=lambda: ", ".join(map(command, left())))
