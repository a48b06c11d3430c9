"""Plays journeys and reads what became of each."""

import collections
import dataclasses
import os
import subprocess
import sys
import xml.etree.ElementTree

import ringlib


# A journey mostly waits: more of them side by side than cores.
SIDE_BY_SIDE = 2 * os.cpu_count()
TAIL = 30


@dataclasses.dataclass(frozen=True)
class Played:
    """What became of journeys: how pytest ended, {name of the file: [(name of the journey, its
    problems)]}, and the last lines that pytest printed."""

    ended: int
    cases: dict
    tail: list


def play(files, report, only="", side_by_side=SIDE_BY_SIDE, **settings):
    """Plays the journeys of files, or `only` those with a word in their names, with some environment
    settings, and leaves pytest's report."""
    report.parent.mkdir(parents=True, exist_ok=True)
    report.unlink(missing_ok=True)
    process = subprocess.Popen(
        ["/usr/bin/python3", "-m", "pytest", "-q", "-p", "no:cacheprovider", "-k", only,
         "-n", str(side_by_side), f"--junitxml={report}", *map(str, files)],
        cwd=ringlib.TOP, env={**os.environ, **settings}, stdout=subprocess.PIPE, text=True,
        errors="replace")
    tail = collections.deque(maxlen=TAIL)
    for line in process.stdout:
        sys.stdout.write(line)
        sys.stdout.flush()
        tail.append(line.rstrip())
    return Played(process.wait(), cases(report), list(tail))


def cases(report):
    """{name of the file: [(name of the journey, its problems)]} of a report that may not be there."""
    found = collections.defaultdict(list)
    if report.exists():
        for case in xml.etree.ElementTree.parse(report).iter("testcase"):
            bad = [child.tag for child in case if child.tag in ("failure", "error", "skipped")]
            name = case.get("classname")
            found[name.rpartition(".")[2]].append((f"{name}.{case.get('name')}", bad))
    return found


def count(tally, played):
    """Counts the journeys that were played."""
    for journeys in played.cases.values():
        for name, bad in journeys:
            tally.check(name, bad)
    if played.ended != 0 and tally.failed == 0:
        tally.fail("pytest", [f"it ended with {played.ended}", *played.tail])
