"""The form at the resolutions that shops have: nothing cut off, nothing on top of another."""

import contextlib
import itertools

import pytest

from harness.counter import Counter
from harness.display import Display
from harness.prefix import Prefix
from harness.till import Till
from harness.waiting import until

# Seconds; the system shows a tip when the mouse has rested for half a second.
LONGER_THAN_A_TIP_TAKES = 0.7
TEXT_KINDS = ("Static", "Button")


def overlap(one, other):
    """True when two rectangles share a point."""
    return (one[0] < other[2] and other[0] < one[2] and one[1] < other[3] and other[1] < one[3])


def inside(inner, outer):
    """True when a rectangle lies within another."""
    return (inner[0] >= outer[0] and inner[1] >= outer[1]
            and inner[2] <= outer[2] and inner[3] <= outer[3])


def is_frame(control):
    """Group boxes surround other controls."""
    return control.kind == "Button" and control.style & 0xF == 7


@contextlib.contextmanager
def till_at(dpi, pictures):
    """A till whose display has that resolution."""
    with Display(size=f"{1280 * dpi // 96}x{800 * dpi // 96}", dpi=dpi) as display:
        prefix = Prefix.installed(pictures / "prefix", display)
        prefix.run("reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels",
                   "/t", "REG_DWORD", "/d", str(dpi), "/f")
        prefix.stop()
        till = Till(prefix, display, pictures)
        try:
            yield till
        finally:
            till.close()
            prefix.remove()


@pytest.mark.parametrize("dpi", [96, 144, 192])
def test_the_form_fits_at_every_resolution(dpi, pictures):
    with till_at(dpi, pictures) as till:
        counter = Counter(till, keep=till.picture)
        form = counter.start()
        till.picture("form")
        check_layout(form, dpi)
        counter.fill_charge("1042.50", "42.50")
        till.picture("filled")
        counter.set_test_mode(False)


@pytest.mark.parametrize("dpi", [96, 192])
def test_the_settings_dialogs_move_and_grow_with_their_windows(dpi, pictures):
    with till_at(dpi, pictures) as till:
        Counter(till).start()
        for title, *keys in (("Company Information", "c"), ("Program Options", "o", "m")):
            name = title.replace(" ", "-").lower()
            dialog = till.open_by_menu(title, *keys)
            smallest = check_dialog(dialog)
            till.picture(name)
            if title == "Company Information":
                till.choose("cboState", "FM", dialog)
                check_dialog(dialog)
                till.picture("state-name")
            resize(till, dialog, 1.5)
            check_dialog(till.window(title))
            check_followed(smallest, till.window(title))
            till.picture(name + "-large")
            resize(till, dialog, 0.5)
            assert check_dialog(till.window(title)) == smallest
            till.picture(name + "-smallest")
            till.display.press("Escape")


def test_a_control_explains_itself_under_the_mouse(till, counter):
    form = counter.start()
    # The approval code is disabled: the form itself gets the mouse there.
    for name, tip in (("cmdSubmit", "Send the transaction to the card processor"),
                      ("txtCardNumber", "Swipe the card or key its number, digits only"),
                      ("cboBillToState", "State of the billing address"),
                      ("txtAuthNum", "The 6 characters of a telephone authorization; "
                                     "an approval is shown here")):
        until(f"the tip of {name}", Hover(till, form.control(name).centre, tip),
              interval=LONGER_THAN_A_TIP_TAKES, otherwise=till.tool_tip)


class Hover:
    """A hand that moves the mouse a little over a place, rests, and looks whether its tip shows."""

    def __init__(self, till, place, tip):
        self._till, (self._left, self._top), self._tip = till, place, tip
        self._moves = itertools.cycle((0, 2))

    def __call__(self):
        if self._till.tool_tip() == self._tip:
            return True
        self._till.display.run("xdotool", "mousemove", str(self._left + next(self._moves)),
                               str(self._top))
        return False


def resize(till, dialog, factor):
    """Asks the window manager for another size of a dialog, and waits for the dialog to have it."""
    left, top, right, bottom = till.window(dialog.text).rect
    till.display.run("xdotool", "windowsize", str(dialog.xid), str(int((right - left) * factor)),
                     str(int((bottom - top) * factor)))
    until("another size", lambda: till.window(dialog.text).rect != [left, top, right, bottom])


def places(dialog):
    """Where the visible controls stand in their window."""
    left, top = dialog.rect[:2]
    return {c.name: [c.rect[0] - left, c.rect[1] - top, c.rect[2] - left, c.rect[3] - top]
            for c in dialog.controls() if c.visible and c.name != "lblStateName"}


def check_dialog(dialog):
    """Every control lies in its window, and none on another; tells where they stand."""
    shown = [c for c in dialog.controls() if c.visible and c.parent == dialog.hwnd]
    for control in shown:
        assert inside(control.rect, dialog.rect), (control.name, control.rect, dialog.rect)
    for one, other in itertools.combinations([c for c in shown if not is_frame(c)], 2):
        assert not overlap(one.rect, other.rect), (one.name, other.name)
    return places(dialog)


def check_followed(before, dialog):
    """The buttons went with the lower right corner; boxes that can grow took the width."""
    after = places(dialog)
    for name, place in before.items():
        if name.startswith("cmd"):
            assert after[name][0] > place[0] and after[name][1] > place[1], name
        elif name in ("txtCompanyName", "txtCompanyPhone", "Frame1"):
            assert after[name][2] > place[2] and after[name][0] == place[0], name


def check_layout(form, dpi):
    """Every visible control lies in the window, and only frames and labels' boxes overlap."""
    shown = [c for c in form.controls() if c.visible and c.parent == form.hwnd]
    assert len(shown) > 30
    for control in shown:
        assert inside(control.rect, form.rect), (control.name, control.rect, form.rect)
    boxes = [c for c in shown if not is_frame(c)]
    for one, other in itertools.combinations(boxes, 2):
        assert not overlap(one.rect, other.rect), (one.name, other.name)
    height = next(c.rect[3] - c.rect[1] for c in shown if c.name == "txtCardNumber")
    assert abs(height * 96 / dpi - 23) < 3, height
