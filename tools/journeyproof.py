"""Journeys as a part of ./prove."""

import os
import pathlib

import journeylib
import ringlib


def folder(section):
    """Where the section's report goes; it is there from now on."""
    place = pathlib.Path(os.environ.get("TOLLVANE_PROOF", ringlib.BUILD / "prove" / section))
    place.mkdir(parents=True, exist_ok=True)
    return place


def play(tally, section, files, **settings):
    """Plays the journeys of files with some environment settings and counts them."""
    journeylib.count(tally, journeylib.play([ringlib.JOURNEYS / file for file in files],
                                            folder(section) / "journeys.xml", **settings))


def report(section, text):
    """Leaves the section's part of the report."""
    (folder(section) / "report.md").write_text(text, encoding="utf-8")
