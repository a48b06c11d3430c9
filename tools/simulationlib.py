"""Runs the simulation in as many processes as there are cores and adds up what they tried."""

import collections
import os
import pathlib
import re
import subprocess
import time

import gtest
import ringlib

# The long form is played by the fast build; ./test plays a short one under the sanitizers.
FAST, CHECKED = "native-fast", "native"
TIME_LIMIT = 3600  # the long form is minutes of work, and other work may slow it down


ENOUGH_TWICE = 2000  # transactions of the run that is played twice


def prove(cases, part, variable, count, twice=None):
    """Shares `count` transactions out, counts the cases, and writes the figures of all shares. The
    case `twice` is played by two processes more, of two compilers, which have to do the same."""
    folder = pathlib.Path(os.environ["TOLLVANE_PROOF"])
    ringlib.build(FAST, "simulation_tests")
    tally = ringlib.Tally()
    cores = os.cpu_count()
    started = time.monotonic()
    shares = [start(folder, cases, part, share, {variable: str(count // cores + (
        1 if share < count % cores else 0))}) for share in range(cores)]
    finish(part, shares, tally)
    seconds = time.monotonic() - started
    rows = []
    if twice:
        rows = compare_two(folder, twice, part, {variable: str(min(count, ENOUGH_TWICE))}, tally)
    write_figures(folder, part, seconds, rows)
    tally.close()


def start(folder, cases, part, share, sizes, preset=FAST):
    """Starts a process that plays one share; its figures come into the folder."""
    report = folder / f"{part}-{share}.json"
    program = ringlib.BUILD / preset / "tests" / "proof" / "simulation" / "simulation_tests"
    return report, subprocess.Popen(
        [program, f"--gtest_filter={cases}", "--gtest_brief=1", f"--gtest_output=json:{report}"],
        env={**os.environ, **sizes, "TOLLVANE_PROOF": str(folder), "TOLLVANE_SHARE": str(share)},
        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
        text=True, errors="replace")


def finish(part, processes, tally):
    """Waits for the processes and counts their cases."""
    for report, process in processes:
        gtest.finish(f"{part} {report.stem}", process, report, tally, TIME_LIMIT)


def compare_two(folder, case, part, sizes, tally):
    """Plays a case of one seed in a process of each build; rows of what both tell of their trace."""
    ringlib.build(CHECKED, "simulation_tests")
    places = {preset: folder / preset for preset in (FAST, CHECKED)}
    for place in places.values():
        place.mkdir(exist_ok=True)
    finish(part, [start(place, case, part, 0, sizes, preset) for preset, place in places.items()],
           tally)
    digests = [digest_in(place / f"{part}-0.txt") for place in places.values()]
    tally.check("two processes play the same seed alike",
                [] if digests[0] == digests[1] != "" else [f"digests {digests}"])
    return [f"| trace of {'/'.join(sizes.values())} by {preset} | {digest} |"
            for preset, digest in zip(places, digests)]


def digest_in(path):
    """What a report tells of its trace; empty when there is none."""
    found = re.search(r"^trace (\w+)$", path.read_text(encoding="ascii") if path.exists() else "",
                      re.MULTILINE)
    return found[1] if found else ""


def write_figures(folder, part, seconds, more):
    """One table of what all shares tried; what a share was too short for is printed too."""
    plain, faults, notes, traces = collections.Counter(), {}, [], []
    for path in sorted(folder.glob(f"{part}-*.txt")):
        for line in path.read_text(encoding="ascii").splitlines():
            fault = re.fullmatch(r"fault (.*): (\d+) drawn, (\d+) met, (\d+) in mid-call", line)
            if fault:
                sums = faults.setdefault(fault[1], [0, 0, 0])
                faults[fault[1]] = [old + int(new) for old, new in zip(sums, fault.groups()[1:])]
            elif line.startswith("note: "):
                notes.append(f"{path.stem}: {line[6:]}")
            elif line.startswith("trace "):
                traces.append(f"| trace of {path.stem} | {line[6:]} |")
            else:
                name, number = line.rsplit(" ", 1)
                plain[name] += int(number)
    rows = ["| what | how many |", "|---|---|"]
    rows += [f"| {name} | {number} |" for name, number in plain.items()]
    rows += [f"| seconds | {seconds:.0f} |", *traces, *more, "",
             "| fault | drawn | met | in mid-call |", "|---|---|---|---|"]
    rows += [f"| {name} | {drawn} | {met} | {in_call or ''} |"
             for name, (drawn, met, in_call) in faults.items() if drawn]
    rows += ["", *notes] if notes else []
    (folder / "report.md").write_text("\n".join(rows) + "\n", encoding="ascii")
    for note in notes:
        print(f"-- {note}", flush=True)
