"""The help pages beside the program: whole, small, and true to themselves."""

import html.parser

import pytest

from harness.prefix import TOP

HELP = TOP / "docs" / "help"
MOST_BYTES = 400_000


class Page(html.parser.HTMLParser):
    """What a page links to, and what can be linked to in it."""

    VOID = {"meta", "link", "img", "br"}

    def __init__(self, name):
        super().__init__()
        self.links, self.anchors, self.texts, self._open = [], [], [], []
        self.feed((HELP / name).read_text(encoding="utf-8"))
        self.close()
        assert not self._open, self._open

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        self.links += [attributes[kind] for kind in ("href", "src") if kind in attributes]
        self.anchors += [attributes["id"]] if "id" in attributes else []
        self.texts += [attributes.get("alt", "")] if tag == "img" else []
        if tag not in self.VOID:
            self._open.append(tag)

    def handle_endtag(self, tag):
        assert self._open and self._open.pop() == tag, (tag, self.getpos())


PAGES = ("ENTRYUI.htm", "zendacard.htm")


@pytest.mark.parametrize("name", PAGES)
def test_every_link_leads_somewhere(name):
    page = Page(name)
    for link in page.links:
        file, _, anchor = link.partition("#")
        assert not file or (HELP / file).is_file(), link
        if anchor:
            assert anchor in Page(file or name).anchors, link
    assert len(set(page.anchors)) == len(page.anchors)


@pytest.mark.parametrize("name", PAGES)
def test_every_picture_has_a_text_for_those_who_do_not_see_it(name):
    assert all(Page(name).texts)


def test_every_picture_is_used():
    used = set(Page("ENTRYUI.htm").links)
    assert {path.name for path in HELP.glob("*.png")} <= used


def test_the_pages_are_small():
    assert sum(path.stat().st_size for path in HELP.iterdir()) < MOST_BYTES


def test_the_pages_have_a_form_for_paper():
    assert "@media print" in (HELP / "help.css").read_text(encoding="ascii")
