"""The form at the resolutions that shops have: nothing cut off, nothing on top of another."""

import itertools

import pytest

from harness.counter import Counter
from harness.display import Display
from harness.prefix import Prefix
from harness.till import Till

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


@pytest.mark.parametrize("dpi", [96, 144, 192])
def test_the_form_fits_at_every_resolution(dpi, pictures):
    with Display(size=f"{1280 * dpi // 96}x{800 * dpi // 96}", dpi=dpi) as display:
        prefix = Prefix.installed(pictures / "prefix", display)
        prefix.run("reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels",
                   "/t", "REG_DWORD", "/d", str(dpi), "/f")
        prefix.stop()
        till = Till(prefix, display, pictures)
        try:
            counter = Counter(till, keep=till.picture)
            form = counter.start()
            till.picture("form")
            check_layout(form, dpi)
            counter.fill_charge("1042.50", "42.50")
            till.picture("filled")
            counter.set_test_mode(False)
        finally:
            till.close()
            prefix.remove()


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
