"""Runs the GoogleTest programs of a build folder and counts their cases."""

import json
import os
import pathlib
import re
import subprocess
import tempfile

TIME_LIMIT = 1500


def programs(build):
    """The test programs of a build: every executable whose name ends in "_tests"."""
    shown = subprocess.run(["ninja", "-C", str(build), "--quiet", "-t", "targets", "all"],
                           text=True, check=True, capture_output=True).stdout
    names = re.findall(r"^(\S+_tests(?:\.exe)?): CXX_EXECUTABLE_LINKER", shown, re.MULTILINE)
    return sorted(str(build / name) for name in names)


def run_all(build, tally, launcher=(), environment=None, shards=1):
    """Runs each program, in `shards` processes at a time, and adds up the cases."""
    for program in programs(build):
        name = pathlib.Path(program).name
        print(f"-- {name}", flush=True)
        with tempfile.TemporaryDirectory() as folder:
            processes = [start(build, program, launcher, environment, folder, shard, shards)
                         for shard in range(shards)]
            for shard, process in enumerate(processes):
                finish(name, process, pathlib.Path(folder) / f"{shard}.json", tally)


def start(build, program, launcher, environment, folder, shard, shards):
    """Starts one share of a program's cases."""
    report = os.path.join(folder, f"{shard}.json")
    if launcher:
        report = "Z:" + report.replace("/", "\\")
    return subprocess.Popen(
        [*launcher, program, "--gtest_brief=1", f"--gtest_output=json:{report}"],
        env={**(environment or os.environ), "GTEST_TOTAL_SHARDS": str(shards),
             "GTEST_SHARD_INDEX": str(shard)},
        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
        text=True, errors="replace", cwd=build)


def finish(name, process, report, tally):
    """Waits for one share and counts it; what did not end well is printed."""
    try:
        output, _ = process.communicate(timeout=TIME_LIMIT)
    except subprocess.TimeoutExpired:
        process.kill()
        output, _ = process.communicate()
        output += f"\nstopped after {TIME_LIMIT} s"
    before = tally.failed
    if report.exists():
        count(json.loads(report.read_text(encoding="utf-8", errors="replace")), tally)
    if process.returncode != 0 and tally.failed == before:
        tally.fail(name, [f"the program ended with {process.returncode}"])
    if tally.failed > before:
        print(output, flush=True)


def count(report, tally):
    """Adds the cases of one report. A case that did not run counts as failed."""
    for suite in report["testsuites"]:
        for case in suite["testsuite"]:
            title = f"{suite['name']}.{case['name']}"
            if case["status"] != "RUN" or case["result"] == "SKIPPED":
                tally.fail(title, ["it was skipped"])
            elif case.get("failures"):
                tally.fail(title, [])
            else:
                tally.passed += 1
