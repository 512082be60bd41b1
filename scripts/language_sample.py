#!/usr/bin/env python3
"""Writes docs/language-sample.md: sentences and texts drawn at random, in the three languages side by side.

Usage: language_sample.py DRIVER >docs/language-sample.md
"""

import json
import random
import subprocess
import sys

LANGUAGES = ["en", "de", "fa"]
CATEGORIES = ["urge", "returning", "rest", "exit", "finish"]


def ask(driver, requests):
    lines = "".join(json.dumps(request) + "\n" for request in requests)
    done = subprocess.run([driver], input=lines.encode(), stdout=subprocess.PIPE, check=True)
    return [json.loads(line)["value"] for line in done.stdout.decode().split("\n") if line]


def table(head, rows):
    print("| %s | English | Deutsch | فارسی |\n|---|---|---|---|" % head)
    for name, texts in rows:
        print("| %s | %s |" % (name, " | ".join(text.replace("|", "\\|") for text in texts)))
    print()


def sentences(driver):
    for category in CATEGORIES:
        lists = ask(driver, [{"op": "QuoteCategory.sentences", "category": category, "language": language}
                             for language in LANGUAGES])
        for index, texts in enumerate(zip(*lists)):
            yield "%s %d" % (category, index), texts


def fields(driver):
    all_texts = ask(driver, [{"op": "AppStrings.all", "language": language} for language in LANGUAGES])
    for name in all_texts[0]:
        yield "`%s`" % name, [texts[name] for texts in all_texts]


def main():
    sys.stdout.reconfigure(encoding="utf-8")
    driver = sys.argv[1]
    draw = random.Random(1404)
    print("# A sample of the words\n")
    print("Forty sentences and forty texts, drawn at random by `scripts/language_sample.py`.\n")
    table("moment", sorted(draw.sample(list(sentences(driver)), 40)))
    table("field", draw.sample(list(fields(driver)), 40))


if __name__ == "__main__":
    main()
