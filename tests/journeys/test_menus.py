"""Every menu and every item of it, by keyboard alone."""

import pytest

from harness.counter import FAILED, Counter
from harness.display import Display
from harness.prefix import Prefix
from harness.till import Till
from harness.waiting import until

START_ERROR = "Application Start Error"
NO_ABOUT = "Unable to Display About"
DATA_PATH = "Zenda Data Path & Location"


class Menus:
    """A hand on the keyboard that opens menus."""

    def __init__(self, till):
        self.till = till

    def menus(self):
        """The menus that are open, the latest on top."""
        return [w for w in self.till.windows() if w["class"] == "#32768"]

    def open(self, *keys):
        """Opens a menu of the bar and the submenus on the way; returns how many are open."""
        self.till.form()
        for count, key in enumerate(keys, start=1):
            self.till.display.press(key)
            until(f"{count} open menus", lambda wanted=count: len(self.menus()) == wanted,
                  otherwise=self.till.titles)

    def close(self):
        """Closes whatever is open."""
        until("no open menu",
              lambda: not self.menus() or self.till.display.press("Escape"), interval=0.2)

    def show(self, picture, *keys):
        """Keeps a picture of an open menu."""
        self.open(*keys)
        self.till.picture(picture)
        self.close()

    def choose(self, *keys):
        """Opens the menus on the way and presses the access key of an item."""
        self.open(*keys[:-1])
        self.till.display.press(keys[-1])


@pytest.fixture
def menus(till):
    """The hand, with the program at work."""
    return Menus(till)


@pytest.mark.parametrize("dpi", [96, 192])
def test_every_menu_opens_by_its_access_keys(dpi, pictures):
    with Display(size=f"{1280 * dpi // 96}x{800 * dpi // 96}", dpi=dpi) as display:
        prefix = Prefix.installed(pictures / "prefix", display)
        prefix.run("reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels",
                   "/t", "REG_DWORD", "/d", str(dpi), "/f")
        prefix.stop()
        till = Till(prefix, display, pictures)
        try:
            Counter(till).start()
            menus = Menus(till)
            menus.show("program", "alt+p")
            menus.show("history", "alt+p", "v")
            menus.show("options", "alt+p", "o")
            menus.show("auto-format", "alt+p", "o", "a")
            menus.show("print", "alt+r")
            menus.show("help", "alt+h")
            menus.show("pop-up", "alt+f")
            assert till.form().text.startswith("Credit Card")
        finally:
            till.close()
            prefix.remove()


def test_options_are_switched_by_keyboard_and_shown_by_check_marks(till, menus, counter, prefix):
    counter.start()
    for key, stored in (("p", "0x3"), ("n", "0x0"), ("u", "0x2")):
        menus.choose("alt+p", "o", "a", key)
        until("the stored format",
              lambda wanted=stored: prefix.value(r"\Options", "FormatType") == wanted)
    menus.show("upper-case", "alt+p", "o", "a")
    till.enter("txtDescription", "two chairs", till.form())
    until("capitals", lambda: till.text("txtDescription") == "TWO CHAIRS")
    menus.choose("alt+p", "o", "a", "l")
    until("the stored format", lambda: prefix.value(r"\Options", "FormatType") == "0x1")
    menus.choose("alt+p", "o", "d")
    until("the stored switch",
          lambda: prefix.value(r"\Options", "DefaultInvoiceNumbers") == "0x0")
    menus.show("no-invoice-numbers", "alt+p", "o")


def test_boxes_of_the_help_menu(till, menus, counter, prefix):
    prefix.run("reg", "delete", r"HKLM\Software\Classes\Norrow_About.clsAbout", "/f", check=False)
    (prefix.program_folder / "ENTRYUI.htm").unlink(missing_ok=True)
    counter.start()
    menus.choose("alt+h", "d")
    lines = till.answer(DATA_PATH, picture="data-path").split("\n")
    assert lines[0].startswith("\tData path:\tC:\\"), lines
    assert lines[1].startswith("\tLocation:\t"), lines
    menus.choose("alt+h", "a")
    assert till.answer(NO_ABOUT, picture="no-about") == (
        "There was an error displaying Tollvane information.\n\n"
        "Error 429, Unable to create About class.")
    menus.choose("alt+h", "c")
    assert till.answer(START_ERROR, picture="no-page") == (
        "Error launching Help.\n\nError = 2. File was not found.")


def test_without_log_and_viewer_the_history_menu_does_nothing(till, menus, counter, prefix):
    (prefix.program_folder / "LogLens.exe").unlink()
    counter.start()
    for log in (prefix.folder / "drive_c").rglob("ZENDACARD.LOG"):
        log.unlink()
    menus.show("history", "alt+p", "v")
    for key in ("t", "p", "w"):
        menus.choose("alt+p", "v", key)
        menus.close()
    assert len(till.windows()) == 1, till.titles()


def test_dialogs_of_the_menus_open_by_keyboard(till, menus, counter):
    counter.start()
    for title, picture, keys in (("Company Information", "company", ("alt+p", "c")),
                                 ("Program Options", "more-options", ("alt+p", "o", "m")),
                                 ("Gateway Setup", "gateway", ("alt+f", "g")),
                                 ("Charge Component Settings", "gateway-settings", ("alt+f", "s"))):
        menus.choose(*keys)
        till.window(title)
        till.picture(picture)
        till.display.press("Escape")
        till.form()
    menus.choose("alt+p", "x")
    till.wait("the program to end", lambda: not till.windows())


def test_a_log_that_no_program_prints_is_told(till, menus, counter, prefix):
    prefix.run("reg", "delete", r"HKLM\Software\Classes\.log", "/f", check=False)
    counter.start()
    for keys, name in ((("alt+p", "v", "p"), "Print"), (("alt+p", "v", "w"), "Open")):
        menus.choose(*keys)
        assert till.answer(START_ERROR, picture=name.lower()) == (
            f"Error launching {name}.\n\nError = 31. There is no association for the specified file"
            " type or if there is no association for the specified action within the file type.")


def test_the_log_opens_in_the_program_that_shows_texts(till, menus, counter, prefix):
    prefix.run("reg", "add", r"HKLM\Software\Classes\.log", "/ve", "/d", "txtfile", "/f")
    counter.start()
    menus.choose("alt+p", "v", "w")
    until("the opened log", lambda: any("ZENDACARD" in title for title in till.titles()),
          otherwise=till.titles)
    till.picture("log")


def test_the_help_opens_in_the_program_that_shows_pages(till, menus, counter, prefix):
    show_pages_with_the_editor(prefix)
    counter.start()
    menus.choose("alt+h", "c")
    until("the page", lambda: "ENTRYUI.htm - Notepad" in till.titles(), otherwise=till.titles)
    till.picture("page")


def test_the_help_of_a_refusal_goes_to_its_own_paragraph(till, open_counter, prefix):
    show_pages_with_the_editor(prefix)
    open_counter.fill_charge("7002.27")
    till.push("cmdSubmit", till.form())
    refusal = till.window(FAILED)
    till.push("Help", refusal)
    # The editor looks for a file of the name that a browser takes for an address.
    asked = till.window("ERROR")
    till.picture("asked-for")
    assert "file:///C:/Program%20Files/Norrow%20Programs/Tollvane/zendacard.htm#227" in asked.message()
    till.display.press("Escape")
    till.window(FAILED)
    till.answer(FAILED, "OK")
    till.form()


def show_pages_with_the_editor(prefix):
    """Makes the editor the program of pages: it tells what it was asked for."""
    prefix.run("reg", "add", r"HKLM\Software\Classes\.htm", "/ve", "/d", "txtfile", "/f")


def test_the_outside_programs_of_the_menus_open_by_keyboard(till, menus, counter):
    counter.start()
    for title, picture, keys in (("About Tollvane", "about", ("alt+h", "a")),
                                 ("Host Data Settings", "data-settings", ("alt+p", "z"))):
        menus.choose(*keys)
        till.window(title)
        till.picture(picture)
        till.display.press("Escape")
        till.form()
    menus.choose("alt+p", "v", "t")
    till.window("ZENDACARD.LOG - LogLens")
    till.picture("browser")
    till.display.press("alt+F4")
    till.form()
