"""Sales whose disk fails or whose process is killed at a chosen change of a file, and what the
books say after the next start."""

import collections
import itertools
import os
import pathlib
import random
import shutil
import signal
import subprocess

from . import books, cards, processes
from .prefix import Prefix, TEMPLATE, TOP
from .secrets import left_behind
from .waiting import NotReached, until

DRIVER = TOP / "build" / "x64" / "tests" / "journeys" / "driver" / "till_driver.exe"
SOURCE = pathlib.Path(__file__).with_name("faulty_disk.c")
LIBRARY = TOP / "build" / "faulty-disk" / "faulty_disk.so"
LIVE = ("add", r"HKLM\Software\Norrow Programs\Zendacard", "/v", "TestMode", "/t", "REG_DWORD",
        "/d", "0", "/f")
CHARGE_FILES = (books.JOURNAL, books.LEDGER, books.LOG)
STORE_FILES = (books.STORE,)
BOTH_FILES = CHARGE_FILES + STORE_FILES
# A change that no run comes to.
NEVER = 1_000_000
ERRORS = ("ENOSPC", "EIO", "EROFS", "short")
# How often something is tried whose fault was not met, since a run took another way.
TRIES = 3

Change = collections.namedtuple("Change", "who what name fault process")


def build_library():
    """Builds what goes in front of the C library."""
    if not LIBRARY.exists() or LIBRARY.stat().st_mtime < SOURCE.stat().st_mtime:
        LIBRARY.parent.mkdir(parents=True, exist_ok=True)
        made = LIBRARY.with_suffix(f".{os.getpid()}")
        subprocess.run(["cc", "-shared", "-fPIC", "-O2", "-Wall", "-Wextra", "-o", str(made),
                        str(SOURCE), "-ldl"], check=True)
        made.rename(LIBRARY)


class Fault:
    """One thing that goes wrong: what, at which change of which files, once or from there on, in
    the programs themselves or in Wine's server, which opens and makes files for them."""

    def __init__(self, kind, files, first, last=None, who="program"):
        self.kind, self.files, self.who = kind, files, who
        self.first, self.last = first, last or first

    def __str__(self):
        where = {CHARGE_FILES: "charge files", STORE_FILES: "store"}.get(self.files, "files")
        until_end = " and all later" if self.last == NEVER else ""
        by = {"program": "", "wine": " by the system", "any": " by anybody"}[self.who]
        return f"{self.kind} at change {self.first}{until_end} of the {where}{by}"

    def plan(self):
        """How the library in front of the C library is told."""
        return f"{self.kind} {self.first} {self.last} {self.who} {':'.join(self.files)}\n"

    def kills(self):
        """Whether a process ends of it."""
        return self.kind in ("before", "midway", "after")

    def kills_sale(self):
        """Whether it is the process that sells which ends."""
        return self.kills() and (self.files == CHARGE_FILES or self.who == "wine")


NO_FAULT = Fault("none", BOTH_FILES, NEVER)


class Disk:
    """The disk of a prefix, on which everything that starts from now on may meet a fault."""

    def __init__(self, prefix):
        build_library()
        self._plan, self._trace = prefix.folder / "disk-plan", prefix.folder / "disk-trace"
        prefix.extra = {"LD_PRELOAD": str(LIBRARY), "TOLLVANE_DISK_FILES": ":".join(BOTH_FILES),
                        "TOLLVANE_DISK_TRACE": str(self._trace),
                        "TOLLVANE_DISK_PLAN": str(self._plan)}
        self.set(NO_FAULT)

    def set(self, fault):
        """What goes wrong from now on; nothing has been changed yet."""
        self._plan.write_text(fault.plan(), encoding="ascii")
        self._trace.unlink(missing_ok=True)

    def changes(self):
        """The changes since then, in order."""
        if not self._trace.exists():
            return []
        return [Change(*line.split()) for line in self._trace.read_text().splitlines()]

    def has_struck(self):
        """Whether a change has met the fault."""
        return any(change.fault != "-" for change in self.changes())

    def has_killed(self):
        """Whether the process that met it is gone, and has changed nothing since."""
        last = {change.process: change for change in self.changes()}
        met = {change.process for change in self.changes() if change.fault != "-"}
        return bool(met) and all(last[process].fault != "-"
                                 and not processes.environment(int(process)) for process in met)


def end_searched(prefix):
    """Takes a prefix away, after a search for card data in all that was left in it."""
    prefix.stop()
    # It knows the number of the card that it pays with.
    (prefix.program_folder / DRIVER.name).unlink()
    found = cards.SEARCH.finds_in(left_behind(prefix.folder, TEMPLATE))
    prefix.remove()
    assert not found, f"card data was left: {found}"


def kill(number):
    """Ends a process that may be ending by itself."""
    try:
        os.kill(number, signal.SIGKILL)
    except ProcessLookupError:
        pass


class Shop:
    """An installation that takes live payments without a window, set back before every try."""

    # Of the payment that is interrupted.
    TRANSACTION = "1000000002"

    def __init__(self, folder, display=None):
        self.prefix = Prefix.installed(folder, display)
        self.folder = self.prefix.folder
        self.data = self.folder / books.DATA
        self.kept = self.folder / "as-it-was"
        self.disk = Disk(self.prefix)
        # Of what was planned: the faults that were met.
        self.struck = collections.Counter()
        shutil.copy2(DRIVER, self.prefix.program_folder)
        self.prefix.run("reg", *LIVE)
        self.prepare()
        self.end_everything()
        self.data.mkdir(parents=True, exist_ok=True)
        shutil.copytree(self.data, self.kept)

    def prepare(self):
        """What was there before every try."""
        self.drive(NO_FAULT, "sale", "20.00")

    def close(self):
        """Ends what runs and takes the folder away."""
        end_searched(self.prefix)

    def drive(self, fault, *arguments):
        """One run of the driver; answers its lines. A run that does not end is a failure."""
        self.disk.set(fault)
        # Of one run nothing is left to the next one, except a host data server that goes on.
        subprocess.run(["wineserver", "-p20"], env=self.prefix.environment(), check=False,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        # Not a pipe: the host data server would hold its other end.
        said = self.folder / "said"
        with open(said, "wb") as output:
            running = self.prefix.start(DRIVER.name, *arguments, stdout=output)
            until("the end of the driver", lambda: running.poll() is not None
                  or self.system_died(fault), patience=120, interval=0.02)
        return said.read_text(encoding="latin-1").splitlines()

    def system_died(self, fault):
        """Whether Wine's server met its end. Its programs may wait for it for ever: they end too."""
        if not (fault.kills() and fault.who == "wine" and self.disk.has_struck()):
            return False
        self.end_processes()
        return True

    def end_processes(self):
        """Ends all of them at once, also those that wait for a server that is not there."""
        until("the end of the processes",
              lambda: not [kill(number) for number in processes.of_prefix(self.prefix)])

    def changes(self):
        """The changes of the last run."""
        return self.disk.changes()

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

    def was_met(self, fault):
        """Whether the last run met its fault, and ended of one that kills. The host data server
        may be a little behind."""
        try:
            until("the fault", self.disk.has_killed if fault.kills() else self.disk.has_struck,
                  patience=3)
        except NotReached:
            return False
        return True

    def interrupt(self, fault):
        """A sale that meets a fault; answers what was said and whether it was met. Where the host
        data server or the system died the machine is started anew; else it goes on, as it does for
        the other tills."""
        self.set_back()
        said = self.drive(fault, "sale", "31.40")
        met = self.was_met(fault)
        if fault.kills() and (fault.files == STORE_FILES or fault.who == "wine"):
            self.end_everything()
        return said, met

    def attempt(self, fault, second=None):
        """A sale that meets a fault, a start that may meet a second one, and a last start with
        another sale. Answers what is wrong; a fault that is not met, too."""
        for _ in range(TRIES):
            problems, met = self.attempt_once(fault, second)
            if problems:
                return problems
            if met:
                self.struck["twice" if second else "killed" if fault.kills() else "failed"] += 1
                return []
        return ["the fault was not met"]

    def attempt_once(self, fault, second):
        """The same once: what is wrong, and whether every fault was met."""
        said, met = self.interrupt(fault)
        if second and met:
            self.drive(second, "restart")
            met = self.was_met(second)
            self.end_everything()
        again = self.drive(NO_FAULT, "restart", "62.80")
        self.end_everything()
        problems = self.check_books(said, again, second) + self.check_cards()
        return problems + (self.check_said(said, fault) if met else []), met

    def starts_changes(self, fault):
        """The changes of the start after a fault."""
        if not any(self.interrupt(fault)[1] for _ in range(TRIES)):
            raise NotReached(f"not met: {fault}")
        self.drive(NO_FAULT, "restart")
        return self.changes()

    def check_cards(self):
        """What there is of the card in the files that are set back."""
        files = [path for path in self.data.rglob("*") if path.is_file()]
        return [f"card data in {path}: {what}" for path, what in cards.SEARCH.finds_in(
            files + [self.folder / "said"]).items()]

    @staticmethod
    def check_said(said, fault):
        """What a till tells while the disk fails: a sentence, and nothing else than the truth."""
        wrong = [line for line in said if line.startswith("error") and len(line.split()) < 5]
        if wrong:
            return [f"no readable error: {wrong}"]
        has_ended = said[-1:] == ["ended"]
        if has_ended if fault.kills_sale() else not (has_ended or said[-1:] and
                                                     said[-1].startswith("error")):
            return [f"the till did not end as it should: {said}"]
        return []

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
        found += self.check_told(again)
        if again[-2:] != ["posted", "ended"]:
            found.append(f"the next sale does not work: {again}")
        if not second and "posted" in said and "recorded 0" not in again:
            found.append(f"told as posted, but missing: {again}")
        return found

    def check_told(self, again):
        """What the last start told: the payment that is missing, and that it was recorded."""
        lines = dict(line.split(" ", 1) if " " in line else (line, "") for line in again)
        told = lines.get("missing", "?").strip()
        right = (lines.get("recorded") == "1" and "31.40" in told and "****1881" in told
                 and told.endswith(self.TRANSACTION) if told else lines.get("recorded") == "0")
        if right and lines.get("left", "?").strip() == "":
            return []
        return [f"the start tells {again}"]


class NewShop(Shop):
    """An installation that has not sold anything: its first sale makes the files."""

    TRANSACTION = "1000000001"

    def prepare(self):
        pass


def places(changes):
    """Where something can go wrong: (whose files, by whom, [(number of a change, what it is)])."""
    for files, who in itertools.product((CHARGE_FILES, STORE_FILES), ("program", "wine")):
        mine = [change.what for change in changes
                if change.who == who and change.name.startswith(files)]
        yield files, who, list(enumerate(mine, 1))


def kill_points(changes):
    """Every place where a process can end: before each change, in the middle of each write, after
    the last. An open changes nothing."""
    for files, who, mine in places(changes):
        real = [(number, what) for number, what in mine if what != "open"]
        for number, what in real:
            yield Fault("before", files, number, who=who)
            if what == "write":
                yield Fault("midway", files, number, who=who)
        if real:
            yield Fault("after", files, real[-1][0], who=who)


def error_points(changes):
    """Every change failing in every way that it can, once and from there on; and the disk failing
    for everybody from the start."""
    for files, who, mine in places(changes):
        for (number, what), kind, last in itertools.product(mine, ERRORS, (None, NEVER)):
            if (what == "write" if kind == "short" else
                    kind != "ENOSPC" or what not in ("open", "unlink")):
                yield Fault(kind, files, number, last, who)
    for files, kind in itertools.product((CHARGE_FILES, STORE_FILES, BOTH_FILES), ERRORS[:3]):
        yield Fault(kind, files, 1, NEVER, "any")


def faults(shop):
    """The kill points and the error points of an undisturbed sale."""
    shop.set_back()
    said = shop.drive(NO_FAULT, "sale", "31.40")
    assert said[-2:] == ["posted", "ended"], said
    changes = shop.changes()
    return list(kill_points(changes)), list(error_points(changes))


def sample(points, count, seed):
    """A seeded choice, in the order of the points."""
    chosen = random.Random(seed).sample(range(len(points)), min(count, len(points)))
    return [points[place] for place in sorted(chosen)]
