#!/usr/bin/env python3
"""A session among windows that come, go, become active and change their names: what its process holds on to stays the
same.

Usage: leak_test.py --programs DIR [--seconds S] [TEST...]
"""

import argparse
import sys
import time
import unittest
from pathlib import Path

from desktop import Desktop, wait_until
from figures import figures_of, names_of_threads
from session import Lock, Windows, profile

OPTIONS = argparse.Namespace(programs=None, seconds=14.0)

ALLOWED = ["allowed", "helper"]
WARM_UP = 8.0  # seconds
MEMORY = 256  # kilobytes by which the written memory may be above that after the warm-up, however long it takes


class LeakTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.windows = Windows(self.desktop)
        self.lock = Lock(self.desktop, OPTIONS.programs)

    def show(self, name, *options, **settings):
        process = self.desktop.start(
            OPTIONS.programs + "/velmorin-test-window", "--class", name, "--title", name, *options, **settings)
        wait_until(lambda: self.windows.of(process.pid))
        return process

    def resources(self):
        """What the X server keeps for the session, by kind."""
        lines = self.desktop.run(OPTIONS.programs + "/velmorin-x-resources", self.lock.process.pid).splitlines()
        return {line.rsplit(" ", 1)[0]: int(line.rsplit(" ", 1)[1]) for line in lines}

    def test_a_session_among_busy_windows_does_not_grow(self):
        allowed = self.windows.of(self.show("allowed").pid)[0]
        game = self.windows.of(self.show("game", "--windows", "3").pid)
        self.shifty = self.show("helper", stdin=-1, text=True, bufsize=1)
        self.lock.start(profile(ALLOWED))
        self.lock.await_event("began")
        wait_until(lambda: self.windows.are_iconic(game))
        started = time.monotonic()
        rounds = 0
        while time.monotonic() < started + WARM_UP:
            self.one_round(rounds, allowed, game)
            rounds += 1
        before, resources = figures_of(self.lock.process.pid), self.resources()
        print(f"\nafter {rounds} rounds: {before}, {sum(resources.values())} X resources", flush=True)
        end = time.monotonic() + OPTIONS.seconds
        highest = before.anonymous
        while time.monotonic() < end:
            self.one_round(rounds, allowed, game)
            rounds += 1
            highest = max(highest, figures_of(self.lock.process.pid).anonymous)
        after = figures_of(self.lock.process.pid)
        print(f"after {rounds} rounds: {after}, {sum(self.resources().values())} X resources", flush=True)
        self.assertEqual(self.resources(), resources)
        self.assertEqual(after.descriptors, before.descriptors)
        self.assertLessEqual(after.threads, before.threads, names_of_threads(self.lock.process.pid))
        # Under the address sanitizer what was freed is kept for a while.
        if "libasan" not in Path(f"/proc/{self.lock.process.pid}/maps").read_text():
            self.assertLess(highest, before.anonymous + MEMORY)
        self.assertGreater(self.lock.stored()["attempts"], 0)

    def one_round(self, number, allowed, game):
        """A forbidden program that is sent away, another that stays hidden until it ends, an allowed one, a forbidden
        window that comes to the front, and other names for windows."""
        late = self.show_briefly("late")
        stubborn = self.show_briefly("stubborn", "--ignore-closing", "--behind", "--windows", "2")
        helper = self.show("helper", "--windows", "2")
        wait_until(lambda: late.poll() is not None)
        self.windows.activate(game[number % len(game)])
        wait_until(lambda: self.windows.are_iconic(game))
        self.desktop.run("xdotool", "set_window", "--name", f"title {number}", allowed)
        self.shifty.stdin.write(("class helper\n", "class allowed\n")[number % 2])
        self.windows.activate(allowed)
        for process in (helper, stubborn):
            self.desktop.stop(process)
        wait_until(lambda: not self.windows.of(helper.pid) + self.windows.of(stubborn.pid))

    def show_briefly(self, name, *options):
        """It may be gone before anybody has seen it."""
        return self.desktop.start(OPTIONS.programs + "/velmorin-test-window", "--class", name, *options)


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("--programs", required=True)
    parser.add_argument("--seconds", type=float, default=14.0)
    _, rest = parser.parse_known_args(namespace=OPTIONS)
    OPTIONS.programs = str(Path(OPTIONS.programs).resolve())
    unittest.main(argv=[sys.argv[0], *rest], verbosity=2)


if __name__ == "__main__":
    main()
