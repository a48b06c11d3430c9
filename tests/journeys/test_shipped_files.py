"""What is inside the shipped files: one file each, with the resources that Windows looks for."""

import re
import subprocess

import pytest

from harness.prefix import STAGE, TOP

FILES = ("Tollvane.exe", "zendacard.dll", "habitat.dll", "dcZenda32.exe", "Norrow_About.dll",
         "LogLens.exe")
# The help: pages, their look and their pictures.
PAGES = sorted(path.name for path in (TOP / "docs" / "help").iterdir())
OURS = re.compile(r"lib(gcc|stdc\+\+|winpthread|ssp)", re.IGNORECASE)


def wide(text):
    """A text as resources hold it."""
    return text.encode("utf-16-le")


def libraries(name):
    """The libraries that are loaded with a file."""
    shown = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", STAGE / name], text=True,
                           errors="replace", check=True, capture_output=True).stdout
    return re.findall(r"DLL Name: (\S+)", shown)


@pytest.mark.parametrize("name", FILES)
def test_a_file_needs_no_library_but_the_system_s(name):
    needed = libraries(name)
    assert "KERNEL32.dll" in needed
    assert [library for library in needed if OURS.match(library)] == []


def test_the_server_starts_without_the_libraries_of_its_window():
    needed = {library.lower() for library in libraries("dcZenda32.exe")}
    assert needed.isdisjoint({"comctl32.dll", "comdlg32.dll", "uxtheme.dll"})


@pytest.mark.parametrize("name", ("Tollvane.exe", "habitat.dll", "zendacard.dll", "dcZenda32.exe"))
def test_what_every_start_loads_is_without_the_library_s_streams_and_locales(name):
    # The name of a type that comes with them.
    assert b"NSt6locale5facetE" not in (STAGE / name).read_bytes()


def test_nothing_else_is_shipped():
    assert sorted(path.name for path in STAGE.iterdir()) == sorted([*FILES, *PAGES])


def test_the_program_carries_its_manifest():
    content = (STAGE / "Tollvane.exe").read_bytes()
    assert b"Microsoft.Windows.Common-Controls" in content
    assert b"PerMonitorV2" in content
    assert b"longPathAware" in content
    # It works in the code page of the system, whatever that is.
    assert b"activeCodePage" not in content


def test_the_program_carries_its_version_and_every_state():
    content = (STAGE / "Tollvane.exe").read_bytes()
    assert re.search(wide("ProductName") + rb"\0+" + wide("Tollvane"), content)
    states = re.findall(r'TOLLVANE_STRING\((\d+), "([^"]+)"\)',
                        (TOP / "app" / "resources" / "StateStrings.inc").read_text("ascii"))
    assert len(states) == 116
    for _, text in states:
        # An entry of a string table is its length and its characters.
        assert len(text).to_bytes(2, "little") + wide(text) in content, text
