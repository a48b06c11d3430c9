"""clang-tidy over our own sources, each again only when it or something it includes has changed."""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess

from ringlib import BUILD, TOP

CACHE = BUILD / "tidy"
MINGW = "x86_64-w64-mingw32"
# Tests are checked for the mistakes of a line only: reading them all with every check would take
# longer than running them.
LIGHTER_FOR_TESTS = ("--checks=-*,bugprone-use-after-move,bugprone-assert-side-effect,"
                     "bugprone-sizeof-*,bugprone-infinite-loop,misc-redundant-expression,"
                     "modernize-use-override,modernize-use-nullptr,performance-for-range-copy")


def problems(presets):
    """The findings in every source of the presets' builds; an earlier preset's build speaks first."""
    units = {}
    for preset in presets:
        for path, unit in sources(preset).items():
            units.setdefault(path, unit)
    stale = {path: unit for path, unit in units.items() if not is_known_good(path, unit)}
    print(f"-- clang-tidy: {len(stale)} of {len(units)} sources to analyse", flush=True)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return [text for text in pool.map(analyse, stale.items()) if text]


def sources(preset):
    """Our sources in a preset's build: path to (command, digest of all that the result rests on)."""
    folder = BUILD / preset
    included = dependencies(folder)
    extra = mingw_flags() if preset == "x64" else []
    units = {}
    for entry in json.loads((folder / "compile_commands.json").read_text(encoding="utf-8")):
        path = entry["file"]
        if not path.endswith(".cpp") or not is_ours(path):
            continue
        command = clang_command(entry["command"], extra)
        made = re.search(r" -o (\S+)", entry["command"]).group(1)
        units[path] = (command, digest(command, included.get(made, [path])))
    return units


def is_ours(path):
    """Generated and third-party sources lie under build/ or outside."""
    return path.startswith(f"{TOP}/") and not path.startswith(f"{BUILD}/")


def clang_command(command, extra):
    """The compile command in clang's words: no launcher, no output."""
    words = shlex.split(command)
    while not re.search(r"(\+\+|gcc|clang)(-posix)?$", words[0]):
        words.pop(0)
    output = words.index("-o")
    return ["clang++", *extra, *words[1:output], *words[output + 2:]]


def mingw_flags():
    """Clang for Windows, with the headers of the cross compiler."""
    shown = subprocess.run([f"{MINGW}-g++-posix", "-xc++", "-E", "-v", "/dev/null"], text=True,
                           check=True, capture_output=True).stderr
    folders = shown.split("search starts here:\n")[-1].split("End of search")[0].split()
    own = [folder for folder in folders if "/lib/gcc/" not in folder or "/c++" in folder]
    return [f"--target={MINGW}", "-nostdinc++",
            *(word for folder in own for word in ("-isystem", folder))]


def dependencies(folder):
    """What each object was made of, as the build last saw it."""
    shown = subprocess.run(["ninja", "-C", str(folder), "--quiet", "-t", "deps"], text=True,
                           check=True, capture_output=True).stdout
    found = {}
    for block in shown.split("\n\n"):
        lines = block.splitlines()
        if lines:
            name = lines[0].split(": #deps")[0]
            found[name] = [os.path.join(folder, line.strip()) for line in lines[1:]]
    return found


def digest(command, files):
    """One number for a command and the contents of files, ours and generated ones."""
    total = hashlib.sha256(json.dumps(command).encode())
    total.update(LIGHTER_FOR_TESTS.encode())
    for name in [f"{TOP}/.clang-tidy", *sorted(map(os.path.normpath, files))]:
        if name.startswith(f"{TOP}/") and os.path.exists(name):
            total.update(name.encode() + pathlib.Path(name).read_bytes())
    return total.hexdigest()


def stamp(path):
    """Where the digest of a source without findings is kept."""
    return CACHE / (os.path.relpath(path, TOP).replace("/", "!") + ".good")


def is_known_good(path, unit):
    """True when nothing changed since the last analysis without findings."""
    return stamp(path).exists() and stamp(path).read_text(encoding="ascii") == unit[1]


def analyse(item):
    """Runs clang-tidy on one source and returns what it says; nothing when all is well."""
    path, (command, known) = item
    words = [word for word in command[1:] if word not in (path, "-c", "-Werror")]
    lighter = [LIGHTER_FOR_TESTS] if "/tests/" in path else []
    ended = subprocess.run(["clang-tidy", "--quiet", *lighter, path, "--", *words],
                           text=True, capture_output=True, check=False, cwd=BUILD)
    if ended.returncode == 0:
        CACHE.mkdir(parents=True, exist_ok=True)
        stamp(path).write_text(known, encoding="ascii")
        return ""
    return ended.stdout or ended.stderr
