"""A Wine prefix of the journey's own, with the shipped files installed as on a shop's machine."""

import fcntl
import json
import os
import pathlib
import shutil
import subprocess

from . import cards
from .secrets import is_same, left_behind

TOP = pathlib.Path(__file__).resolve().parents[3]
STAGE = TOP / "build" / "stage"
TEMPLATE = TOP / "build" / "prefix-installed"
INSTALLED = pathlib.Path("drive_c/Program Files/Norrow Programs/Tollvane")
# A program of the journeys' own, which has its card built in.
BROUGHT = TOP / "build" / "x64" / "tests" / "journeys" / "driver" / "till_driver.exe"
# Seconds that a console program may take, also on a machine with much else to do.
PATIENCE = 400
SETTINGS_KEY = r"HKLM\Software\Norrow Programs\Tollvane"


def shell(function, *arguments):
    """Runs one function of tools/wine.sh."""
    script = 'top=$1; shift; . "$top/tools/lib.sh"; . "$top/tools/wine.sh"; "$@"'
    subprocess.run(["bash", "-euc", script, "bash", str(TOP), function, *map(str, arguments)],
                   check=True)


class Prefix:
    """A Windows of one's own, in a folder."""

    def __init__(self, folder, display=None):
        self.folder = pathlib.Path(folder).resolve()
        self.program_folder = self.folder / INSTALLED
        self.display = display
        # No printer but those that a journey sets up itself.
        self.print_server = str(self.folder / "no-print-server")
        # What else stands in the environment of the programs that are started.
        self.extra = {}
        # Other folders where what runs here leaves something.
        self.outside = []
        self._started = []

    @classmethod
    def installed(cls, folder, display=None):
        """A fresh copy of a prefix in which the program was just installed."""
        prefix = cls(folder, display)
        prefix.clear()
        with open(TOP / "build" / "prefix-installed.lock", "w", encoding="ascii") as lock:
            # Journeys may run side by side; the first one prepares what all of them copy.
            fcntl.flock(lock, fcntl.LOCK_EX)
            shell("make_prefix", TEMPLATE)
            shell("install_program", TEMPLATE, STAGE)
            shell("stop_wine", TEMPLATE)
            copy_prefix(TEMPLATE, prefix.folder)
        return prefix

    def environment(self):
        """The environment of a program inside this prefix."""
        base = self.display.environment() if self.display else {**os.environ, "DISPLAY": ""}
        return {**base, "WINEPREFIX": str(self.folder), "WINEARCH": "win64", "WINEDEBUG": "-all",
                "WINEDLLOVERRIDES": "mscoree,mshtml=;winemenubuilder.exe=d;winedbg.exe=d",
                "LC_ALL": "C.UTF-8", "CUPS_SERVER": self.print_server, **self.extra}

    def start(self, program, *arguments, **options):
        """Starts a program and does not wait for it."""
        defaults = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL,
                    "stderr": subprocess.DEVNULL, "cwd": self.program_folder}
        process = subprocess.Popen(["wine", str(program), *arguments], env=self.environment(),
                                   **{**defaults, **options})
        self._started.append(process)
        return process

    def run(self, program, *arguments, check=True):
        """Runs a console program to its end and returns what it prints."""
        answer = subprocess.run(["wine", str(program), *arguments], env=self.environment(),
                                cwd=self.program_folder, text=True, errors="replace",
                                capture_output=True, timeout=PATIENCE, check=False)
        if check and answer.returncode != 0:
            raise RuntimeError(f"{program} {arguments}: {answer.returncode} {answer.stdout}")
        return answer.stdout.replace("\r\n", "\n")

    def set_value(self, sub_key, name, kind, value):
        """Writes a value of the settings store, below the program's own key."""
        self.run("reg", "add", SETTINGS_KEY + sub_key, "/v", name, "/t", kind, "/d", str(value),
                 "/f")

    @staticmethod
    def key(sub_key):
        """The whole name of a key of the settings store."""
        return SETTINGS_KEY + sub_key

    def value(self, sub_key, name):
        """The text that the system's own tool shows for a value; None when it is not there."""
        shown = self.run("reg", "query", SETTINGS_KEY + sub_key, "/v", name, check=False)
        for line in shown.splitlines():
            words = line.split(None, 2)
            if len(words) >= 2 and words[0] == name:
                return words[2] if len(words) == 3 else ""
        return None

    def stop(self):
        """Ends everything that runs in the prefix and has the registry written to its files."""
        subprocess.run(["wineserver", "-k"], env=self.environment(), check=False)
        subprocess.run(["wineserver", "-w"], env=self.environment(), check=False, timeout=60)
        for process in self._started:
            process.wait(10)
        self._started.clear()

    def remove(self):
        """Takes the prefix away; fails when card data was left in it."""
        found = self.end()
        assert not found, f"card data was left: {found}"

    def end(self):
        """Stops the prefix and takes its folder away. Answers what there was of cards in it and in
        the folders outside of it: {path: findings}. Every prefix ends here."""
        if not self.folder.exists():
            return {}
        self.stop()
        left = [path for folder in self.outside for path in files_below(folder)]
        left += [path for path in left_behind(self.folder, TEMPLATE)
                 if path.name != BROUGHT.name or not is_same(path, BROUGHT)]
        found = cards.SEARCH.finds_in(left)
        note_search(self.folder, left, found)
        self.clear()
        return found

    def clear(self):
        """The same without a look at it, for what a run that was broken off has left."""
        if self.folder.exists():
            self.stop()
            shutil.rmtree(self.folder)


def files_below(folder):
    """The files in a folder that may not be there."""
    return [path for path in pathlib.Path(folder).rglob("*")
            if path.is_file() and not path.is_symlink()]


def note_search(folder, files, found):
    """Adds a line on a search to the list that ./prove counts, where it wants one."""
    proof = os.environ.get("TOLLVANE_SEARCHED")
    if proof:
        with open(proof, "a", encoding="utf-8") as kept:
            kept.write(json.dumps({"prefix": str(folder), "files": len(files),
                                   "with_findings": len(found)}) + "\n")


def copy_prefix(source, target):
    """Copies a prefix that is at rest. What the system brings is linked; what changes is copied."""
    target.mkdir(parents=True)
    system = source / "drive_c" / "windows"
    for entry in source.iterdir():
        if entry.name not in ("drive_c", "wineserver"):
            copy(entry, target / entry.name)
    for entry in (source / "drive_c").iterdir():
        if entry != system:
            copy(entry, target / "drive_c" / entry.name)
    for entry in system.iterdir():
        copy(entry, target / "drive_c" / "windows" / entry.name, linked=entry.is_dir())


def copy(source, target, linked=False):
    """Copies one file or folder and keeps its times, or links it."""
    target.parent.mkdir(parents=True, exist_ok=True)
    subprocess.run(["cp", "-al" if linked else "-a", str(source), str(target)], check=True)
