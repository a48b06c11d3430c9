"""Medians, 95th percentiles and ratios, and the report made of them."""

import dataclasses
import statistics


class Series:
    """What was measured again and again, by name."""

    def __init__(self):
        self._values = {}

    def note(self, name, values):
        """One round: a dictionary of figures of one thing."""
        for figure, value in values.items():
            self._values.setdefault((name, figure), []).append(value)

    def median(self, name, figure):
        """The middle one."""
        return statistics.median(self._values[name, figure])

    def late(self, name, figure):
        """The one that 95 of 100 do not exceed."""
        values = sorted(self._values[name, figure])
        return values[max(0, -(-95 * len(values) // 100) - 1)]

    def count(self, name, figure):
        """How often it was measured."""
        return len(self._values[name, figure])

    def shown(self, name, figure):
        """Median and 95th percentile."""
        return f"{self.median(name, figure):.4g} ({self.late(name, figure):.4g})"

    def ratio(self, one, other):
        """The ratio of two medians, each (name, figure)."""
        return self.median(*one) / self.median(*other)


@dataclasses.dataclass
class Target:
    """Something that shall not be above a limit."""

    what: str
    value: float
    limit: float
    unit: str = ""

    def row(self):
        """A row of the report."""
        verdict = "met" if self.value <= self.limit else "**missed**"
        return [self.what, f"{self.value:.3g}{self.unit}", f"{self.limit:g}{self.unit}", verdict]


def table(head, rows):
    """A table of texts."""
    lines = [head, ["---"] * len(head), *rows]
    return "\n".join("| " + " | ".join(line) + " |" for line in lines)
