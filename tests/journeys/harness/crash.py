"""Sales whose disk fails or whose process is killed at a chosen change of a file, and what the
books say after the next start."""

import itertools
import os
import pathlib
import random
import shutil
import subprocess

from . import books
from .prefix import Prefix, TOP

DRIVER = TOP / "build" / "x64" / "tests" / "journeys" / "driver" / "till_driver.exe"
SOURCE = pathlib.Path(__file__).with_name("faulty_disk.c")
LIBRARY = TOP / "build" / "faulty-disk" / "faulty_disk.so"
LIVE = ("add", r"HKLM\Software\Norrow Programs\Zendacard", "/v", "TestMode", "/t", "REG_DWORD",
        "/d", "0", "/f")
CHARGE_FILES = (books.JOURNAL, books.LEDGER, books.LOG)
STORE_FILES = (books.STORE,)
# A change that no run comes to.
NEVER = 1_000_000
ERRORS = ("ENOSPC", "EIO", "EROFS", "short")


def build_library():
    """Builds what goes in front of the C library."""
    if not LIBRARY.exists() or LIBRARY.stat().st_mtime < SOURCE.stat().st_mtime:
        LIBRARY.parent.mkdir(parents=True, exist_ok=True)
        made = LIBRARY.with_suffix(f".{os.getpid()}")
        subprocess.run(["cc", "-shared", "-fPIC", "-O2", "-Wall", "-Wextra", "-o", str(made),
                        str(SOURCE), "-ldl"], check=True)
        made.rename(LIBRARY)


class Fault:
    """One thing that goes wrong: what, at which change of which files, once or from there on."""

    def __init__(self, kind, files, first, last=None):
        self.kind, self.files, self.first, self.last = kind, files, first, last or first

    def __str__(self):
        where = "store" if self.files == STORE_FILES else "charge files"
        until_end = " and all later" if self.last == NEVER else ""
        return f"{self.kind} at change {self.first}{until_end} of the {where}"

    def environment(self):
        """How the library in front of the C library is told."""
        build_library()
        return {"LD_PRELOAD": str(LIBRARY), "TOLLVANE_DISK_FILES": ":".join(self.files),
                "TOLLVANE_DISK_FAULT": f"{self.kind} {self.first} {self.last}"}

    def kills(self):
        """Whether a process ends of it."""
        return self.kind in ("before", "midway", "after")


NO_FAULT = Fault("none", CHARGE_FILES + STORE_FILES, NEVER)


class Shop:
    """An installation that takes live payments without a window, set back before every try."""

    def __init__(self, folder):
        self.prefix = Prefix.installed(folder)
        self.folder = self.prefix.folder
        self.data = self.folder / books.DATA
        self.kept = self.folder / "as-it-was"
        self.trace = self.folder / "trace"
        shutil.copy2(DRIVER, self.prefix.program_folder)
        self.prefix.run("reg", *LIVE)
        self.drive(NO_FAULT, "sale", "20.00")
        self.end_everything()
        shutil.copytree(self.data, self.kept)

    def close(self):
        """Ends what runs and takes the folder away."""
        self.prefix.remove()

    def drive(self, fault, *arguments):
        """One run of the driver; answers its lines. A run that does not end is a failure."""
        environment = {**self.prefix.environment(), **fault.environment(),
                       "TOLLVANE_DISK_TRACE": str(self.trace)}
        self.trace.unlink(missing_ok=True)
        # The disk fails the program and the host data server, not Wine's own server, which would
        # take the fault along into the runs to come.
        subprocess.run(["wineserver", "-p20"], env=self.prefix.environment(), check=False,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        # Not a pipe: the host data server would hold its other end.
        said = self.folder / "said"
        with open(said, "wb") as output:
            subprocess.run(["wine", "till_driver.exe", *arguments], env=environment, stdout=output,
                           cwd=self.prefix.program_folder, stderr=subprocess.DEVNULL,
                           stdin=subprocess.DEVNULL, timeout=120, check=False)
        return said.read_text(encoding="latin-1").splitlines()

    def changes(self):
        """The changes of the last run: pairs of what (write, fsync) and file name, in order."""
        if not self.trace.exists():
            return []
        return [tuple(line.split()[:2]) for line in self.trace.read_text().splitlines()]

    def end_everything(self):
        """Ends every process of the installation, as switching the machine off does."""
        for ending in ("-k", "-w"):
            subprocess.run(["wineserver", ending], env=self.prefix.environment(), check=False,
                           timeout=60)

    def set_back(self):
        """The books as they were before every try."""
        self.end_everything()
        shutil.rmtree(self.data)
        shutil.copytree(self.kept, self.data)

    def interrupt(self, fault):
        """A sale that meets a fault. Where the host data server died the machine is started anew;
        else it goes on, as it does for the other tills."""
        self.set_back()
        said = self.drive(fault, "sale", "31.40")
        if fault.kills() and fault.files == STORE_FILES:
            self.end_everything()
        return said

    def attempt(self, fault, second=None):
        """The same, a start that may meet a second fault, and a last start with another sale.
        Answers what is wrong."""
        said = self.interrupt(fault)
        if second:
            self.drive(second, "restart")
            self.end_everything()
        again = self.drive(NO_FAULT, "restart", "62.80")
        self.end_everything()
        return self.check_said(said, fault) + self.check_books(said, again, second)

    def starts_changes(self, fault):
        """The changes of the start after a fault."""
        self.interrupt(fault)
        self.drive(NO_FAULT, "restart")
        return self.changes()

    @staticmethod
    def check_said(said, fault):
        """What a till tells while the disk fails: a sentence, and nothing else than the truth."""
        if fault.kills() or said[-1:] == ["ended"]:
            wrong = [line for line in said if line.startswith("error") and len(line.split()) < 5]
            return [f"no readable error: {wrong}"] if wrong else []
        return [f"the till did not end as it should: {said}"]

    def check_books(self, said, again, second):
        """The books after the last start, and what that start told of them."""
        now = books.read(self.folder)
        found = now.problems()
        tries = [entry for entry in now.ledger if entry[1] == 3140]
        if len(tries) > 1:
            found.append(f"charged {len(tries)} times")
        if any(line.startswith("approved") for line in said) and not tries:
            found.append("told as approved, but not charged")
        if now.missing():
            found.append(f"not recorded: {now.missing()}")
        found += check_told(again)
        if again[-2:] != ["posted", "ended"]:
            found.append(f"the next sale does not work: {again}")
        if not second and "posted" in said and "recorded 0" not in again:
            found.append(f"told as posted, but missing: {again}")
        return found


def check_told(again):
    """What the last start told: exactly the payment that is missing, and that it was recorded."""
    lines = dict(line.split(" ", 1) if " " in line else (line, "") for line in again)
    told = lines.get("missing", "?").strip()
    right = (lines.get("recorded") == "1" and "31.40" in told and "****1881" in told
             and told.endswith("1000000002") if told else lines.get("recorded") == "0")
    if right and lines.get("left", "?").strip() == "":
        return []
    return [f"the start tells {again}"]


def kill_points(changes, files):
    """Every place where a process can end: before each change, in the middle of each write, after
    the last."""
    mine = [what for what, name in changes if name.startswith(files)]
    for number, what in enumerate(mine, 1):
        yield Fault("before", files, number)
        if what == "write":
            yield Fault("midway", files, number)
    yield Fault("after", files, len(mine))


def error_points(changes, files):
    """Every change failing in every way, once and from there on."""
    mine = [what for what, name in changes if name.startswith(files)]
    for (number, what), kind, last in itertools.product(enumerate(mine, 1), ERRORS, (None, NEVER)):
        if what == "write" or kind != "short":
            yield Fault(kind, files, number, last)


def faults(shop):
    """The kill points and the error points of an undisturbed sale."""
    shop.set_back()
    said = shop.drive(NO_FAULT, "sale", "31.40")
    assert said[-2:] == ["posted", "ended"], said
    changes = shop.changes()
    both = (CHARGE_FILES, STORE_FILES)
    return ([point for files in both for point in kill_points(changes, files)],
            [point for files in both for point in error_points(changes, files)])


def sample(points, count, seed):
    """A seeded choice, in the order of the points."""
    chosen = random.Random(seed).sample(range(len(points)), min(count, len(points)))
    return [points[place] for place in sorted(chosen)]
