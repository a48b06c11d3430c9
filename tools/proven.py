"""What passed before and consists of the same bytes since: it need not run again.

A record is kept beside the builds, so a clean clone knows nothing and runs everything. Every reuse
is told. `./test --afresh` forgets the records of the rings that it runs.
"""

import contextlib
import functools
import hashlib
import json
import os
import pathlib
import shutil
import subprocess

from ringlib import BUILD, TOP

# What a result rests on besides the bytes that are tested.
PACKAGES = ("wine*", "libwine*", "xvfb", "openbox", "xdotool", "cups*", "fonts-*", "python3-pytest*",
            "libc6", "libstdc++6")


class Proven:
    """The passed cases of one ring."""

    def __init__(self, ring):
        self._folder = BUILD / "proven" / ring
        if os.environ.get("TOLLVANE_AFRESH"):
            shutil.rmtree(self._folder, ignore_errors=True)

    def covers(self, name, inputs, tally):
        """Whether all of `name` passed with exactly these inputs; if so its cases are counted."""
        try:
            record = json.loads(self._file(name).read_text(encoding="ascii"))
        except (OSError, ValueError):
            return False
        if record["inputs"] != digest(inputs):
            return False
        print(f"-- {name}: unchanged since its {record['passed']} cases passed", flush=True)
        tally.passed += record["passed"]
        return True

    @contextlib.contextmanager
    def run(self, name, inputs, tally):
        """Around a run of `name`: remembers it when it passed. One broken off is not remembered."""
        before, passed, failed = digest(inputs), tally.passed, tally.failed
        self._file(name).unlink(missing_ok=True)
        yield
        if tally.failed == failed and tally.passed > passed:
            self.keep(name, before, tally.passed - passed)

    def keep(self, name, inputs, passed):
        """Remembers that all cases of `name` passed with inputs of this digest."""
        self._folder.mkdir(parents=True, exist_ok=True)
        self._file(name).write_text(json.dumps({"inputs": inputs, "passed": passed}),
                                    encoding="ascii")

    def _file(self, name):
        return self._folder / hashlib.sha256(name.encode("utf-8")).hexdigest()[:24]


def digest(inputs):
    """One number for the contents of files and folders, and for the machine's own tools."""
    whole = hashlib.sha256(machine().encode("utf-8"))
    for path in sorted({file for one in inputs for file in files(pathlib.Path(one))}):
        whole.update(str(path).encode("utf-8"))
        whole.update(content(path, path.stat().st_mtime_ns, path.stat().st_size))
    return whole.hexdigest()


def files(path):
    """A file, or all files below a folder but those that Python makes."""
    if not path.is_dir():
        return [path]
    return [file for file in path.rglob("*") if file.is_file() and "__pycache__" not in file.parts]


@functools.lru_cache(maxsize=None)
def content(path, _changed, _size):
    """The digest of one file's bytes, read once as long as it does not change."""
    return hashlib.sha256(path.read_bytes()).digest()


@functools.lru_cache(maxsize=None)
def machine():
    """The versions of the tools that take part in a result, and what the environment asks for."""
    versions = subprocess.run(["dpkg-query", "-W", "-f=${Package} ${Version}\n", *PACKAGES],
                              text=True, capture_output=True, check=False).stdout
    wishes = [f"{name}={value}" for name, value in sorted(os.environ.items())
              if name.startswith("TOLLVANE_") and name not in ("TOLLVANE_TALLY", "TOLLVANE_AFRESH")]
    return "\n".join([versions, *wishes])


def data_files():
    """What a running test may read: the files that are neither code nor text for people."""
    shown = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard"],
                           cwd=TOP, text=True, check=True, capture_output=True).stdout
    return [TOP / name for name in shown.splitlines()
            if not name.endswith((".cpp", ".h", ".md", ".py")) and (TOP / name).is_file()]
