"""Plays journeys and reads what became of each."""

import collections
import os
import subprocess
import xml.etree.ElementTree

import ringlib


def play(files, report, **settings):
    """Plays the journeys of files with some environment settings, and leaves pytest's report. Answers
    how pytest ended, and {name of the file: [(name of the journey, its problems)]}."""
    report.parent.mkdir(parents=True, exist_ok=True)
    report.unlink(missing_ok=True)
    ended = subprocess.run(
        ["/usr/bin/python3", "-m", "pytest", "-q", "-p", "no:cacheprovider",
         # A journey mostly waits: more of them than cores.
         "-n", str(2 * os.cpu_count()), f"--junitxml={report}", *map(str, files)],
        cwd=ringlib.TOP, env={**os.environ, **settings}, check=False).returncode
    return ended, cases(report)


def cases(report):
    """{name of the file: [(name of the journey, its problems)]} of a report that may not be there."""
    found = collections.defaultdict(list)
    if report.exists():
        for case in xml.etree.ElementTree.parse(report).iter("testcase"):
            bad = [child.tag for child in case if child.tag in ("failure", "error", "skipped")]
            name = case.get("classname")
            found[name.rpartition(".")[2]].append((f"{name}.{case.get('name')}", bad))
    return found


def count(tally, ended, found):
    """Counts the journeys that were found in a report."""
    for journeys in found.values():
        for name, bad in journeys:
            tally.check(name, bad)
    if ended != 0 and tally.failed == 0:
        tally.fail("pytest", [f"it ended with {ended}"])
