"""How many objects of a component are alive in a process: the component's own count of what keeps
it loaded, read from outside where the linker's map says that it lies."""

import pathlib
import re
import struct

from . import processes
from .prefix import TOP

BASE = re.compile(r"^ +(0x[0-9a-f]+) +__image_base__ =", re.MULTILINE)
COUNT = re.compile(r"^ \.\w+\$_ZN8tollvane3com12_GLOBAL__N_15locksE\s+(0x[0-9a-f]+) ", re.MULTILINE)


def alive(prefix, program, component):
    """How many objects of a component (a file name) are alive in the process of a program."""
    process = processes.process_of(prefix, program)
    with open(f"/proc/{process}/mem", "rb", buffering=0) as memory:
        memory.seek(loaded_at(process, component) + place_in(component))
        return struct.unpack("<i", memory.read(4))[0]


def loaded_at(process, component):
    """Where a component's file begins in a process."""
    for line in pathlib.Path(f"/proc/{process}/maps").read_text(encoding="utf-8").splitlines():
        if line.endswith("/" + component):
            return int(line.partition("-")[0], 16)
    raise RuntimeError(f"{component} is not loaded in {process}")


def place_in(component):
    """Where the count lies from there."""
    told = (TOP / "build" / "x64" / f"{pathlib.Path(component).stem}.map").read_text(
        encoding="utf-8")
    base, = BASE.findall(told)
    # One that was left out of the file stands at address 0.
    place, = (place for place in COUNT.findall(told) if int(place, 16))
    return int(place, 16) - int(base, 16)
