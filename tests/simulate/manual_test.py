#!/usr/bin/env python3
"""The manual page: in good form, complete, and of one mind with --help and with what the program does.

Usage: manual_test.py VELMORIN_SIMULATE
"""

import re
import shutil
import subprocess
import unittest
from pathlib import Path

import simulation
from events_test import KEYS, OVERLAYS

PAGE = Path(__file__).resolve().parents[2] / "docs" / "man" / "velmorin-simulate.1"

SETUP = ["now", "timeZone", "language", "settings", "files", "self", "front", "applications", "installed", "onlyBlock",
         "exitWaitOverride", "autoReturnFromWarnings", "watchdogArguments", "launch", "pid", "bundleID", "name",
         "policy", "hidden", "quits"]
STEPS = ["start", "advance", "sleep", "setClock", "launch", "activate", "unhide", "quit", "front", "browser",
         "returnToWork", "beginEmergencyExit", "cancelEmergencyExit", "confirmEmergencyExit", "dismiss", "addThought",
         "setThoughts", "settings", "clearHistory", "restoreHistory", "crash", "relaunch", "powerOff", "askToQuit",
         "disk", "pair", "unpair", "relay", "phone", "show"]


def page():
    return PAGE.read_text(encoding="utf-8")


def plain():
    """The page's words without its macros: the quotes between fonts and the escapes of hyphens and quotes."""
    return page().replace("\\-", "-").replace("\\(dq", '"')


class ManualTest(unittest.TestCase):
    def lint(self, *command):
        if not shutil.which(command[0]):
            self.skipTest(command[0] + " is not here")
        done = subprocess.run([*command, str(PAGE)], capture_output=True, encoding="utf-8", check=False)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def test_groff_finds_nothing_wrong(self):
        self.lint("groff", "-man", "-ww", "-z")

    def test_mandoc_finds_nothing_wrong(self):
        # The style of a page for both readers differs in small things, such as the form of the date.
        self.lint("mandoc", "-Tlint", "-Wwarning")

    def test_every_member_of_the_first_line_every_step_and_every_event_is_told_of(self):
        words = set(re.findall(r"[A-Za-z]+", plain()))
        told = [*SETUP, *STEPS, *KEYS, *OVERLAYS, *(key for keys in KEYS.values() for key in keys)]
        self.assertEqual([word for word in told if word not in words], [])

    def test_every_step_of_the_page_is_one(self):
        steps = re.findall(r'"do":"(\w+)"', plain())
        self.assertEqual(sorted(set(steps)), sorted(STEPS))
        for step in STEPS:
            done = simulation.run(simulation.text_of({"setup": {}}, {"do": step}))
            self.assertNotIn("no step", done.stderr)

    def test_the_page_and_the_help_know_the_same_options(self):
        options = r"(?<![\w-])--[a-z]+"
        self.assertEqual(set(re.findall(options, plain())), set(re.findall(options, simulation.run("", "--help").stdout)))

    def test_the_example_works(self):
        example = re.search(r"<<'END'\n(.*?)\nEND\n", page(), re.DOTALL).group(1)
        done = simulation.run(example)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn('"event":"state"', done.stdout.splitlines()[-1])


if __name__ == "__main__":
    simulation.main()
