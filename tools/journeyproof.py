"""Journeys as a part of ./prove."""

import os
import pathlib
import subprocess
import xml.etree.ElementTree

import ringlib

PROCESSES = "4"  # a journey mostly waits


def folder(section):
    """Where the section's report goes."""
    return pathlib.Path(os.environ.get("TOLLVANE_PROOF", ringlib.BUILD / "prove" / section))


def play(tally, section, files, **settings):
    """Plays the journeys of files with some environment settings and counts them."""
    folder(section).mkdir(parents=True, exist_ok=True)
    results = folder(section) / "journeys.xml"
    results.unlink(missing_ok=True)
    ended = subprocess.run(
        ["/usr/bin/python3", "-m", "pytest", "-q", "-p", "no:cacheprovider", "-n", PROCESSES,
         f"--junitxml={results}", *(str(ringlib.JOURNEYS / file) for file in files)],
        env={**os.environ, **settings}, check=False).returncode
    if results.exists():
        for case in xml.etree.ElementTree.parse(results).iter("testcase"):
            bad = [child.tag for child in case if child.tag in ("failure", "error", "skipped")]
            tally.check(f"{case.get('classname')}.{case.get('name')}", bad)
    if ended != 0 and tally.failed == 0:
        tally.fail("pytest", [f"it ended with {ended}"])


def report(section, text):
    """Leaves the section's part of the report."""
    (folder(section) / "report.md").write_text(text, encoding="utf-8")
