"""What the rings share: where things are, building, and the counting of cases."""

import os
import pathlib
import subprocess
import sys

TOP = pathlib.Path(__file__).resolve().parents[1]
BUILD = TOP / "build"
JOURNEYS = TOP / "tests" / "journeys"
HARNESS = JOURNEYS / "harness"
sys.path.insert(0, str(JOURNEYS))


def build(preset, *targets):
    """Builds targets of a preset; a build that fails ends the ring."""
    if subprocess.run([TOP / "tools" / "build", preset, *targets], check=False).returncode:
        sys.exit(1)


def stage():
    """Builds what ships and gathers it in build/stage."""
    build("x64", "shipped", "probe", "till_driver")
    script = 'top=$1; . "$top/tools/lib.sh"; stage_program x64'
    subprocess.run(["bash", "-euc", script, "bash", str(TOP)], check=True)


class Tally:
    """What passed and what failed; `close` hands the two numbers to ./test and ends the ring."""

    def __init__(self):
        self.passed = 0
        self.failed = 0

    def check(self, what, problems):
        """One check of our own: it passes when the list of its problems is empty."""
        if problems:
            self.fail(what, problems)
        else:
            self.passed += 1

    def fail(self, what, problems=()):
        """One failed case, with what there is to read about it."""
        self.failed += 1
        print(f"FAILED {what}", *problems, sep="\n   ", flush=True)

    def close(self):
        """Writes the counts where ./test looks for them. A ring without cases has failed."""
        if self.passed + self.failed == 0:
            self.fail("the ring", ["no test case ran"])
        name = os.environ.get("TOLLVANE_TALLY")
        if name:
            pathlib.Path(name).write_text(f"{self.passed} {self.failed}\n", encoding="ascii")
        sys.exit(1 if self.failed else 0)
