"""Tills without a window that use one host data server at the same time."""

import collections
import shutil
import sqlite3
import subprocess
import time

from . import books
from .crash import DRIVER
from .prefix import Prefix


class Tills:
    """An installation in which several tills run at once."""

    def __init__(self, folder, count=4):
        self.prefix = Prefix.installed(folder)
        self.count = count
        shutil.copy2(DRIVER, self.prefix.program_folder)

    def __enter__(self):
        return self

    def __exit__(self, *unused):
        self.prefix.remove()

    def together(self, *arguments):
        """The same on every till at once ("{till}" is its number). Answers what each one said and
        the seconds that it took."""
        said = [self.prefix.folder / f"said-{till}" for till in range(self.count)]
        begin = time.monotonic()
        running = [self.start(said[till], [a.format(till=till) for a in arguments])
                   for till in range(self.count)]
        for process in running:
            process.wait(3600)
        seconds = time.monotonic() - begin
        return [path.read_text(encoding="latin-1").splitlines() for path in said], seconds

    def start(self, said, arguments):
        """Starts one till. Not into a pipe: the host data server would hold its other end."""
        with open(said, "wb") as output:
            return subprocess.Popen(["wine", "till_driver.exe", *arguments], stdout=output,
                                    stdin=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                    env=self.prefix.environment(), cwd=self.prefix.program_folder)

    def post(self, payments):
        """Posts that many payments, shared out over the tills; answers the seconds."""
        # The first call of all makes the store; the tills' own work is what is measured.
        self.prefix.run("till_driver.exe", "post", "first", "1")
        said, seconds = self.together("post", "till{till}", str(payments // self.count))
        assert all(lines[-1:] == ["ended"] for lines in said), said
        return seconds

    def problems(self, payments):
        """What the store does not hold as the tills posted it. They must be at rest."""
        wanted = collections.Counter(
            {(f"till{till}-{i}", 10_000 * i) for till in range(self.count)
             for i in range(1, payments // self.count + 1)} | {("first-1", 10_000)})
        with sqlite3.connect(self.prefix.folder / books.DATA / "Host Data" / books.STORE) as store:
            damage = store.execute("PRAGMA integrity_check").fetchone()[0]
            rows = store.execute("SELECT id, trans_id, amount FROM payments").fetchall()
        found = collections.Counter((transaction, amount) for _, transaction, amount in rows)
        problems = [] if damage == "ok" else [f"the store is damaged: {damage}"]
        problems += [f"lost: {payment}" for payment in (wanted - found)]
        problems += [f"doubled or strange: {payment}" for payment in (found - wanted)]
        if sorted(row[0] for row in rows) != list(range(1, len(rows) + 1)):
            problems.append("the numbers of the records are not 1, 2, 3, ...")
        return problems
