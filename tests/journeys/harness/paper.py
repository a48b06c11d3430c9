"""What is on a printed sheet: words with their places, rows, and the picture of the page."""

import dataclasses
import html
import re
import subprocess

WORD = re.compile(r'<word xMin="([-\d.]+)" yMin="([-\d.]+)" xMax="([-\d.]+)" yMax="([-\d.]+)">'
                  r"(.*?)</word>")
PAGE = re.compile(r'<page width="([\d.]+)" height="([\d.]+)">')
# Words of one row stand at the same height, but for rounding (points).
SAME_ROW = 1.5


@dataclasses.dataclass(frozen=True)
class Word:
    """A word and its box on the page, in points from the upper left corner."""

    text: str
    left: float
    top: float
    right: float
    bottom: float

    def overlaps(self, other):
        """True when the letters would touch; boxes of two lines may share the space between."""
        between = 1
        return (self.left < other.right and other.left < self.right
                and self.top < other.bottom - between and other.top < self.bottom - between)


@dataclasses.dataclass(frozen=True)
class Row:
    """The words that stand on one line."""

    words: tuple

    @property
    def text(self):
        """The words, parted by one blank."""
        return " ".join(word.text for word in self.words)

    @property
    def top(self):
        """Height of the row on the page."""
        return self.words[0].top

    @property
    def left(self):
        """Where the row begins."""
        return self.words[0].left

    @property
    def middle(self):
        """Half way between begin and end."""
        return (self.words[0].left + self.words[-1].right) / 2

    def start_of(self, text):
        """Where the word stands that begins that part of the row."""
        return next(word.left for word in self.words if word.text == text.split()[0])


class Sheet:
    """The only page of a document."""

    def __init__(self, document):
        self.document = document
        shown = run("pdftotext", "-bbox", document, "-")
        pages = PAGE.findall(shown)
        assert len(pages) == 1, f"{document} has {len(pages)} pages"
        self.width, self.height = map(float, pages[0])
        # The driver's name for the hyphen reads as a soft one.
        self.words = [Word(html.unescape(text).replace("\u00ad", "-"), *map(float, place))
                      for *place, text in WORD.findall(shown)]

    def rows(self):
        """The rows from the top of the page to its bottom."""
        rows = []
        for word in sorted(self.words, key=lambda word: (word.top, word.left)):
            if rows and abs(rows[-1][0].top - word.top) < SAME_ROW:
                rows[-1].append(word)
            else:
                rows.append([word])
        return [Row(tuple(sorted(row, key=lambda word: word.left))) for row in rows]

    def halves(self):
        """The rows above and below the middle of the page."""
        rows = self.rows()
        middle = self.height / 2
        return ([row for row in rows if row.top < middle],
                [row for row in rows if row.top >= middle])

    def outside(self):
        """The words that do not stand on the page with their whole box."""
        return [word for word in self.words if word.left < -0.01 or word.top < 0
                or word.right > self.width or word.bottom > self.height]

    def overlapping(self):
        """Pairs of words that touch."""
        return [(one, other) for place, one in enumerate(self.words)
                for other in self.words[place + 1:] if one.overlaps(other)]

    def picture(self, path, dots=96):
        """Keeps the page as a PNG, `dots` to the inch."""
        run("pdftoppm", "-png", "-singlefile", "-r", str(dots), self.document,
            path.with_suffix(""))
        return path

    def ink(self, dots=72):
        """The rows of the page's picture, each with the share of its pixels that are dark."""
        answer = subprocess.run(["pdftoppm", "-gray", "-singlefile", "-r", str(dots),
                                 str(self.document)], check=True, capture_output=True).stdout
        size = re.match(rb"P5\s+(\d+)\s+(\d+)\s+255\s", answer)
        wide, high = map(int, size.groups())
        pixels = answer[size.end():]
        return [sum(pixel < 200 for pixel in pixels[row * wide:(row + 1) * wide]) / wide
                for row in range(high)]


def run(*command):
    """What a tool prints."""
    return subprocess.run([str(word) for word in command], check=True, text=True, timeout=60,
                          capture_output=True).stdout
