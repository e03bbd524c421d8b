"""Compares what was found in pictures with what is in them.

All lengths are pixels with the origin at the top left; a box is (left, top, right, bottom)."""
from dataclasses import dataclass, field

# A letter is hidden when regions cover this share of its box, and a detail when this share of its letters is.
LETTER_SHARE = 0.6
DETAIL_SHARE = 0.95
ROUNDING = 1e-9


def box_of(rect):
    left, top, width, height = rect
    return left, top, left + width, top + height


def area_of(box):
    return max(0.0, box[2] - box[0]) * max(0.0, box[3] - box[1])


def region_box(rect, width, height):
    """A region as `veilshot detect` reports it: fractions of the picture, origin at the bottom left."""
    left, bottom, region_width, region_height = rect
    top = 1 - bottom - region_height
    return left * width, top * height, (left + region_width) * width, (top + region_height) * height


def covered_share(box, regions):
    """How much of the box lies below at least one region."""
    cut = [(max(box[0], r[0]), max(box[1], r[1]), min(box[2], r[2]), min(box[3], r[3])) for r in regions]
    cut = [r for r in cut if area_of(r) > 0]
    if not cut:
        return 0.0
    edges = sorted({edge for r in cut for edge in (r[1], r[3])})
    covered = 0.0
    for top, bottom in zip(edges, edges[1:]):
        reached = float("-inf")
        for left, right in sorted((r[0], r[2]) for r in cut if r[1] <= top and r[3] >= bottom):
            covered += max(0.0, right - max(left, reached)) * (bottom - top)
            reached = max(reached, right)
    return covered / area_of(box) if area_of(box) else 0.0


@dataclass
class Detail:
    """One detail that is to be hidden, and how far it is."""
    kind: str
    text: str  # with what leaks in brackets
    letters: int
    leaked: int

    @property
    def is_hidden(self):
        return self.letters - self.leaked >= DETAIL_SHARE * self.letters - ROUNDING


@dataclass
class Total:
    """Details together."""
    details: int = 0
    hidden: int = 0
    letters: int = 0
    leaked: int = 0

    def add(self, detail):
        self.details += 1
        self.hidden += detail.is_hidden
        self.letters += detail.letters
        self.leaked += detail.leaked

    @property
    def leak(self):
        return self.leaked / self.letters if self.letters else 0.0

    @property
    def recall(self):
        return self.hidden / self.details if self.details else 1.0


@dataclass
class PictureScore:
    name: str
    seconds: float
    megapixels: float
    details: list
    plain_area: float = 0.0
    hidden_plain_area: float = 0.0
    hidden_plain: list = field(default_factory=list)  # (share, text) of each run that is at least half hidden

    @property
    def leaked(self):
        return sum(detail.leaked for detail in self.details)


def letters_of_lines(span):
    """The text of each rectangle of a span: as listed, or shared out by their widths."""
    rects, text = span["rects"], span["text"]
    if len(span.get("lines", [])) == len(rects):
        return span["lines"]
    width = sum(rect[2] for rect in rects)
    ends, reached = [0], 0.0
    for rect in rects:
        reached += rect[2]
        ends.append(round(len(text) * reached / width))
    return [text[begin:end] for begin, end in zip(ends, ends[1:])]


def score_detail(span, regions):
    shown, letters, leaked = [], 0, 0
    for line, rect in zip(letters_of_lines(span), span["rects"]):
        left, top, right, bottom = box_of(rect)
        advance = (right - left) / max(1, len(line))
        marks = []
        for place, letter in enumerate(line):
            if letter.isspace():
                marks.append(marks[-1] if marks else False)
                continue
            box = (left + place * advance, top, left + (place + 1) * advance, bottom)
            leaks = covered_share(box, regions) < LETTER_SHARE - ROUNDING
            marks.append(leaks)
            letters += 1
            leaked += leaks
        text = ""
        for place, letter in enumerate(line):
            text += "[" if marks[place] and (place == 0 or not marks[place - 1]) else ""
            text += letter
            text += "]" if marks[place] and (place + 1 == len(line) or not marks[place + 1]) else ""
        shown.append(text)
    return Detail(span["kind"], " ".join(shown), letters, leaked)


def score_picture(name, truth, report):
    width, height = truth["width"], truth["height"]
    regions = [region_box(region["rect"], width, height) for region in report["regions"]]
    picture = PictureScore(name, report.get("seconds") or 0.0, width * height / 1e6,
                           [score_detail(span, regions) for span in truth["spans"] if span["must_hide"]])
    for index, rect in enumerate(truth["plain"]):
        box = box_of(rect)
        share = covered_share(box, regions)
        picture.plain_area += area_of(box)
        picture.hidden_plain_area += share * area_of(box)
        if share >= 0.5:
            picture.hidden_plain.append((share, truth["plain_text"][index]))
    return picture
