"""Which branches of the portable code the native tests take, as clang counts them: every condition once
true and once false."""

import collections
import json
import os
import pathlib
import re
import subprocess

import gtest
import ringlib

# Branches that no test takes: file | text of the line | why.
LIST = ringlib.TOP / "tools" / "untaken.txt"
PORTABLE = re.compile(r"(app|entry|controls|dialogs|output|settings|gateway|platform)/\w+\.(cpp|h)$"
                      r"|components/charge/core/|components/logviewer/core/"
                      r"|components/hostdata/(operators|payments|store)/"
                      r"|components/environment/CommandLine\.")


def portable(name):
    """Whether a file is part of the portable code."""
    return bool(PORTABLE.match(name))


def sources():
    """The portable sources, without headers."""
    listed = subprocess.run(["git", "ls-files", "*.cpp"], cwd=ringlib.TOP, text=True, check=True,
                            capture_output=True).stdout
    return [name for name in listed.split() if portable(name)]


def run_all(build, tally, place):
    """Runs the tests; their profiles are left in the folder `place`."""
    place.mkdir(parents=True)
    environment = {**os.environ, "LLVM_PROFILE_FILE": f"{place}/%p.profraw"}
    for program in gtest.programs(build):
        gtest.run(build, program, tally, [environment] * os.cpu_count())


def branches(build, place):
    """{(file, line, column): [times true, times false]} of the portable code."""
    merged = place / "merged.profdata"
    subprocess.run([tool("llvm-profdata"), "merge", "-sparse", "-o", merged,
                    *place.glob("*.profraw")], check=True)
    first, *others = gtest.programs(build)
    objects = [first, *(word for each in others for word in ("-object", each))]
    shown = subprocess.run([tool("llvm-cov"), "export", "-format=text", "-skip-expansions",
                            f"-instr-profile={merged}", *objects],
                           text=True, check=True, capture_output=True).stdout
    counts = collections.defaultdict(lambda: [0, 0])
    for file in json.loads(shown)["data"][0]["files"]:
        name = os.path.relpath(file["filename"], ringlib.TOP)
        if portable(name):
            for line, column, _, _, when_true, when_false, *_ in file["branches"]:
                counts[name, line, column][0] += when_true
                counts[name, line, column][1] += when_false
    return counts


def tool(name):
    """The tool that belongs to the compiler; Debian has it under its version's name too."""
    version = subprocess.run(["clang", "-dumpversion"], text=True, check=True,
                             capture_output=True).stdout.split(".", maxsplit=1)[0]
    return f"{name}-{version}"


def exceptions():
    """{(file, text of the line): why} of the list."""
    rows = {}
    for line in LIST.read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            file, rest = line.split(" | ", maxsplit=1)
            text, why = rest.rsplit(" | ", maxsplit=1)
            rows[file, text] = why
    return rows


def made_by_the_compiler(text, column):
    """Comparisons that nobody wrote, choices made while compiling, loops without a condition, and the
    way past a switch whose cases are all there are."""
    return ("= default;" in text or "if constexpr" in text or "while (true)" in text
            or text[:column - 1].endswith("switch ("))


def judge(counts):
    """How many branches there are and were taken, and two lists: those that were not and are not
    explained, and explanations of branches that are gone or taken."""
    explained, used, missing, total, taken = exceptions(), set(), [], 0, 0
    texts = {name: (ringlib.TOP / name).read_text(encoding="utf-8").splitlines()
             for name in {name for name, _, _ in counts}}
    for (name, line, column), (when_true, when_false) in sorted(counts.items()):
        text = texts[name][line - 1]
        if made_by_the_compiler(text, column):
            continue
        total += 2
        taken += (when_true > 0) + (when_false > 0)
        if when_true and when_false:
            continue
        key = name, text.strip()
        if key in explained:
            used.add(key)
        else:
            never = " or ".join(["true"] * (not when_true) + ["false"] * (not when_false))
            missing.append(f"{name}:{line}:{column}: never {never}: {key[1]}")
    stale = [f"{file}: {text}" for file, text in explained if (file, text) not in used]
    return total, taken, missing, stale
