"""Tills without a window that use one host data server at the same time."""

import collections
import shutil
import sqlite3
import subprocess
import time

from . import books
from .crash import DRIVER, LIVE, end_searched
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
        end_searched(self.prefix)

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

    def sell(self, charges):
        """Charges that many amounts live, shared out over the tills, and posts each; answers the
        seconds and what is wrong, with the tills, or with a book that is not as the others."""
        self.prefix.run("reg", *LIVE)
        count = charges // self.count
        said, seconds = self.together("sales", "{till}", str(count))
        self.prefix.stop()
        found = [f"a till says {line}" for lines in said for line in lines
                 if line.split(" ")[0] not in ("approved", "posted", "ended")]
        told = sorted(line.split(" ")[1] for lines in said for line in lines
                      if line.startswith("approved"))
        if [lines[-1:] for lines in said] != [["ended"]] * self.count:
            found.append("not every till came to its end")
        return seconds, found + self.sales_problems(count * self.count, told)

    def sales_problems(self, charges, told):
        """What of the charges is not once in ledger, log and store, with the transaction that a
        till was told. Each amount is another one."""
        now = books.read(self.prefix.folder)
        store = [payment for payment in now.payments if payment[0].isdigit()]
        problems = [] if now.damage == "ok" else [f"the store is damaged: {now.damage}"]
        for name, book in (("ledger", now.ledger), ("log", now.log), ("store", store)):
            amounts = collections.Counter(amount for _, amount in book)
            if amounts != collections.Counter(range(1, charges + 1)):
                problems.append(f"the {name} holds {len(book)} charges of {charges}")
            if sorted(transaction for transaction, _ in book) != told:
                problems.append(f"the {name} holds other transactions than the tills were told")
        if not now.ledger == now.log == sorted(store):
            problems.append("ledger, log and store differ")
        return problems + [f"still open in the journal: {key}" for key in now.open]

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
