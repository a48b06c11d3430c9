"""Runs the GoogleTest programs of a build folder and counts their cases."""

import json
import pathlib
import re
import subprocess

TIME_LIMIT = 1500


def programs(build):
    """The test programs of a build: every executable whose name ends in "_tests"."""
    shown = subprocess.run(["ninja", "-C", str(build), "--quiet", "-t", "targets", "all"],
                           text=True, check=True, capture_output=True).stdout
    names = re.findall(r"^(\S+_tests(?:\.exe)?): CXX_EXECUTABLE_LINKER", shown, re.MULTILINE)
    return sorted(str(build / name) for name in names)


def run_all(build, tally, places, proven, inputs, launcher=()):
    """Runs each program and adds up the cases. `places` are the environments of the processes that
    share a program's cases; the report of each process stays beside the program. What passed with
    the same program and `inputs` is `proven` and only counted."""
    for program in programs(build):
        name, made_of = pathlib.Path(program).name, [program, *inputs]
        if not proven.covers(name, made_of, tally):
            print(f"-- {name}", flush=True)
            with proven.run(name, made_of, tally):
                run(build, program, tally, places, launcher)


def run(build, program, tally, places, launcher=()):
    """Runs one program and adds up its cases."""
    name = pathlib.Path(program).name
    reports = [pathlib.Path(f"{program}.{share}.json") for share in range(len(places))]
    processes = [start(build, program, launcher, place, reports, share)
                 for share, place in enumerate(places)]
    for process, report in zip(processes, reports):
        finish(name, process, report, tally)


def start(build, program, launcher, environment, reports, share):
    """Starts one share of a program's cases."""
    reports[share].unlink(missing_ok=True)
    report = str(reports[share])
    if launcher:
        report = "Z:" + report.replace("/", "\\")
    return subprocess.Popen(
        [*launcher, program, "--gtest_brief=1", f"--gtest_output=json:{report}"],
        env={**environment, "GTEST_TOTAL_SHARDS": str(len(reports)),
             "GTEST_SHARD_INDEX": str(share)},
        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
        text=True, errors="replace", cwd=build)


def finish(name, process, report, tally, limit=TIME_LIMIT):
    """Waits for one share and counts it; what did not end well is printed."""
    try:
        output, _ = process.communicate(timeout=limit)
    except subprocess.TimeoutExpired:
        process.kill()
        output, _ = process.communicate()
        output += f"\nstopped after {limit} s"
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
