"""Takes the pictures of the operator's guide from the installed program, anew.

Usage: help_pictures.py. Needs what ./run has staged; writes docs/help/ENTRYUI-*.png.
"""

import pathlib
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from harness.counter import APPROVED, Counter, MANAGER
from harness.display import Display
from harness.prefix import Prefix, TOP
from harness.till import Till
from harness.waiting import until

PAGES = TOP / "docs" / "help"
COLOURS = "64"
SHOP = {"Name": "Harbor Furniture", "Street": "12 Harbor Road", "City": "Springfield",
        "State": "IL", "Zip": "62701", "Phone": "(217) 555-0142"}


class Photographer:
    """Cuts windows out of the display."""

    def __init__(self, till, folder):
        self.till = till
        self._folder = folder

    def take(self, name, *titles):
        """Keeps the part of the display that the windows of those titles cover."""
        whole = self._folder / f"{name}.png"
        self.till.display.run("xdotool", "mousemove", "2", "2")
        self.till.display.picture_at_rest(whole)
        rects = [self._frame(w) for w in self.till.windows() if w.text in titles
                 or any(t.endswith("*") and w.text.startswith(t[:-1]) for t in titles)]
        left, top = min(r[0] for r in rects), min(r[1] for r in rects)
        width, height = max(r[2] for r in rects) - left, max(r[3] for r in rects) - top
        subprocess.run(["convert", str(whole), "-crop", f"{width}x{height}+{left}+{top}", "+repage",
                        "-strip", "+dither", "-colors", COLOURS, "-define", "png:compression-level=9",
                        str(PAGES / f"ENTRYUI-{name}.png")], check=True)


    @staticmethod
    def _frame(window):
        """What shows of a window: the display's own frame is a little smaller than it says."""
        left, top, right, bottom = window.rect
        return left + 3, top + (3 if window["owner"] == 0 and not window.is_message_box else 7), right - 3, bottom - 3


FORM = "Credit Card*"
FAILED = "Authorization Failed"


def menu(till, *keys):
    """Opens a menu and its submenus."""
    for count, key in enumerate(keys, start=1):
        till.display.press(key)
        until(f"{count} open menus", lambda wanted=count: wanted == sum(
            w["class"] == "#32768" for w in till.windows()), otherwise=till.titles)


def close_menus(till):
    """Closes whatever menu is open."""
    until("no open menu", lambda: all(w["class"] != "#32768" for w in till.windows())
          or till.display.press("Escape"), interval=0.2)


def start(till, camera):
    """The first start, with the shop's name already stored."""
    for name, value in SHOP.items():
        till.prefix.run("reg", "add", r"HKLM\Software\Norrow Programs\Tollvane\Company Information",
                        "/v", name, "/t", "REG_SZ", "/d", value, "/f")
    counter = Counter(till)
    till.start()
    till.window("First Operator")
    counter.keep = lambda name: name == "first-operator" and camera.take(name, "First Operator")
    counter.enter_first_operator(MANAGER)
    counter.keep = lambda name: None
    till.form()
    return counter


def take_charge(till, camera, counter):
    """A charge from the empty form to the approval."""
    camera.take("form", FORM)
    menu(till, "alt+p")
    camera.take("program", FORM)
    close_menus(till)
    counter.set_test_mode(False)
    counter.fill_charge("86.40", "6.40", description="Dining table")
    camera.take("filled", FORM)
    till.push("cmdSubmit", till.form())
    till.window(APPROVED)
    camera.take("approved", APPROVED)
    till.answer(APPROVED, "OK")
    number = till.text("txtTransactionNumber")
    counter.select("Refund")
    counter.fill_reference("20.00", number, "8881")  # another card
    camera.take("refund", FORM)
    till.push("cmdSubmit", till.form())
    till.window(FAILED)
    camera.take("failed", FAILED)
    till.answer(FAILED, "OK")


def take_dialogs(till, camera):
    """What the menus open."""
    for name, title, keys in (("company", "Company Information", ("alt+p", "c")),
                              ("options", "Program Options", ("alt+p", "o", "m")),
                              ("host-data", "Host Data Settings", ("alt+p", "z")),
                              ("about", "About Tollvane", ("alt+h", "a"))):
        menu(till, *keys[:-1])
        till.display.press(keys[-1])
        till.window(title)
        camera.take(name, title)
        till.display.press("Escape")
        till.form()
    menu(till, "alt+p", "v")
    till.display.press("t")
    log = until("the log viewer",
                lambda: next((w for w in till.windows() if w.text.endswith("LogLens")), None))
    until("its lines", lambda: "line" in "".join(till.control("sbrState", log)["parts"]))
    till.display.run("xdotool", "windowsize", "--sync", str(log.xid), "940", "420")
    camera.take("log", log.text)


def main():
    """Plays, and replaces the pictures."""
    with tempfile.TemporaryDirectory() as folder, Display() as display:
        prefix = Prefix.installed(TOP / "build" / "journeys" / "help-pictures", display)
        till = Till(prefix, display, folder)
        camera = Photographer(till, pathlib.Path(folder))
        try:
            counter = start(till, camera)
            take_charge(till, camera, counter)
            take_dialogs(till, camera)
        finally:
            till.close()
            prefix.remove()


if __name__ == "__main__":
    main()
