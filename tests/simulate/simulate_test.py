#!/usr/bin/env python3
"""The scenarios of docs/scenarios/, whole: each is played, and every line of what happens compared.

Usage: simulate_test.py VELMORIN_SIMULATE [--rewrite]

With --rewrite what happens now becomes what is expected, in golden/: read it line by line before it is kept.
"""

import collections
import json
import sys
import unittest
from pathlib import Path

import simulation

HERE = Path(__file__).resolve().parent
SCENARIOS = HERE.parents[1] / "docs" / "scenarios"

# How often each file is saved, counted by hand. A session file: at the start, with each list of what is hidden that
# grows, with each attempt and each return.
SAVES = {
    "pomodoro": {"active-session.json": 2 + 2 + 2, "thoughts.json": 1, "history.json": 1},
    "deep-crash": {"active-session.json": 2 + 1 + 1, "history.json": 1},
    "refused-browser": {"active-session.json": 3 + 2 + 2},
    "early-exit": {"active-session.json": 2, "history.json": 1},
}


def golden(name):
    return HERE / "golden" / (name + ".jsonl")


def played(name):
    """What happens in a scenario, as text."""
    done = simulation.run("", str(SCENARIOS / (name + ".jsonl")))
    if done.returncode or done.stderr:
        raise AssertionError("%s: status %d: %s" % (name, done.returncode, done.stderr))
    return done.stdout


class GoldenTest(unittest.TestCase):
    maxDiff = None

    def test_every_scenario_has_its_golden_output_and_its_count_of_saves(self):
        scenarios = sorted(path.stem for path in SCENARIOS.glob("*.jsonl"))
        self.assertEqual(scenarios, sorted(path.stem for path in (HERE / "golden").glob("*.jsonl")))
        self.assertEqual(scenarios, sorted(SAVES))

    def test_what_happens_is_what_is_expected(self):
        for name in SAVES:
            with self.subTest(name):
                self.assertMultiLineEqual(played(name), golden(name).read_text(encoding="utf-8"))

    def test_each_file_is_saved_as_often_as_it_must_be(self):
        for name, expected in SAVES.items():
            with self.subTest(name):
                events = [json.loads(line) for line in played(name).splitlines()]
                saves = collections.Counter(event["file"] for event in events if event["event"] == "save")
                self.assertEqual(dict(saves), expected)

    def test_the_same_input_gives_the_same_output_to_the_byte(self):
        for name in SAVES:
            with self.subTest(name):
                self.assertEqual(played(name), played(name))

    def test_every_scenario_is_told_of_in_the_readme(self):
        readme = (SCENARIOS / "README.md").read_text(encoding="utf-8")
        for name in SAVES:
            self.assertIn(name + ".jsonl", readme)


def rewrite():
    for name in SAVES:
        golden(name).parent.mkdir(exist_ok=True)
        golden(name).write_text(played(name), encoding="utf-8")
        print("wrote", golden(name))


if __name__ == "__main__":
    if sys.argv[2:] == ["--rewrite"]:
        simulation.program = sys.argv[1]
        rewrite()
    else:
        simulation.main()
