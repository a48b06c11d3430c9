"""Tries mutants: compiles a changed source, links it in front of the libraries that hold the sound one,
and runs the tests that are about it, until one fails."""

import collections
import concurrent.futures
import itertools
import os
import pathlib
import re
import resource
import shlex
import shutil
import subprocess

import coverage
import gtest
import mutate
import ringlib

# Seconds of work, and of waiting: on a machine that has other work, a sound program may take long.
WORK_LIMIT = 60
TIME_LIMIT = 600
MEMORY_LIMIT = 4 << 30
# These play at random and take most of the time; a mutant meets them last.
SLOW = ("Share/*", "*Property*", "*property*", "*Sweep*", "*Plays*", "*Simul*")
# Tables of places and captions in design units: pictures and scenarios judge those.
TABLES = re.compile(r"Layout\.cpp$|entry/ChargeInfoMenus\.cpp$")
OF_ROOM = {"components/charge/": ("charge_tests", "record_files_tests", "log_lines_tests"),
           "components/logviewer/": ("logviewer_tests", "log_lines_tests"),
           "components/hostdata/": ("hostdata_tests", "store_file_tests"),
           "components/environment/": ("environment_tests", "command_lines_tests"),
           "platform/": ("native_tests", "charge_tests", "money_texts_tests"),
           "settings/": ("native_tests", "stored_settings_tests")}
# Twice as fast as the usual one, where it is.
LINKER = ["-fuse-ld=gold"] if shutil.which("ld.gold") else []
CASE = re.compile(r"^(?:TYPED_)?TEST(?:_F|_P)?\((\w+),", re.MULTILINE)


def all_mutants(build):
    """[(file, line, what, changed text)] of the portable sources and headers."""
    found = []
    for name in [*coverage.sources(build), *readers(build)]:
        if not TABLES.search(name):
            text = (ringlib.TOP / name).read_text(encoding="utf-8")
            found += [(name, *each) for each in mutate.mutants(text)]
    return found


def readers(build):
    """{portable header: the portable sources that read it}, as the compiler told ninja."""
    shown = subprocess.run(["ninja", "-C", str(build), "-t", "deps"], text=True, check=True,
                           capture_output=True).stdout
    sources, found = set(coverage.sources(build)), collections.defaultdict(set)
    for made in shown.split("\n\n"):
        names = [os.path.relpath(build / line.strip(), ringlib.TOP)
                 for line in made.splitlines() if line.startswith(" ")]
        own = sources.intersection(names)
        for name in names:
            if own and name.endswith(".h") and coverage.portable(name):
                found[name] |= own
    return dict(sorted(found.items()))


class Workshop:
    """A build whose programs can be linked anew with one object changed. Each worker has a folder."""

    def __init__(self, build, folder):
        self.build = build
        self.folder = folder
        self.compiles = coverage.compiled(build)
        self.readers = readers(build)
        self.links, self.parts = {}, {}
        for program in gtest.programs(build):
            self.links[program], self.parts[program] = self.made_of(program)
        self.suites = suites_by_source()

    def made_of(self, program):
        """The command that links a program, as words, and the sources that it consists of."""
        target = os.path.relpath(program, self.build)
        *commands, link = subprocess.run(
            ["ninja", "-C", str(self.build), "--quiet", "-t", "commands", target],
            text=True, check=True, capture_output=True).stdout.strip().splitlines()
        sources = {os.path.relpath(found[1], ringlib.TOP)
                   for found in (re.search(r" -c (\S+)$", each) for each in commands) if found}
        return shlex.split(link.removeprefix(": && ").removesuffix(" && :")), sources

    def compile(self, name, text, worker):
        """{source: object} of a changed source, or of the sources that read a changed header;
        nothing when one does not compile."""
        place = self.folder / worker
        shutil.rmtree(place, ignore_errors=True)
        changed = place / "changed" / name
        changed.parent.mkdir(parents=True)
        changed.write_text(text, encoding="utf-8")
        found = {}
        for source in sorted(self.readers.get(name, [name])):
            known, result = self.compiles[source], place / f"{source.replace('/', '_')}.o"
            words = [word for word in shlex.split(known["command"]) if not word.endswith("ccache")]
            words[words.index("-o") + 1] = str(result)
            if source == name:
                words[words.index("-c") + 1] = str(changed)
            # What a source names in quotes is looked for among the changed first.
            done = subprocess.run([*words, "-iquote", place / "changed", "-w", "-Wno-error"],
                                  cwd=known["directory"], check=False, stdin=subprocess.DEVNULL,
                                  capture_output=True)
            if done.returncode:
                return {}
            found[source] = str(result)
        return found

    def programs(self, name):
        """The test programs that can notice a change of the source."""
        wanted = next((names for start, names in OF_ROOM.items() if name.startswith(start)),
                      ("native_tests", "component_answers_tests"))
        return [program for part in wanted for program in self.links
                if pathlib.Path(program).name == part]

    def link(self, program, changed, worker):
        """The program with those of the changed objects that it consists of."""
        words = list(self.links[program])
        result = self.folder / worker / pathlib.Path(program).name
        words[words.index("-o") + 1] = str(result)
        first = next(i for i, word in enumerate(words) if word.endswith(".o"))
        words[first:first] = [*(made for source, made in changed.items()
                                if source in self.parts[program]), *LINKER]
        done = subprocess.run(words, cwd=self.build, check=False, stdin=subprocess.DEVNULL,
                              capture_output=True)
        return result if done.returncode == 0 else None

    def filters(self, name):
        """Which cases to run, nearest first: those about the source, all quick ones, the slow."""
        near = ":".join(f"*{suite}*" for suite in sorted(self.suites.get(stem(name), ())))
        slow = ":".join(SLOW)
        return [*([f"{near}-{slow}"] if near else []), f"*-{slow}", slow]

    def try_mutant(self, mutant, worker):
        """"killed", "survived", or "none" for what is no program."""
        name, _, _, text = mutant
        changed = self.compile(name, text, worker)
        if not changed:
            return "none"
        for program in self.programs(name):
            if self.parts[program].isdisjoint(changed):
                continue
            linked = self.link(program, changed, worker)
            if linked is None:
                return "none"
            if any(not passes(linked, wanted) for wanted in self.filters(name)):
                return "killed"
        return "survived"


def control(workshop, mutants):
    """What goes wrong with sources and headers that were not changed: each program must be linked
    and pass. Without that a broken build would look like a killed mutant."""
    samples = {}
    for name, *_ in mutants:
        samples.setdefault((*workshop.programs(name), name.endswith(".h")), name)

    def try_unchanged(number, name):
        text = (ringlib.TOP / name).read_text(encoding="utf-8")
        return workshop.try_mutant((name, 0, "nothing", text), f"control{number}")

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        ends = zip(samples.values(), pool.map(try_unchanged, itertools.count(), samples.values()))
    return [f"{name}, unchanged: {end}" for name, end in ends if end != "survived"]


def passes(program, wanted):
    """Whether the program's cases pass, within the limits of work, time and memory."""
    def limit():
        resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        resource.setrlimit(resource.RLIMIT_CPU, (WORK_LIMIT, WORK_LIMIT))
    try:
        return subprocess.run(
            [program, "--gtest_brief=1", "--gtest_fail_fast", f"--gtest_filter={wanted}"],
            env={**os.environ, "LLVM_PROFILE_FILE": os.devnull}, stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=TIME_LIMIT, check=False,
            preexec_fn=limit, cwd=program.parent).returncode == 0
    except subprocess.TimeoutExpired:
        return False


def stem(name):
    """What a file is about: ChargeInfo of entry/ChargeInfo_Start.cpp."""
    return pathlib.Path(name).stem.split("_")[0]


def suites_by_source():
    """{what a source is about: the suites of the tests that include its header}."""
    listed = subprocess.run(["git", "ls-files", "tests/*.cpp", "components/*/tests/*.cpp"],
                            cwd=ringlib.TOP, text=True, check=True, capture_output=True).stdout
    found = {}
    for test in listed.split():
        text = (ringlib.TOP / test).read_text(encoding="utf-8")
        about = {stem(path) for path in re.findall(r'^#include "([^"]+)"', text, re.MULTILINE)}
        for each in about | {stem(test).removesuffix("Tests").removesuffix("Test")}:
            found.setdefault(each, set()).update(CASE.findall(text))
    return found
