"""Which branches of the portable code the native tests take, as clang counts them: every condition once
true and once false."""

import collections
import json
import os
import re
import subprocess

import gtest
import ringlib

# Branches that no test takes: file | text of the line | condition: never true, or false | why.
LIST = ringlib.TOP / "tools" / "untaken.txt"
# What the native build compiles and nobody measures, and why. All else that it compiles is measured.
UNMEASURED = {
    r"\.\./|/": "not this repository's",
    r"build/": "libraries of others, fetched or unpacked for the build",
    r"tests/": "the tests, and what they stand on",
    r"components/\w+/tests/": "the tests of the components",
}
# The rooms whose every source is portable: one that the native build leaves out is forgotten.
ROOMS = re.compile(r"(app|entry|controls|dialogs|output|settings|gateway|platform)/\w+\.cpp$"
                   r"|components/\w+/(core|operators|payments|store)/\w+\.cpp$")


def portable(name):
    """Whether a file that the native build reads is part of the portable code."""
    return not any(re.match(pattern, name) for pattern in UNMEASURED)


def compiled(build):
    """{source: how it is compiled} of all that a build compiles, tests and all."""
    commands = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    return {os.path.relpath(each["file"], ringlib.TOP): each for each in commands}


def sources(build):
    """The portable sources, without headers."""
    return sorted(name for name in compiled(build) if portable(name))


def forgotten(build):
    """What keeps the measurement from being whole: sources of portable rooms that the build does
    not compile, and reasons that concern nothing any more."""
    known = compiled(build)
    listed = subprocess.run(["git", "ls-files", "*.cpp"], cwd=ringlib.TOP, text=True, check=True,
                            capture_output=True).stdout
    return [*(f"{name} is not in the native build" for name in listed.split()
              if ROOMS.match(name) and name not in known),
            *(f"nothing is {why} ({pattern})" for pattern, why in UNMEASURED.items()
              if not any(re.match(pattern, name) for name in known))]


def run_all(build, tally, place):
    """Runs the tests; their profiles are left in the folder `place`."""
    place.mkdir(parents=True)
    environment = {**os.environ, "LLVM_PROFILE_FILE": f"{place}/%p.profraw"}
    for program in gtest.programs(build):
        gtest.run(build, program, tally, [environment] * os.cpu_count())


def branches(build, place):
    """{(file, line, column, last line, column behind it): [times true, times false]} of the
    conditions in the portable code."""
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
            for *place_of_it, when_true, when_false in (each[:6] for each in file["branches"]):
                counts[name, *place_of_it][0] += when_true
                counts[name, *place_of_it][1] += when_false
    return counts


def tool(name):
    """The tool that belongs to the compiler; Debian has it under its version's name too."""
    version = subprocess.run(["clang", "-dumpversion"], text=True, check=True,
                             capture_output=True).stdout.split(".", maxsplit=1)[0]
    return f"{name}-{version}"


def exceptions():
    """How often the list has a row for each place, by the row without its reason."""
    rows = collections.Counter()
    for line in LIST.read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            place, why = line.rsplit(" | ", maxsplit=1)
            if place.count(" | ") < 2 or not why.strip():
                raise ValueError(f"{LIST.name}: a row is file | line | condition | why: {line}")
            rows[place] += 1
    return rows


def made_by_the_compiler(text, column):
    """Comparisons that nobody wrote, choices made while compiling, loops without a condition, and the
    way past a switch whose cases are all there are."""
    return ("= default;" in text or "if constexpr" in text or "while (true)" in text
            or text[:column - 1].endswith("switch ("))


def line_of(lines, number):
    """The text of a line; of several alike in a file it says which one it is."""
    text = lines[number - 1].strip()
    alike = [at + 1 for at, line in enumerate(lines) if line.strip() == text]
    return text if len(alike) == 1 else f"{text} ({alike.index(number) + 1} of {len(alike)})"


def condition_of(lines, line, column, last, end):
    """The text of a condition, on one line."""
    text = lines[line - 1:last]
    text[-1] = text[-1][:end - 1]
    text[0] = text[0][column - 1:]
    return " ".join(each.strip() for each in text)


def judge(counts):
    """How many branches there are and were taken, and two lists: those that were not and are not
    explained, and explanations of branches that are gone or taken. An explanation stands for one
    branch."""
    unused, missing, total, taken = exceptions(), [], 0, 0
    texts = {name: (ringlib.TOP / name).read_text(encoding="utf-8").splitlines()
             for name in {name for name, *_ in counts}}
    for (name, line, column, last, end), times in sorted(counts.items()):
        lines = texts[name]
        if made_by_the_compiler(lines[line - 1], column):
            continue
        total += 2
        for way, count in zip(("true", "false"), times):
            key = (f"{name} | {line_of(lines, line)} | "
                   f"{condition_of(lines, line, column, last, end)}: never {way}")
            if count:
                taken += 1
            elif unused[key] > 0:
                unused[key] -= 1
            else:
                missing.append(f"line {line}: {key}")
    return total, taken, missing, list(unused.elements())
