"""The About component, asked by an Automation client."""

import subprocess

import pytest

from harness.counter import Counter
from harness.display import Display
from harness.prefix import Prefix, TOP
from harness.till import Till

CLIENT = "Z:" + str(TOP / "tests/journeys/harness/show_about.vbs").replace("/", "\\")
TITLE = "About Tollvane"


def ask(till, with_components, owner=0):
    """Starts the client; the box and the client's process."""
    client = till.prefix.start("cscript.exe", "//nologo", CLIENT, str(with_components), str(owner),
                               stdout=subprocess.PIPE, text=True)
    return till.window(TITLE), client


@pytest.mark.parametrize("dpi", [96, 192])
def test_the_box_tells_product_and_versions_at_every_resolution(dpi, pictures):
    with Display(size=f"{800 * dpi // 96}x{600 * dpi // 96}", dpi=dpi) as display:
        prefix = Prefix.installed(pictures / "prefix", display)
        prefix.run("reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels",
                   "/t", "REG_DWORD", "/d", str(dpi), "/f")
        prefix.stop()
        till = Till(prefix, display, pictures)
        try:
            box, client = ask(till, True)
            till.picture("about")
            assert till.control("lblName", box).text == "Tollvane"
            assert till.control("lblVersion", box).text == "Version 1.0.0"
            # The program itself stands above the list; every other binary is in it.
            binaries = [f for f in prefix.program_folder.iterdir() if f.suffix in (".exe", ".dll")]
            assert till.control("lstComponents", box)["count"] == len(binaries) - 1
            display.press("Escape")
            assert client.communicate(timeout=30)[0].strip() == "closed"
        finally:
            till.close()
            prefix.remove()


def test_the_owner_waits_for_the_box(till):
    counter = Counter(till)
    form = counter.start()
    box, client = ask(till, True, form.hwnd)
    till.picture("over-the-form")
    assert box["owner"] == form.hwnd
    assert not next(w for w in till.windows() if w.hwnd == form.hwnd).enabled
    till.display.press("Return")
    assert client.communicate(timeout=30)[0].strip() == "closed"
    assert till.form().enabled


def test_the_short_box_names_the_product_only(till):
    box, client = ask(till, False)
    till.picture("short")
    assert box.control("lstComponents") is None
    assert till.control("lblName", box).text == "Tollvane"
    till.display.press("Return")
    assert client.communicate(timeout=30)[0].strip() == "closed"
