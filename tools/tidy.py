"""clang-tidy over our own sources, many at a time.

Nearly all of clang-tidy's time goes into the system's headers, which every source includes anew. So
sources that are compiled alike are read as one, and the findings are told in their own lines. A
batch is analysed again only when something in it, or something it includes, has changed.
"""

import collections
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
BATCH = 24
# The analyser walks every path of every function and takes as long as all other checks together.
WITHOUT_ANALYSER = "-clang-analyzer-*"
# Tests are checked for the mistakes of a line only.
FOR_TESTS = ("-*,bugprone-use-after-move,bugprone-assert-side-effect,bugprone-sizeof-*,"
             "bugprone-infinite-loop,misc-redundant-expression,modernize-use-override,"
             "modernize-use-nullptr,performance-for-range-copy")

Unit = collections.namedtuple("Unit", "command files")


def problems(presets, analyser):
    """The findings in every source of the presets' builds; an earlier preset's build speaks first."""
    units = {}
    for preset in presets:
        for path, unit in sources(preset).items():
            units.setdefault(path, unit)
    jobs = [(paths, units[paths[0]].command, checks(paths[0], analyser),
             sorted({name for path in paths for name in units[path].files}))
            for paths in alike(units)]
    stale = [job for job in jobs if not is_known_good(job)]
    print(f"-- clang-tidy: {sum(len(job[0]) for job in stale)} of {len(units)} sources to read",
          flush=True)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return [text for texts in pool.map(examine, stale) for text in texts]


def sources(preset):
    """Our sources in a preset's build: path to how it is compiled and all that it is made of."""
    folder = BUILD / preset
    included = dependencies(folder)
    extra = mingw_flags() if preset == "x64" else []
    units = {}
    for entry in json.loads((folder / "compile_commands.json").read_text(encoding="utf-8")):
        path = entry["file"]
        if path.endswith(".cpp") and is_ours(path):
            made = re.search(r" -o (\S+)", entry["command"]).group(1)
            units[path] = Unit((*extra, *clang_words(entry["command"], path)),
                               included.get(made, [path]))
    return units


def is_ours(path):
    """Generated and third-party sources lie under build/ or outside."""
    return path.startswith(f"{TOP}/") and not path.startswith(f"{BUILD}/")


def clang_words(command, path):
    """The arguments of a compile command that clang understands, without input and output."""
    words = shlex.split(command)
    while not re.search(r"(\+\+|gcc|clang)(-posix)?$", words[0]):
        words.pop(0)
    # The compiler's own form of a header read beforehand says nothing to clang.
    for pair in ("-include", "-o"):
        while pair in words:
            at = words.index(pair)
            del words[at:at + 2]
    return [word for word in words[1:] if word not in (path, "-c", "-Werror", "-Winvalid-pch")]


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
            found[name] = [os.path.normpath(folder / line.strip()) for line in lines[1:]]
    return found


def alike(units):
    """Lists of sources that can be read as one: compiled alike and checked alike."""
    groups = collections.defaultdict(list)
    for path, unit in sorted(units.items()):
        groups[unit.command, "/tests/" in path].append(path)
    for paths in groups.values():
        for start in range(0, len(paths), BATCH):
            yield tuple(paths[start:start + BATCH])


def checks(path, analyser):
    """What is looked for, on top of .clang-tidy."""
    if "/tests/" in path:
        return FOR_TESTS
    return "" if analyser else WITHOUT_ANALYSER


def digest(job):
    """One number for the command and the contents of all our files behind a batch."""
    paths, command, wanted, files = job
    total = hashlib.sha256(json.dumps([paths, command, wanted]).encode())
    for name in [f"{TOP}/.clang-tidy", *files]:
        if name.startswith(f"{TOP}/") and os.path.exists(name):
            total.update(name.encode() + pathlib.Path(name).read_bytes())
    return total.hexdigest()


def is_known_good(job):
    """True when nothing changed since the last analysis without findings."""
    return (CACHE / digest(job)).exists()


def examine(job):
    """The findings of a batch. Sources whose private names collide are read apart."""
    paths, command, wanted, _ = job
    found = []
    left = list(paths)
    while left:
        together = list(left)
        while apart := colliding(together, command):
            together = [path for path in together if path not in apart]
        found += findings(together, command, wanted)
        left = [path for path in left if path not in together]
    if not found:
        CACHE.mkdir(parents=True, exist_ok=True)
        (CACHE / digest(job)).touch()
    return found


def colliding(paths, command):
    """The sources that do not compile after those before them; the first one always stays."""
    text, lines = joined(paths)
    ended = subprocess.run(["clang++", *command, "-w", "-ferror-limit=0", "-fsyntax-only",
                            "-fno-caret-diagnostics", "-xc++", "-"], input=text, text=True,
                           capture_output=True, check=False, cwd=BUILD)
    if ended.returncode == 0:
        return set()
    # An error may show in a header; then a note says which of our lines led there.
    told = re.findall(r"^<stdin>:(\d+):\d+: (?:(?:fatal )?error|note: in instantiation)",
                      ended.stderr, re.M)
    return {lines[int(line) - 1][0] for line in told} - {paths[0]} or set(paths[1:])


def findings(paths, command, wanted):
    """What clang-tidy says of sources read as one, each finding in its own line."""
    text, lines = joined(paths)
    CACHE.mkdir(parents=True, exist_ok=True)
    source = CACHE / f"{hashlib.sha256(text.encode()).hexdigest()[:16]}.cpp"
    source.write_text(text, encoding="utf-8")
    ended = subprocess.run(["clang-tidy", "--quiet", f"--config-file={TOP}/.clang-tidy",
                            f"--checks={wanted}", str(source), "--", *command],
                           text=True, capture_output=True, check=False, cwd=BUILD)
    source.unlink()
    if ended.returncode == 0:
        return []

    def own_place(match):
        path, line = lines[int(match.group(1)) - 1]
        return f"{os.path.relpath(path, TOP)}:{line}:"
    said = ended.stdout or ended.stderr
    return [re.sub(re.escape(str(source)) + r":(\d+):", own_place, said)]


def joined(paths):
    """The sources' text one after the other, and for each line where it came from."""
    text, lines = [], []
    for path in paths:
        for number, line in enumerate(pathlib.Path(path).read_text("utf-8").splitlines(), 1):
            text.append(line)
            lines.append((path, number))
    return "\n".join(text) + "\n", lines
