"""The books of a shop that has taken payments for years: its store and its transaction log, as the
program would have written them."""

import contextlib
import dataclasses
import sqlite3
import time
import zlib

YEARS = 4
SECONDS = YEARS * 365.25 * 86_400
FIRST_TRANSACTION = 2_000_000_000
OPERATOR, LOCATION = "olive", "counter"
COLUMNS = ("account", "amount", "approval", "expire", "paid_by", "sold_to_last", "street", "trans_id",
           "zip", "id", "created", "operator", "location")
INSERT = (f"INSERT INTO payments ({', '.join(COLUMNS)}, checksum) "
          f"VALUES ({', '.join('?' * (len(COLUMNS) + 1))})")


@dataclasses.dataclass(frozen=True)
class Payment:
    """The n-th payment of the years; the newest is some minutes old."""

    number: int
    moment: float

    @property
    def hundredths(self):
        """Its amount."""
        return 1 + self.number * 7919 % 499_999

    @property
    def transaction(self):
        """Its number at the processor."""
        return str(FIRST_TRANSACTION + self.number)

    @property
    def approval(self):
        """Six letters and digits."""
        return f"{self.number * 7919 % 2**24:06X}"

    @property
    def last_four(self):
        """Of the card."""
        return f"{self.number % 10_000:04}"

    def row(self, number):
        """The record with a number in the store, and its checksum."""
        created = time.strftime("%Y-%m-%dT%H:%M:%SZ", time.gmtime(self.moment))
        values = (f"************{self.last_four}", self.hundredths * 100, self.approval, "1229",
                  "Charge", "SMITH", f"{self.number} Harbor Road", self.transaction,
                  f"{self.number % 100_000:05}", number, created, OPERATOR, LOCATION)
        content = "".join(f"number {value}\n" if isinstance(value, int)
                          else f"text {len(value)} {value}\n" for value in values)
        return (*values, checksum(content))

    def line(self):
        """The line in the log."""
        told = time.strftime("%Y-%m-%d %H:%M:%S", time.localtime(self.moment))
        amount, key = f"{self.hundredths / 100:.2f}", f"[{self.number:020}]"
        line = (f"{told}  {'Olive Trent':20}  CHARGE   LIVE  {amount:>12}  ****{self.last_four}  "
                f"APPROVED  1/1/0    {self.approval}  {self.transaction}  {'-':10}  {key}  "
                "The transaction has been approved.")
        return f"{line}  #{checksum(line)}\r\n"


def checksum(text):
    """As it stands behind lines and in rows."""
    return f"{zlib.crc32(text.encode('ascii')):08x}"


def payments(count, now):
    """So many payments at equal distances up to now, the oldest first."""
    return [Payment(n, now - (count - n) * SECONDS / count - 600) for n in range(1, count + 1)]


def fill(store, log, count):
    """Adds the years' payments to a store, and writes their log."""
    taken = payments(count, time.time())
    with contextlib.closing(sqlite3.connect(store)) as database:
        last, = database.execute("SELECT coalesce(max(id), 0) FROM payments").fetchone()
        database.executemany(INSERT, (each.row(last + each.number) for each in taken))
        database.commit()
    with open(log, "w", encoding="ascii", newline="") as file:
        file.writelines(each.line() for each in taken)
