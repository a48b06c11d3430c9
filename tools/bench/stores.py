"""Work at the books of a shop with few payments and of one with many, by turns."""

import os
import shutil

import programs
import sale
import watch
import years
from screen import until

FEW, MANY = 1_000, 1_000_000
LOOK_UPS = 200
STORE, LOG = "hostdata.db", "ZENDACARD.LOG"


class Stores:
    """The shop's books in two sizes."""

    def __init__(self, shop):
        self._shop = shop
        self._books = {STORE: shop.store_folder, LOG: shop.charge_folder}
        self._till = shop.till_run()
        self._printed = watch.FolderWatch(shop.printers.printed)
        self._ledger = watch.FolderWatch(shop.charge_folder)
        for size in (FEW, MANY):
            store, log = (self._kept(book, size) for book in self._books)
            shutil.copy(shop.store_folder / STORE, store)
            years.fill(store, log, size)
        os.sync()  # what was filled would be written with the first payment's flush

    def once(self, size):
        """A start, a payment, its receipt, looking payments up, and the end."""
        for book, folder in self._books.items():
            os.replace(self._kept(book, size), folder / book)
        start, form = self._till.open()
        clerk = sale.Clerk(self._shop, form)
        clerk.fill()
        pressed, shown, box = clerk.submit()
        answered = self._answered(pressed)
        sale.dismiss(self._shop.screen, box)
        result = {"sign-in window": start.keys, "form": start.form_keys,
                  "payment": (shown - pressed) * 1000, "commit": (shown - answered) * 1000,
                  "search": self._search(size), "reprint": self._reprint()}
        self._till.close(form)
        for book, folder in self._books.items():
            os.replace(folder / book, self._kept(book, size))
        return result

    def _answered(self, since):
        """When the processor had answered: from here to the box is what the program needs to log and
        store the payment and to tell of it."""
        moments, _ = until("the processor's answer", lambda: self._ledger.moments(
            sale.LEDGER, watch.WRITTEN, since))
        return max(moments)

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

    def _kept(self, book, size):
        return self._books[book] / f"{size}-{book}"
