#!/usr/bin/env python3
"""Writes further lines to learn the name tagger from, made of labelled corpora and lists of names.

    tools/name-model/write-lines.py CORPUS OUTPUT [--root DIR]

CORPUS, DIR and the Debian packages are those of tools/build-name-lexicon.py. The same input gives the same lines. They
add what the corpora lack:

- lines as a screen shows them: several sentences in one, begun and ended in the midst of a sentence or name;
- names from all over the world, and names that are words, where the corpora have the few of their time;
- short messages, notes, forms and cells (templates/*.txt beside this script), with names and with what is none:
  towns, companies, products, words with capitals.
"""
import argparse
import collections
import importlib.util
import json
import pathlib
import random
import re

HERE = pathlib.Path(__file__).resolve().parent
SPEC = importlib.util.spec_from_file_location("lexicon", HERE.parent / "build-name-lexicon.py")
LEXICON = importlib.util.module_from_spec(SPEC)
SPEC.loader.exec_module(LEXICON)

TIMES_OF_TEMPLATE = 28
CELLS = 36000
RUNNING_TEXT = ("ewt-train", "ddt-train", "wikigold", "btc-train")
PARTICLES = {"van", "von", "de", "der", "den", "da", "di", "del", "della", "bin", "al", "la", "le", "du", "dos", "ní"}
PREFIXES = ("van", "van der", "von", "de", "de la", "da", "dos", "di", "Di", "De", "Ó", "Ní", "Nic", "Mac", "ap", "bin",
            "Ben", "El", "Abu", "af", "Le", "Van")


def utf16(text):
    return len(text.encode("utf-16-le")) // 2


def capitalised(name):
    def part(word):
        if word in PARTICLES and " " in name:
            return word
        word = word[:1].upper() + word[1:]
        for prefix in ("Mc", "O'", "O’", "D'"):
            if word.startswith(prefix) and len(word) > len(prefix) + 2:
                return prefix + word[len(prefix)].upper() + word[len(prefix) + 1:]
        return word
    return " ".join("-".join(part(half) for half in word.split("-")) for word in name.split(" "))


class Names:
    """Draws names; those of a person come from one country mostly."""

    def __init__(self, lists, faker, words, months, rand):
        """`words` by language."""
        self.random = rand
        ordinary = {*words["en"], *words["da"], *months}
        self.first, self.last = (self.by_country(lists / f"{part}.tsv", faker, part) for part in ("first", "last"))
        self.countries = sorted(country for country in self.first if len(self.first[country]) >= 15)
        self.with_last = [country for country in self.countries if len(self.last.get(country, ())) >= 15]
        everything = {name for names in self.first.values() for name in names}
        self.words = sorted(capitalised(name) for name in everything if name in ordinary)
        sources = collections.Counter(name for names in self.first.values() for name in names)
        self.usual_words = [name for name in self.words if sources[name.lower()] >= 3]
        self.word_surnames = sorted(capitalised(name) for names in self.last.values() for name in names
                                    if name in ordinary)

    @staticmethod
    def by_country(path, faker, part):
        countries = collections.defaultdict(set)
        for line in LEXICON.read_lines(path):
            name, _, sources = line.partition("\t")
            if not LEXICON.fold(name.replace("-", "").replace(" ", "")):
                continue
            for source in sources.split(","):
                kind, _, country = source.partition("-")
                countries[country[:2].lower() if kind == "faker" else source].add(name)
        for name, source in LEXICON.faker_names(faker, part):
            if len(name) > 1 and LEXICON.fold(name.replace("-", "")):
                countries[source.removeprefix("faker-")].add(name)
        return {country: sorted(names) for country, names in countries.items()}

    def country(self, needs_last=False):
        home = ("da", "da", "dacy-danish", "en", "en", "en")
        return self.random.choice(home if self.random.random() < 0.4 else
                                  self.with_last if needs_last else self.countries)

    def one_first(self):
        if self.random.random() < 0.16:
            return self.random.choice(self.usual_words if self.random.random() < 0.8 else self.words)
        name = capitalised(self.random.choice(self.first[self.country()]))
        if self.random.random() < 0.06 and "-" not in name:
            name += "-" + capitalised(self.random.choice(self.first[self.country()]))
        return name

    def one_last(self, country=None):
        if self.random.random() < 0.1:
            return self.random.choice(self.word_surnames)
        name = capitalised(self.random.choice(self.last[country or self.country(needs_last=True)]))
        if self.random.random() < 0.1 and "-" not in name:
            name += self.random.choice(("-", "-", " ")) + capitalised(
                self.random.choice(self.last[self.country(needs_last=True)]))
        if self.random.random() < 0.05:
            name = f"{self.random.choice(PREFIXES)} {name}"
        return name

    def full(self):
        country = self.country(needs_last=True)
        first = self.one_first() if self.random.random() < 0.3 else capitalised(self.random.choice(self.first[country]))
        last = self.one_last(country if self.random.random() < 0.8 else None)
        chance = self.random.random()
        middle = f" {self.random.choice('ABCDEFGHJKLMNPRSTVW')}." if chance < 0.08 else \
            f" {self.one_first()}" if chance < 0.14 else ""
        if chance > 0.95:
            return f"{first[0]}. {last}"
        if chance > 0.92:
            return f"{first} {last[0]}."
        return first + middle + " " + last

    def in_cell(self):
        """As a table or form has it, some with capitals for the last name."""
        chance = self.random.random()
        if chance < 0.2:
            return self.one_last() if chance < 0.12 else self.one_first()
        if chance < 0.36:
            last, first = self.one_last(), self.full().split(" ")[0] if chance < 0.24 else self.one_first()
            return f"{last.upper() if chance < 0.27 else last}, {first}"
        first, last = (self.full() if chance < 0.9 else f"{self.one_first()} {self.one_last()}").split(" ", 1)
        return f"{first} {last.upper()}" if chance < 0.39 else f"{first} {last}".upper() if chance < 0.43 else \
            f"{last}/{first}".upper() if chance < 0.445 else f"{first} {last}"


class Decoys:
    """Draws what is written like a name and is none."""

    def __init__(self, corpus, words, people, rand):
        """`words` by language; `people` are the names of the lists."""
        self.random = rand
        self.words = words
        self.interface = sorted({word for entry in LEXICON.running_text(corpus, "ui-strings")
                                 for word in re.findall(r"[^\W\d_]{2,}", entry["text"])})
        self.places, self.organisations = set(), set()
        for file in RUNNING_TEXT:
            for entry in LEXICON.running_text(corpus, file):
                units = entry["text"].encode("utf-16-le")
                for span in entry["spans"]:
                    text = units[2 * span["start"]:2 * (span["start"] + span["length"])].decode("utf-16-le")
                    if span["kind"] in ("place", "org") and len(text) > 2 and text[0].isupper() and len(text) < 30:
                        (self.places if span["kind"] == "place" else self.organisations).add(text)
        self.places = sorted(self.places | {town.title() for town in LEXICON.danish_towns(corpus)})
        self.organisations = sorted(self.organisations)
        self.people_places = [place for place in self.places if LEXICON.fold(place) in people]

    def word(self, lang="en"):
        if self.random.random() < 0.25:
            word = self.random.choice(self.interface)
            return word[:1].upper() + word[1:]
        return self.random.choice(self.words[lang]).capitalize()

    def abbreviation(self):
        """Kept short: IBAN, Qty, Stk, UTC, Nr."""
        if self.random.random() < 0.5:
            return "".join(self.random.choices("ABCDEFGHIKLMNOPRSTUVX", k=self.random.choice((2, 3, 3, 4, 4, 5))))
        word = re.sub("[aeiouyæøå]", "", self.word()[1:])
        return (self.word()[0] + word)[:self.random.choice((2, 3, 4))]

    def company(self):
        """Two words in one or side by side, or a made-up one: Brightloom, Paper Harbor, Zentiva."""
        chance = self.random.random()
        short = [self.word() for _ in range(12)]
        short = [word for word in short if len(word) <= 6] or short
        if chance < 0.3:
            return short[0] + short[-1].lower()
        if chance < 0.38:
            return short[0] + short[-1]
        if chance < 0.55:
            return short[0] + " " + short[-1]
        if chance < 0.7:
            return short[0][:self.random.choice((3, 4))] + self.random.choice(
                ("io", "ly", "ify", "ora", "iva", "exa", "ium", "ix", "eo", "ara", "ent", "onic", "via", "ax", "oo"))
        if chance < 0.85:
            return self.random.choice(self.organisations)
        return short[0] + " " + self.random.choice(("Inc", "Group", "Labs", "ApS", "Studio", "Health", "Capital", "AG",
                                                    "Logistics", "Cloud", "Pro", "Bank", "Foods", "Media", "A/S"))

    def thing(self, lang="en"):
        """A heading, menu item or title."""
        chance = self.random.random()
        if chance < 0.12:
            return self.abbreviation()
        words = [self.word(lang) for _ in range(self.random.choice((1, 1, 1, 2, 2, 2, 3)))]
        if len(words) > 1 and chance < (0.4 if lang == "en" else 0.97):
            words[1:] = [word.lower() for word in words[1:]]
        return " ".join(words)

    def place(self):
        return self.random.choice(self.people_places if self.random.random() < 0.2 else self.places)


class Line:
    """Text that grows, with the spans of the names in it."""

    def __init__(self):
        self.text = ""
        self.spans = []

    def add(self, text, is_name=False):
        if is_name:
            self.spans.append({"kind": "name", "start": utf16(self.text), "length": utf16(text)})
        self.text += text

    def entry(self, source, lang):
        return {"text": self.text, "spans": self.spans, "lang": lang, "source": source}


def tokens_of(entry):
    """(word with its leading blanks, number of the name it belongs to or None) in order."""
    text = entry["text"]
    units = text.encode("utf-16-le")
    cuts, names = {0, len(text)}, []
    for number, span in enumerate(entry["spans"]):
        if span["kind"] == "name":
            start = len(units[:2 * span["start"]].decode("utf-16-le"))
            end = len(units[:2 * (span["start"] + span["length"])].decode("utf-16-le"))
            cuts |= {start, end}
            names.append((start, end, number))
    cuts |= {match.start() for match in re.finditer(r"(?<=\S) ", text)}
    ordered = sorted(cuts)
    return [(text[start:end], next((number for first, last, number in names if first <= start < last), None))
            for start, end in zip(ordered, ordered[1:])]


def exchanged(tokens, names, lang, rand, firsts):
    """The tokens with other names, of as many words and in the same case."""
    result, at = [], 0
    while at < len(tokens):
        text, number = tokens[at]
        end = at + 1
        while number is not None and end < len(tokens) and tokens[end][1] == number:
            end += 1
        if number is None:
            result.append(tokens[at])
        else:
            whole = "".join(token for token, _ in tokens[at:end])
            lead = " " if whole.startswith(" ") else ""
            bare = whole.strip()
            count = len(bare.split())
            if count == 1:
                folded = LEXICON.fold(bare)
                owns = lang == "da" and folded.endswith("s") and folded[:-1] in firsts and folded not in firsts
                is_last = folded not in firsts and not owns
                other = names.one_last() if is_last and rand.random() < 0.7 else names.one_first()
                other += "s" if owns else ""
            else:
                other = names.full()
            other = other.lower() if bare.islower() else other.upper() if bare.isupper() and len(bare) > 3 else other
            for index, word in enumerate(other.split(" ")):
                result.append(((lead if index == 0 else " ") + word, number))
        at = end
    return result


def line_of(tokens):
    """Neighbouring words of one name become one span."""
    line = Line()
    previous = None
    for text, number in tokens:
        bare = text.lstrip() if not line.text else text
        blanks = bare[:len(bare) - len(bare.lstrip())]
        if number is not None and number == previous:
            line.text += bare
            line.spans[-1]["length"] += utf16(bare)
        else:
            line.add(blanks)
            line.add(bare[len(blanks):], number is not None)
        previous = number
    return line


def running_lines(corpus, names, rand, firsts):
    for file in RUNNING_TEXT:
        entries = LEXICON.running_text(corpus, file)
        at = 0
        while at < len(entries):
            # Up to four sentences flow together and are broken into lines of one width.
            count = rand.choice((1, 2, 3, 4))
            lang = entries[at].get("lang", "en")
            tokens = []
            for number, entry in enumerate(entries[at:at + count]):
                own = tokens_of(entry)
                if rand.random() < 0.7:
                    own = exchanged(own, names, lang, rand, firsts)
                if own and tokens:
                    own[0] = (" " + own[0][0], own[0][1])
                tokens += [(text, None if name is None else (number, name)) for text, name in own]
            at += count
            width = rand.randrange(22, 110)
            row, length = [], 0
            rows = []
            for token in tokens:
                if row and length + len(token[0]) > width and token[0].startswith(" "):
                    rows.append(row)
                    row, length = [], 0
                row.append(token)
                length += len(token[0])
            rows.append(row)
            for row in rows:
                has_name = any(number is not None for _, number in row)
                if has_name or rand.random() < 0.25:
                    yield line_of(row).entry("rewrapped", lang)


FIELD = re.compile(r"\{(\w+)\}")


def genitive(name, lang, rand):
    if lang == "en":
        return name, "s" if rand.random() < 0.06 else rand.choice(("'s", "’s", "'" if name.endswith("s") else "'s"))
    if name[-1] in "sxz":
        chance = rand.random()
        return (name, rand.choice(("'", "’"))) if chance < 0.4 else (name + "s" if chance < 0.7 else name, "")
    return name + "s", ""


def template_line(template, lang, names, decoys, rand):
    line = Line()
    at = 0
    for field in FIELD.finditer(template):
        line.add(template[at:field.start()])
        at = field.end()
        kind = field.group(1)
        if kind == "first":
            line.add(names.one_first(), True)
        elif kind == "last":
            line.add(names.one_last(), True)
        elif kind == "name":
            line.add(names.full() if rand.random() < 0.45 else names.one_first(), True)
        elif kind == "full":
            line.add(names.full(), True)
        elif kind == "reversed":
            line.add(f"{names.one_last()}, {names.one_first()}", True)
        elif kind == "owner":
            name, ending = genitive(names.one_first() if rand.random() < 0.75 else names.full(), lang, rand)
            line.add(name, True)
            line.add(ending)
        elif kind == "firmfull":
            line.add(names.full())
        elif kind == "firmlast":
            line.add(names.one_last())
        elif kind == "place":
            line.add(decoys.place())
        elif kind == "company":
            line.add(decoys.company())
        elif kind == "thing":
            line.add(decoys.thing(lang))
        elif kind == "word":
            line.add(decoys.word(lang))
        elif kind == "n":
            line.add(str(rand.choice((rand.randrange(1, 31), rand.randrange(32, 990), rand.randrange(1000, 9999)))))
        elif kind == "month":
            line.add(rand.choice(MONTHS[lang]))
        else:
            raise ValueError(f"{{{kind}}} in {template}")
    line.add(template[at:])
    return line


MONTHS = {"en": "January February March April May June July August September October November December".split(),
          "da": "januar februar marts april maj juni juli august september oktober november december".split()}


def template_lines(names, decoys, rand):
    for path in sorted((HERE / "templates").glob("*.txt")):
        lang = path.stem
        templates = [line for line in LEXICON.read_lines(path) if line and not line.startswith("#")]
        by_lead = [line for line in templates if re.search(r"[.!?]$", line)]
        for template in templates:
            for _ in range(TIMES_OF_TEMPLATE if FIELD.search(template) else 2):
                line = template_line(template, lang, names, decoys, rand)
                # Also behind or in front of another sentence, and cut off by the edge of its box.
                if template in by_lead and rand.random() < 0.4:
                    other = template_line(rand.choice(by_lead), lang, names, decoys, rand)
                    shift = utf16(line.text) + 1
                    line.text += " " + other.text
                    line.spans += [{**span, "start": span["start"] + shift} for span in other.spans]
                yield line.entry("templates", lang)


def cells(names, decoys, rand):
    """Names and other things alone in a cell, some as the last name first or behind a number."""
    for _ in range(CELLS):
        line = Line()
        lang = rand.choice(("en", "da"))
        if rand.random() < 0.1:
            line.add(f"{rand.randrange(1, 60)} ")
        chance = rand.random()
        if chance < 0.4:
            line.add(names.in_cell(), True)
        elif chance < 0.5:
            line.add(decoys.company())
        elif chance < 0.55:
            line.add(decoys.place())
        elif chance < 0.57:
            line.add(f"{decoys.place()}, {decoys.place()}")
        else:
            line.add(decoys.thing(lang))
        if rand.random() < 0.1:
            line.add(rand.choice((":", ",", ".", f" {rand.randrange(1, 999)}", " >", " *")))
        yield line.entry("cells", lang)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    LEXICON.add_sources(parser)
    parser.add_argument("output", type=pathlib.Path)
    arguments = parser.parse_args()
    scowl, danish, faker = (LEXICON.from_package(package, arguments.root)
                            for package in ("scowl", "wdanish", "python3-fake-factory"))

    rand = random.Random(1)
    english = {word for word, band in LEXICON.scowl_words(scowl) if band != "x" and word.islower()}
    words = {"en": sorted(english), "da": [word for word in LEXICON.read_lines(danish) if word.islower()]}
    months = {month.lower() for of_language in MONTHS.values() for month in of_language}
    names = Names(arguments.corpus / "names", faker, words, months, rand)
    firsts = {LEXICON.fold(name) for of_country in names.first.values() for name in of_country}
    surnames = {LEXICON.fold(name) for of_country in names.last.values() for name in of_country}
    decoys = Decoys(arguments.corpus,
                    {lang: [word for word in of_language if 2 < len(word) < 15 and LEXICON.fold(word) not in firsts
                            and LEXICON.fold(word) not in surnames] for lang, of_language in words.items()},
                    firsts | surnames, rand)
    with arguments.output.open("w", encoding="utf-8") as output:
        for entries in (running_lines(arguments.corpus, names, rand, firsts), template_lines(names, decoys, rand),
                        cells(names, decoys, rand)):
            for entry in entries:
                output.write(json.dumps(entry, ensure_ascii=False) + "\n")


if __name__ == "__main__":
    main()
