"""The rules of this house that no compiler knows."""

import pathlib
import re
import subprocess

from ringlib import BUILD, TOP

# A room may include rooms of its own floor and below.
FLOORS = {"platform": 0, "settings": 1, "gateway": 1, "controls": 2, "dialogs": 2, "output": 2,
          "entry": 3, "app": 4}
# The platform's own headers stop at these doors.
WINDOWS_ROOMS = ("platform/win32/", "components/", "tests/win32/", "tests/journeys/probe/",
                 "app/win32/", "tests/bench/")
# The executable's entry point hangs the program on the real desktop: it stands above all rooms.
ENTRY_POINT = "platform/win32/WinMain.cpp"
LONGEST_FILE = 450
# Ask for a state again and again; and what makes a program's disk slow.
MAY_PAUSE = ("tests/journeys/harness/waiting.py", "tests/win32/Until.h",
             "tests/journeys/harness/slow_reads.c")
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]', re.MULTILINE)


def tracked(*patterns):
    """The repository's files, also those that are not committed yet."""
    shown = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard", "--",
                            *patterns], cwd=TOP, text=True, check=True, capture_output=True).stdout
    return sorted({name for name in shown.splitlines() if (TOP / name).is_file()})


def text(name):
    """The contents of a file of the repository."""
    return (TOP / name).read_text(encoding="utf-8", errors="replace")


def code():
    """Every source and header."""
    return tracked("*.cpp", "*.h")


def includes(name):
    """The files of the repository that a file includes."""
    return [path for kind, path in INCLUDE.findall(text(name)) if (TOP / path).is_file()]


def room(name):
    """The room of a file, or nothing for files outside of the program."""
    first = name.split("/")[0]
    return first if first in FLOORS else None


def platform_headers():
    """The platform's headers are included by the Windows rooms only."""
    header = re.compile(r"(windows|win\w+|commctrl|ole\w*|objbase|shell\w+|comm\w+)\.h$",
                        re.IGNORECASE)
    return [f"{name}: {path}" for name in code() if not name.startswith(WINDOWS_ROOMS)
            for kind, path in INCLUDE.findall(text(name)) if kind == "<" and header.match(path)]


def is_above(path, floor):
    """A file of app/ that stands on nothing above the floor may be included from there."""
    if room(path) == "app":
        return any(is_above(below, floor) for below in includes(path) if room(below))
    return FLOORS[room(path)] > floor


def upward_includes():
    """No room includes a room above it; the program and its neighbours share value types only."""
    found = []
    for name in (name for name in code() if name != ENTRY_POINT):
        for path in includes(name):
            here, there = room(name), room(path)
            if here and not there and not path.startswith("app/resources/"):
                found.append(f"{name}: {path} is not a part of the program")
            elif here and there and is_above(path, FLOORS[here]):
                found.append(f"{name}: {path} is above")
            elif name.startswith("components/") and there and there != "platform":
                found.append(f"{name}: {path} belongs to the program")
    return found


def include_cycles():
    """Includes never form a circle."""
    graph = {name: includes(name) for name in code()}
    done, found = set(), []

    def visit(name, trail):
        if name in trail:
            found.append(" -> ".join([*trail[trail.index(name):], name]))
        elif name not in done:
            for path in graph.get(name, []):
                visit(path, [*trail, name])
            done.add(name)

    for name in graph:
        visit(name, [])
    return found


def long_files():
    """A file has one subject; past this length it has two."""
    return [f"{name}: {text(name).count(chr(10))} lines" for name in code()
            if text(name).count("\n") > LONGEST_FILE]


def sources_nobody_builds():
    """Every source is compiled for this machine or for Windows."""
    built = "".join((BUILD / preset / "compile_commands.json").read_text(encoding="utf-8")
                    for preset in ("native", "x64"))
    return [name for name in tracked("*.cpp") if f'"file": "{TOP / name}"' not in built]


def test_only_branches():
    """What ships does not know that it is tested."""
    branch = re.compile(r"^\s*#\s*(if|ifdef|ifndef|elif)\b.*TEST", re.MULTILINE)
    return [name for name in code() if not re.search(r"(^|/)tests/", name)
            and branch.search(text(name))]


def sleeping_tests():
    """A test waits for a state; only what asks for one again and again may pause in between. The
    same holds for a ring and what plays it."""
    pause = re.compile(
        # Calls of this and that language,
        r"\b(?:u?sleep|Sleep(?:Ex)?|nanosleep|sleep_for|sleep_until)\s*\("
        r"|\bWScript\.Sleep\b|\bStart-Sleep\b|\btime\.sleep\b|from time import .*\bsleep\b"
        # a program as a word of its own in a list of arguments,
        r"|[\"']u?sleep[\"']"
        # and one in a line of a shell, with how long.
        r"|\bu?sleep +[\"']?[$\d.]", re.IGNORECASE)
    return [f"{name}: {found.group()}" for name in tracked() if tests_or_plays_them(name)
            and name not in MAY_PAUSE and (found := pause.search(text(name)))]


def tests_or_plays_them(name):
    """A source of a test or of a ring; the kept inputs of the fuzz targets are neither."""
    plays = r"(^|/)tests/|^tools/rings/|^tools/(gtest|journeylib|proven|ringlib)\.py$"
    source = r"\.(c|cpp|h|py|vbs|js|ps1|sh|bat|cmd|txt|cmake)$|^tools/rings/"
    return bool(re.search(plays, name) and re.search(source, name)) and "/corpus/" not in name


def machine_paths():
    """Nothing committed names a folder of one machine or the host of a package registry."""
    words = re.compile("|".join(["/ho" + r"me/\w", "/ro" + "ot/", "/wo" + "rk/", "npm" + "js[.]"]))
    return [f"{name}: {found.group()}" for name in tracked()
            if (found := words.search(text(name)))]


RULES = {
    "platform headers stay in the Windows rooms": platform_headers,
    "includes point down": upward_includes,
    "includes form no circle": include_cycles,
    "files stay short": long_files,
    "every source is built": sources_nobody_builds,
    "no test-only branch ships": test_only_branches,
    "no test sleeps": sleeping_tests,
    "no path of one machine": machine_paths,
}
