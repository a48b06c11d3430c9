#!/usr/bin/python3
"""Measures the program beside a bare window, a Swing form and a page, in one interleaved run.

TOLLVANE_RUNS is the number of rounds (30)."""

import dataclasses
import os
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
import figures
import ringlib
import sale
import shop as shops
import stores
import years
from figures import Target

RUNS = int(os.environ.get("TOLLVANE_RUNS", "30"))
STARTS = ("paint", "keys", "memory", "helpers_memory", "processor", "helpers_processor")
SIZES = ("sign-in window", "form", "payment", "commit", "search", "reprint")


def measure_starts(shop, series):
    """Rounds of starts, each program once a round; the first round only finds the fields."""
    runs = shop.programs()
    for number in range(RUNS + 1):
        for run in runs:
            start = run.once()
            if number:
                series.note(run.name, dataclasses.asdict(start))
        print(f"-- starts, round {number} of {RUNS}", flush=True)


def measure_sales(shop, series):
    """Swipes into the form and into the bare window by turns, then payments."""
    run, floor = shop.till_run(), shop.floor()
    _, form = run.open()
    place = shop.eyes.form().control("txtCardName").centre
    plain = floor.start()
    window, middle = shop.beside(form)
    for _ in range(RUNS):
        own, helpers = sale.swipe_cost(shop, run.program, form, place)
        series.note("tollvane", {"swipe": own, "swipe_helpers": helpers})
        own, helpers = sale.swipe_cost(shop, floor, window, middle, clear=True)
        series.note("floor", {"swipe": own, "swipe_helpers": helpers,
                              "box": sale.bare_box(shop.screen, [form, window])})
    shop.screen.close(window)
    plain.wait(30)
    print("-- swipes", flush=True)
    submissions = sale.Submissions(shop, form)
    for number in range(RUNS + 1):
        values = submissions.once()
        if number:
            series.note("payment", values)
    flushes = submissions.flushes(run.program)
    run.close(form)
    print("-- payments", flush=True)
    return flushes


def measure_stores(shop, series):
    """The same work at two sizes of the store, by turns; the first round is not counted."""
    sized = stores.Stores(shop)
    for number in range(RUNS + 1):
        for size in (stores.FEW, stores.MANY):
            values = sized.once(size)
            if number:
                series.note(size, values)
        print(f"-- stores, round {number} of {RUNS}", flush=True)


def total(series):
    """The whole start: to the sign-in window that takes keys, and from its key to the form."""
    return series.median("tollvane", "keys") + series.median("tollvane", "form_keys")


def targets(series):
    """What is asked for, and what there is."""
    ratio = series.ratio
    executable = (ringlib.BUILD / "stage" / "Tollvane.exe").stat().st_size / 2**20
    found = [Target(f"start to {text} against {other}",
                    ratio(("tollvane", figure), (other, figure)), limit)
             for figure, text in (("paint", "first paint"), ("keys", "a window that takes keys"))
             for other, limit in (("floor", 2.0), ("swing", 0.6))]
    found += [Target(f"start and sign-in to a form that takes keys against {other}",
                     total(series) / series.median(other, "keys"), limit)
              for other, limit in (("floor", 2.0), ("swing", 0.6))]
    found += [Target(f"private memory against {other}",
                     ratio(("tollvane", "memory"), (other, "memory")), limit)
              for other, limit in (("floor", 2.0), ("swing", 0.2))]
    found += [Target("size of Tollvane.exe", executable, 1.5, " MB"),
              Target("processor time of a swipe against floor",
                     ratio(("tollvane", "swipe"), ("floor", "swipe")), 1.0),
              Target("the box \"Approved\" after the processor's answer",
                     series.median("payment", "box beyond"), 5.0, " ms")]
    found += [Target(f"{figure} at {stores.MANY:,} payments against {stores.FEW:,}",
                     ratio((stores.MANY, figure), (stores.FEW, figure)), 1.5) for figure in SIZES]
    return found


def report(series, flushes):
    """The text of the report."""
    names = ("tollvane", "floor", "swing", "chromium")
    rows = [[name, *(series.shown(name, figure) for figure in STARTS)] for name in names]
    sizes = [[figure, *(series.shown(size, figure) for size in (stores.FEW, stores.MANY))]
             for figure in SIZES]
    payment = [[figure, series.shown("payment", figure)]
               for figure in ("answer", "stored beyond", "box beyond", "box")]
    swipes = [[name, series.shown(name, "swipe"), series.shown(name, "swipe_helpers")]
              for name in names[:2]]
    form = [series.shown("tollvane", figure) for figure in ("form_paint", "form_keys")]
    return "\n\n".join([
        "# How fast it is",
        f"Medians and (95th percentiles) of {RUNS} interleaved rounds. "
        "Times in ms, memory in MB that is shared with nobody. `helpers` are the Wine server and "
        "Wine's own processes, which run before the program starts.",
        figures.table(["", *STARTS], rows),
        "`paint` and `keys` of the program are those of its sign-in window. From the key that "
        f"signs in, the form is painted after {form[0]} and takes keys after {form[1]}; the "
        "letters of name and password are not counted.",
        figures.table(["a swipe", "processor", "of helpers"], swipes),
        figures.table(["a payment", "ms"], payment),
        "From a key in the bare window to the system's box that it shows: "
        f"{series.shown('floor', 'box')}.",
        "Flushes of one payment: " + ", ".join(
            f"{name} {count}" for name, count in sorted(flushes.items())) +
        f"; {sum(flushes.values())} in all.",
        f"The same work in a shop that has taken few payments in {years.YEARS} years up to now, and in "
        "one that has taken many; the log tells them all, and the sign-in compares the last week's. "
        "`payment` is from the key that submits to the box, `commit` from the processor's answer.",
        figures.table(["payments in the store", f"{stores.FEW:,}", f"{stores.MANY:,}"], sizes),
        figures.table(["target", "measured", "at most", ""],
                      [target.row() for target in targets(series)]),
    ]) + "\n"


def main():
    """Measures, reports."""
    ringlib.stage()
    ringlib.build("x64", "bench_floor")
    series = figures.Series()
    with shops.Shop() as shop:
        measure_starts(shop, series)
        flushes = measure_sales(shop, series)
        measure_stores(shop, series)
    text = report(series, flushes)
    (shops.FOLDER / "report.md").write_text(text, encoding="utf-8")
    print(text)


if __name__ == "__main__":
    main()
