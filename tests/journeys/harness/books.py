"""The three books of a sale, read by none of our own code: the processor's ledger, the transaction
log and the payment records; and the journal of what is still on its way."""

import dataclasses
import pathlib
import re
import sqlite3

DATA = pathlib.Path("drive_c/ProgramData/Norrow Programs")
LEDGER, JOURNAL, LOG = "ledger-live.dat", "journal.dat", "ZENDACARD.LOG"
STORE = "hostdata.db"


@dataclasses.dataclass(frozen=True)
class Books:
    """What each book says, as sorted lists of (transaction, hundredths)."""

    ledger: list
    log: list
    payments: list
    open: list
    damage: str

    def missing(self):
        """What the processor has approved and the payment records do not hold."""
        return sorted(set(self.ledger) - set(self.payments))

    def problems(self):
        """What no crash may leave behind, whether or not a payment is missing."""
        found = []
        if self.damage != "ok":
            found.append(f"the store is damaged: {self.damage}")
        if self.log != self.ledger:
            found.append(f"the log tells {self.log}, the ledger {self.ledger}")
        if self.open:
            found.append(f"still open in the journal: {self.open}")
        if len(set(self.payments)) != len(self.payments):
            found.append(f"posted twice: {self.payments}")
        if set(self.payments) - set(self.ledger):
            found.append(f"posted without a charge: {self.payments}, charged {self.ledger}")
        return found


def read(prefix_folder):
    """Reads the books of an installation whose processes are at rest."""
    data = pathlib.Path(prefix_folder) / DATA
    card, host = data / "Zendacard", data / "Host Data"
    payments, damage = read_store(host / STORE)
    return Books(sorted(read_ledger(card / LEDGER)), sorted(read_log(card / LOG)),
                 sorted(payments), read_journal(card / JOURNAL), damage)


def records(path):
    """The records of a file of the charge component. A last one may be half-written."""
    if not path.exists():
        return []
    lines = path.read_text(encoding="latin-1").split("\n")[:-1]
    return [line[9:].split("\t") for line in lines]


def hundredths(amount):
    """100 times an amount, as a whole number."""
    return round(float(amount) * 100)


def read_ledger(path):
    """What was approved."""
    return [(r[15], hundredths(r[5])) for r in records(path) if r[11] == "1"]


def read_journal(path):
    """The keys that were opened and never closed."""
    marks = records(path)
    closed = {r[1] for r in marks if r[0] == "closed"}
    return [r[1] for r in marks if r[0] == "open" and r[1] not in closed]


def read_log(path):
    """What whole lines tell as approved."""
    found = []
    for line in path.read_text(encoding="latin-1").splitlines() if path.exists() else []:
        columns = re.split(r" {2,}", line.strip())
        if len(columns) > 9 and columns[6] == "APPROVED" and "(interrupted)" not in line:
            found.append((columns[9], hundredths(columns[4])))
    return found


def read_store(path):
    """The payments, and what the store engine finds wrong ("ok")."""
    if not path.exists():
        return [], "ok"
    with sqlite3.connect(path) as store:
        damage = store.execute("PRAGMA integrity_check").fetchone()[0]
        rows = store.execute("SELECT trans_id, amount FROM payments ORDER BY id").fetchall()
    return [(transaction, amount // 100) for transaction, amount in rows], damage


def family_names(prefix_folder):
    """Who the payments are from, oldest first."""
    with sqlite3.connect(pathlib.Path(prefix_folder) / DATA / "Host Data" / STORE) as store:
        return [row[0] for row in store.execute("SELECT sold_to_last FROM payments ORDER BY id")]
