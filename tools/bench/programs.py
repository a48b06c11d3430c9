"""The programs that are held against each other: how each is started, and which processes it is."""

import os
import pathlib
import shutil
import subprocess

import ringlib
from harness import processes

BENCH = ringlib.TOP / "tests" / "bench"
MARK = "TOLLVANE_BENCHED"


class Program:
    """A program that shows its form by itself."""

    def __init__(self, name, command, display):
        self.name = name
        self._command = command
        self._display = display
        self._count = 0

    def start(self):
        """Starts it; the answer is asked for its end."""
        self._count += 1
        return subprocess.Popen(self._command, env=self.environment(), stdin=subprocess.DEVNULL,
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def environment(self):
        """What the program sees, with a mark by which its processes are found."""
        return {**self._display.environment(), MARK: self._mark()}

    def processes(self):
        """The processes that it consists of."""
        return processes.marked(f"{MARK}={self._mark()}")

    def helpers(self):
        """Processes that work for it but are not its own."""
        return []

    def _mark(self):
        return f"{self.name}-{self._count}"


class WineProgram(Program):
    """A Windows program in a prefix whose server and desktop are up."""

    def __init__(self, name, executable, prefix, display, parts=()):
        super().__init__(name, ["wine", str(executable)], display)
        self._prefix = prefix
        self._parts = (pathlib.Path(executable).name, *parts)

    def environment(self):
        return {**self._prefix.environment(), MARK: self._mark()}

    def start(self):
        self._count += 1
        return subprocess.Popen(self._command, env=self.environment(), stdin=subprocess.DEVNULL,
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                cwd=self._prefix.program_folder)

    def processes(self):
        """The program and the components that run in a process of their own."""
        return [number for number in self._all()
                if any(part in processes.command(number) for part in self._parts)]

    def helpers(self):
        """The server that all Windows programs share, and the system's own processes."""
        own = set(self.processes())
        return [number for number in self._all() if number not in own]

    def _all(self):
        return processes.of_prefix(self._prefix)


def swing(display, folder):
    """A Swing form with the same fields, compiled beforehand."""
    subprocess.run(["javac", "-d", str(folder), str(BENCH / "swing" / "CounterForm.java")],
                   check=True)
    return Program("swing", ["java", "-cp", str(folder), "CounterForm"], display)


def chromium(display, folder):
    """A page with the same fields, in a window of its own."""
    profile = folder / "profile"
    shutil.rmtree(profile, ignore_errors=True)
    command = ["chromium", f"--app=file://{BENCH / 'page' / 'form.html'}",
               f"--user-data-dir={profile}", "--no-first-run", "--no-default-browser-check",
               "--disable-background-networking", "--disable-component-update",
               "--disable-sync", "--password-store=basic"]
    if os.geteuid() == 0:
        command.append("--no-sandbox")
    return Program("chromium", command, display)
