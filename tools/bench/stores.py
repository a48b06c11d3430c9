"""Work at a store with few payments and at one with many, by turns."""

import contextlib
import os
import shutil
import sqlite3

import programs
import sale
import watch
from screen import until

FEW, MANY = 1_000, 1_000_000
LOOK_UPS = 200
LOG = "ZENDACARD.LOG"
FILL = """
WITH RECURSIVE number(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM number WHERE n < ?)
INSERT INTO payments (created, operator, location, account, amount, approval, expire, paid_by,
                      sold_to_last, street, trans_id, zip)
SELECT strftime('%Y-%m-%dT%H:%M:%SZ', 1600000000 + 90 * n, 'unixepoch'), 'olive', 'counter',
       '************' || printf('%04d', n % 10000), 100 * (n * 7919 % 500000),
       printf('%06X', n * 7919 % 16777216), '1229', 'Charge', 'SMITH', n || ' Harbor Road',
       1000000000 + n, printf('%05d', n % 100000)
FROM number
"""


class Stores:
    """The shop's store in two sizes."""

    def __init__(self, shop):
        self._shop, self._place = shop, shop.store_folder / "hostdata.db"
        self._till = shop.till_run()
        self._printed = watch.FolderWatch(shop.printers.printed)
        self._books = watch.FolderWatch(shop.store_folder)
        for size in (FEW, MANY):
            shutil.copy(self._place, self._kept(size))
            with contextlib.closing(sqlite3.connect(self._kept(size))) as store:
                store.execute(FILL, (size,))
                store.commit()

    def once(self, size):
        """A start, a payment, its receipt, looking payments up, and the end."""
        os.replace(self._kept(size), self._place)
        # It tells of payments in the other store, which the sign-in would miss here.
        (self._shop.charge_folder / LOG).unlink(missing_ok=True)
        start, form = self._till.open()
        clerk = sale.Clerk(self._shop, form)
        clerk.fill()
        pressed, _, box = clerk.submit()
        commit = self._commit(pressed)
        sale.dismiss(self._shop.screen, box)
        result = {"sign-in window": start.keys, "form": start.form_keys, "commit": commit,
                  "search": self._search(size), "reprint": self._reprint()}
        self._till.close(form)
        os.replace(self._place, self._kept(size))
        return result

    def _commit(self, since):
        """From the first to the last change of the store's journal (ms)."""
        moments, _ = until("the stored payment", lambda: self._books.moments(
            sale.STORE_JOURNAL, watch.CHANGED, since))
        return (max(moments) - min(moments)) * 1000

    def _search(self, size):
        """One payment looked up by its number, through the host data server (ms)."""
        script = "Z:" + str(programs.BENCH / "search.vbs").replace("/", "\\")
        return int(self._shop.prefix.run("cscript.exe", "//nologo", script, str(LOOK_UPS),
                                         str(size))) / 1000

    def _reprint(self):
        """From the key to the document at the printer (ms)."""
        self._shop.screen.press("r", "Alt_L")
        self._shop.eyes.await_menu()
        begun = self._shop.screen.press("r")
        moments, _ = until("the document", lambda: self._printed.moments(
            None, watch.WRITTEN, begun))
        return (min(moments) - begun) * 1000

    def _kept(self, size):
        return self._shop.store_folder / f"{size}.db"
