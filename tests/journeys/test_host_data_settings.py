"""The host data server's own settings dialog, asked for by a client of another process."""

import sqlite3
import subprocess

import pytest

from harness.prefix import TOP

TITLE = "Host Data Settings"
CLIENT = TOP / "tests" / "journeys" / "harness" / "configure_host_data.vbs"
STORE = "drive_c/ProgramData/Norrow Programs/Host Data/hostdata.db"


class Settings:
    """The dialog in front, and the client that waits for it to close."""

    def __init__(self, till):
        self.till = till
        self._client = till.prefix.start("cscript.exe", "//nologo",
                                         "Z:" + str(CLIENT).replace("/", "\\"),
                                         stdout=subprocess.PIPE, text=True)
        self.window = till.window(TITLE)

    def text(self, name):
        """What one control of the dialog says."""
        return self.till.control(name, self.window).text

    def message(self, key, picture):
        """Presses a key and returns the text of the message that it brings, closed again."""
        self.till.display.press(key)
        return self.answer(picture)

    def answer(self, picture):
        """Waits for a message over the dialog, closes it and returns its text."""
        box = self.till.wait("a message", self._box, otherwise=self.till.titles)
        self.till.picture(picture)
        text = box.message()
        self.till.display.press("Return")
        self.till.wait("the message to close", lambda: not self._box())
        self.till.window(TITLE)
        return text

    def _box(self):
        return next((w for w in self.till.windows() if w.text == TITLE and w.foreground
                     and w.hwnd != self.window.hwnd and self.till.display.types_into(w.xid)), None)

    def close(self):
        """Leaves by Escape and returns what the client printed."""
        self.till.display.press("Escape")
        return self._client.communicate(timeout=30)[0].strip()


@pytest.fixture
def shop(prefix):
    """A store with one operator."""
    prefix.run("cscript.exe", "//nologo", "Z:" + str(CLIENT).replace("/", "\\"), "operator")
    return prefix


def test_the_store_is_shown_checked_and_backed_up_by_keyboard(shop, till):
    settings = Settings(till)
    assert settings.text("txtFile").endswith(r"Host Data\hostdata.db")
    assert settings.text("lblOperators") == "1"
    assert settings.text("lblPayments") == "0"
    till.picture("settings")
    assert settings.message("alt+c", "sound").startswith("The host data file is sound.")
    till.display.press("alt+b")
    till.window("Back Up Host Data")
    till.picture("where-to")
    till.display.type("C:\\copy.db")
    till.display.press("Return")
    assert settings.answer("copied") == "The copy was made and checked:\n\nC:\\copy.db"
    assert settings.close() == "closed"
    with sqlite3.connect(shop.folder / "drive_c" / "copy.db") as copy:
        assert copy.execute("SELECT user_name FROM operators").fetchall() == [("anna",)]


def test_a_damaged_store_is_told_and_not_copied(shop, till):
    (shop.folder / STORE).write_bytes(b"x" * 20000)
    settings = Settings(till)
    assert settings.text("lblPayments").startswith("Not readable")
    assert settings.message("alt+c", "damaged").startswith("The host data file is damaged.")
    till.display.press("alt+b")
    till.window("Back Up Host Data")
    till.display.type("C:\\copy.db")
    till.display.press("Return")
    assert "damaged" in settings.answer("not-copied")
    assert settings.close() == "closed"
    assert not (shop.folder / "drive_c" / "copy.db").exists()


def test_a_shop_without_a_store_is_told_so(prefix, till):
    settings = Settings(till)
    assert settings.text("lblSize") == "The file is not there yet."
    assert settings.message("alt+c", "no-store").startswith("There is no host data file yet.")
    assert settings.close() == "closed"
    assert not (prefix.folder / STORE).exists()


def test_the_form_waits_for_the_settings_of_another_process(till, counter):
    form = counter.start()
    till.display.press("alt+p")
    till.await_menu()
    till.display.press("z")
    dialog = till.window(TITLE)
    till.picture("over-the-form")
    assert dialog["owner"] == form.hwnd
    assert dialog["pid"] != form["pid"]
    assert not next(w for w in till.windows() if w.hwnd == form.hwnd).enabled
    till.display.press("Escape")
    assert till.form().enabled
