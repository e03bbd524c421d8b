#!/usr/bin/env python3
"""Learns how names are spelt and how Danish words are: VeilshotCore/Analysis/NameTagging/Data/NameSpelling.bin.

    tools/name-model/learn-spelling.py CORPUS [--root DIR]

CORPUS, DIR and the Debian packages are those of tools/build-name-lexicon.py; it takes scowl and wdanish. The file is a
table of signed bytes: what each group of two to five letters, found by its hash, speaks for a name, in steps of 1/32.
NameSpelling.cpp hashes the same way. Logistic regression over a hundred thousand words drawn at random; the same input
gives the same table. No word can be read from it.
"""
import argparse
import array
import importlib.util
import math
import pathlib
import random

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
OUTPUT = ROOT / "VeilshotCore/Analysis/NameTagging/Data/NameSpelling.bin"
LEXICON_MODULE = importlib.util.spec_from_file_location("lexicon", ROOT / "tools/build-name-lexicon.py")
lexicon = importlib.util.module_from_spec(LEXICON_MODULE)
LEXICON_MODULE.loader.exec_module(lexicon)

BITS = 15
STEPS = 32
ROUNDS = 4
RATE = 0.15
NAME_WEIGHT = 1.5
SHORTEST, LONGEST_WORD, WORDS, TESTED = 3, 12, 110000, 2000


def groups_of(word):
    """The places of its groups of letters in the table."""
    text = "^" + word + "$"
    places = set()
    for length in range(2, 6):
        for start in range(len(text) - length + 1):
            value = 2166136261
            for letter in text[start:start + length].encode():
                value = ((value ^ letter) * 16777619) & 0xffffffff
            places.add((value * 2654435769 & 0xffffffff) >> (32 - BITS))
    return sorted(places)


def learn(names, words):
    samples = [(groups_of(word), 1) for word in names] + [(groups_of(word), 0) for word in words]
    weights, steepness = [0.0] * (1 << BITS), [1e-6] * (1 << BITS)
    for _ in range(ROUNDS):
        random.shuffle(samples)
        for places, is_name in samples:
            score = sum(weights[place] for place in places)
            error = 1 / (1 + math.exp(-max(-30.0, min(30.0, score)))) - is_name
            error *= NAME_WEIGHT if is_name else 1
            if abs(error) < 0.02:
                continue
            for place in places:
                slope = error + 1e-4 * weights[place]
                steepness[place] += slope * slope
                weights[place] -= RATE * slope / math.sqrt(steepness[place])
    return [max(-127, min(127, round(weight * STEPS))) for weight in weights]


def share_of_names(table, words):
    return sum(sum(table[place] for place in groups_of(word)) > 0 for word in words) / len(words)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    lexicon.add_sources(parser)
    arguments = parser.parse_args()
    scowl, wdanish = (lexicon.from_package(package, arguments.root) for package in ("scowl", "wdanish"))

    names = {key for file in ("first.tsv", "last.tsv")
             for line in lexicon.read_lines(arguments.corpus / "names" / file)
             for key in lexicon.keys(line.partition("\t")[0])}
    english = {lexicon.fold(word) for word, _ in lexicon.scowl_words(scowl)}
    danish = {lexicon.fold(word) for word in lexicon.read_lines(wdanish) if word.islower()}
    samples = sorted(name for name in names - english - danish if len(name) >= SHORTEST)
    words = sorted(word for word in danish - names - english if SHORTEST <= len(word) <= LONGEST_WORD)
    random.seed(1)
    random.shuffle(samples)
    random.shuffle(words)
    table = learn(samples[TESTED:], words[TESTED:TESTED + WORDS])
    print(f"taken for names: {share_of_names(table, samples[:TESTED]):.1%} of {TESTED} names set aside, "
          f"{share_of_names(table, words[:TESTED]):.1%} of as many words")
    OUTPUT.write_bytes(array.array("b", table).tobytes())


if __name__ == "__main__":
    main()
