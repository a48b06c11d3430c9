"""What each journey gets: a fresh display, a fresh Windows with the program installed, a till."""

import os
import pathlib
import random
import sys

import pytest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

from harness.counter import Counter
from harness.display import Display
from harness.prefix import Prefix, TOP
from harness.printers import PrintServer
from harness.till import Till

KEPT = TOP / "build" / "journeys"


@pytest.fixture
def pictures(request):
    """The folder where this journey keeps its pictures; what an earlier run left is removed."""
    folder = KEPT / request.node.name.replace("[", "-").replace("]", "")
    for old in folder.glob("*.png"):
        old.unlink()
    return folder


@pytest.fixture
def display():
    """A display of the journey's own."""
    with Display() as made:
        yield made


@pytest.fixture
def prefix(display, pictures):
    """A Windows in which nobody has started the program yet. What the journey leaves in it is
    searched for the cards that are used at the till."""
    made = Prefix.installed(pictures / "prefix", display)
    yield made
    made.remove()


@pytest.fixture
def printers(prefix, pictures):
    """A print server without a queue; what runs in the prefix from now on prints there."""
    with PrintServer(pictures / "print-server") as made:
        prefix.print_server = made.address
        # Documents, spool files and logs.
        prefix.outside.append(pictures / "print-server")
        yield made


@pytest.fixture
def till(prefix, display, pictures, request):
    """The installed program, not started yet. A journey that fails keeps a last picture."""
    made = Till(prefix, display, pictures)
    yield made
    if getattr(request.node, "failed", False):
        made.picture("failed")
    made.close()


@pytest.fixture
def counter(till):
    """The steps of the staff, with a picture of every state."""
    return Counter(till, keep=till.picture)


@pytest.fixture
def open_counter(counter):
    """The same with the program already started, an operator signed in and test mode off."""
    counter.start()
    counter.set_test_mode(False)
    return counter


def pytest_collection_modifyitems(items):
    """Plays the journeys in a random order when TOLLVANE_ORDER is its seed."""
    order = os.environ.get("TOLLVANE_ORDER")
    if order:
        random.Random(int(order)).shuffle(items)


@pytest.hookimpl(hookwrapper=True)
def pytest_runtest_makereport(item):
    """Lets the fixtures know how the journey ended."""
    outcome = yield
    if outcome.get_result().failed:
        item.failed = True
