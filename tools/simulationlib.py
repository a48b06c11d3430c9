"""Runs the simulation in as many processes as there are cores and adds up what they tried."""

import collections
import os
import pathlib
import re
import subprocess
import time

import gtest
import ringlib

TIME_LIMIT = 3600  # the long form is minutes of work, and other work may slow it down


def prove(cases, part, variable, count):
    """Shares `count` transactions out, counts the cases, and writes the figures of all shares."""
    folder = pathlib.Path(os.environ["TOLLVANE_PROOF"])
    ringlib.build("native", "simulation_tests")
    program = ringlib.BUILD / "native" / "tests" / "proof" / "simulation" / "simulation_tests"
    tally = ringlib.Tally()
    cores = os.cpu_count()
    started = time.monotonic()
    shares = []
    for share in range(cores):
        mine = count // cores + (1 if share < count % cores else 0)
        report = folder / f"{part}-{share}.json"
        shares.append((report, subprocess.Popen(
            [program, f"--gtest_filter={cases}", "--gtest_brief=1",
             f"--gtest_output=json:{report}"],
            env={**os.environ, variable: str(mine), "TOLLVANE_SHARE": str(share)},
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
            text=True, errors="replace")))
    for report, process in shares:
        gtest.finish(f"{part} {report.stem}", process, report, tally, TIME_LIMIT)
    write_figures(folder, part, time.monotonic() - started)
    tally.close()


def write_figures(folder, part, seconds):
    """One table of what all shares tried."""
    plain, faults = collections.Counter(), {}
    for path in sorted(folder.glob(f"{part}-*.txt")):
        for line in path.read_text(encoding="ascii").splitlines():
            fault = re.fullmatch(r"fault (.*): (\d+) drawn, (\d+) met", line)
            if fault:
                drawn, met = faults.get(fault[1], (0, 0))
                faults[fault[1]] = (drawn + int(fault[2]), met + int(fault[3]))
            else:
                name, number = line.rsplit(" ", 1)
                plain[name] += int(number)
    rows = ["| what | how many |", "|---|---|"]
    rows += [f"| {name} | {number} |" for name, number in plain.items()]
    rows += [f"| seconds | {seconds:.0f} |", "", "| fault | drawn | met |", "|---|---|---|"]
    rows += [f"| {name} | {drawn} | {met} |" for name, (drawn, met) in faults.items() if drawn]
    (folder / "report.md").write_text("\n".join(rows) + "\n", encoding="ascii")
