#!/usr/bin/env python3
"""A session whose process is killed again and again at random moments: it is back and locks within seconds, and nothing
that it has counted is lost.

Usage: kill_test.py --programs DIR [--count N] [--seed N] [TEST...]
"""

import argparse
import os
import random
import signal
import statistics
import sys
import time
import unittest
from pathlib import Path

from desktop import Desktop, wait_until
from session import Lock, Windows, profile
from user_manager import Unavailable, UserManager

OPTIONS = argparse.Namespace(programs=None, count=8, seed=None)

ALLOWED, GAME, OTHER = "allowed", "game", "other"
SKIPPED = 77  # the status of a test that could not be made here
LONGEST = 4.0  # seconds until it is back and locks
COUNTED = ["attempts", "returns", "hiddenBundleIDs"]


class KillTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.windows = Windows(self.desktop)
        self.lock = Lock(self.desktop, OPTIONS.programs)
        self.manager = None
        seed = OPTIONS.seed if OPTIONS.seed is not None else random.SystemRandom().randrange(1 << 32)
        print(f"seed {seed}", flush=True)
        self.random = random.Random(seed)

    def show(self, name):
        process = self.desktop.start(
            OPTIONS.programs + "/velmorin-test-window", "--class", name, "--title", name)
        return wait_until(lambda: self.windows.of(process.pid))[0]

    # --- The two that guard -------------------------------------------------------------------------------------

    def test_guarded_by_the_service_manager_of_the_user(self):
        self.manager = UserManager(self.desktop)
        try:
            self.enterContext(self.manager)
        except Unavailable as obstacle:
            self.skipTest(str(obstacle))
        self.addCleanup(self.end_everything)
        self.assertEqual(self.manager.variables() & {"DISPLAY", "XAUTHORITY", "DBUS_SESSION_BUS_ADDRESS"}, set())
        self.begin()
        self.assertIn("com.kestrava.velmorin.watchdog.timer", self.manager.units("velmorin"))
        self.assertEqual(self.lock.keepers(), [])
        self.kill_again_and_again()
        self.end_and_look_for_leftovers()

    def test_guarded_by_the_keeper_where_nobody_else_does(self):
        self.addCleanup(self.end_everything)
        self.begin()
        self.assertEqual(len(self.lock.keepers()), 1)
        self.kill_again_and_again()
        self.end_and_look_for_leftovers()

    # --- The session --------------------------------------------------------------------------------------------

    def begin(self):
        self.allowed, self.game, self.other = map(self.show, [ALLOWED, GAME, OTHER])
        self.lock.start(profile([ALLOWED]))
        self.lock.await_event("began")
        wait_until(lambda: self.is_hidden(self.game) and self.is_hidden(self.other))

    def make_attempt(self):
        """Brings a forbidden window to the front and waits for the session to count that, and the way back."""
        before = self.lock.stored()
        self.windows.activate(self.game)
        wait_until(lambda: self.lock.stored()["returns"] == before["returns"] + 1)
        self.assertEqual(self.lock.stored()["attempts"], before["attempts"] + 1)
        self.assertTrue(self.is_hidden(self.game))

    def kill_again_and_again(self):
        back, locking = [], []
        for number in range(OPTIONS.count):
            if number % 10 == min(1, OPTIONS.count - 1):
                # What is counted goes on from what was taken up. Each such pause is longer than the one before.
                time.sleep(3.2)  # the first seconds count no attempt
                self.make_attempt()
            else:
                time.sleep(self.random.uniform(0, 3))
            times = self.kill()
            back.append(times[0])
            locking.append(times[1])
        name = "systemd" if self.manager else "keeper"
        for what, seconds in (("back", back), ("locking", locking)):
            print(f"{name}: {what} after {statistics.median(seconds):.2f} s (median), {max(seconds):.2f} s (longest) "
                  f"of {len(seconds)}", flush=True)
        self.assertGreaterEqual(self.lock.log().count("session resumed"), OPTIONS.count)

    def kill(self):
        """Kills it, and gives the seconds until there is a new one and until that one locks."""
        before = self.lock.stored()
        self.assertEqual(sorted(before["hiddenBundleIDs"]), [GAME, OTHER])
        killed = self.kill_process(self.only_process())
        # Nobody is there to hide it.
        self.windows.activate(self.game)
        wait_until(lambda: not self.is_hidden(self.game) or self.lock.pids())
        back = self.await_process() - killed
        if self.random.random() < 0.2:
            # One that has only just begun.
            killed = self.kill_process(self.only_process())
            back = self.await_process() - killed
        wait_until(lambda: self.is_hidden(self.game), 3 * LONGEST)
        locking = time.monotonic() - killed
        self.assertLess(locking, LONGEST)
        self.windows.activate(self.other)
        wait_until(lambda: self.windows.active() != int(self.other, 16) and self.is_hidden(self.other), 2)
        self.only_process()
        after = self.lock.stored()
        self.assertEqual([after[key] for key in COUNTED], [before[key] for key in COUNTED])
        return back, locking

    def kill_process(self, pid):
        """Gives the moment."""
        os.kill(pid, signal.SIGKILL)
        moment = time.monotonic()
        wait_until(lambda: pid not in self.lock.pids())
        return moment

    def await_process(self):
        """Gives the moment at which there is one."""
        wait_until(self.lock.pids, 3 * LONGEST)
        return time.monotonic()

    def only_process(self):
        processes = self.lock.pids()
        self.assertEqual(len(processes), 1)
        return processes[0]

    def is_hidden(self, window):
        return self.windows.is_iconic(window)

    # --- Its end ------------------------------------------------------------------------------------------------

    def end_and_look_for_leftovers(self):
        counted = self.lock.stored()
        self.kill_process(self.only_process())
        self.lock.shorten(6)
        self.windows.activate(self.game)
        self.await_process()
        wait_until(lambda: self.is_hidden(self.game))
        wait_until(lambda: not self.is_hidden(self.game) and not self.is_hidden(self.other))
        wait_until(lambda: not self.lock.pids())
        self.assertGreater(counted["attempts"], 0)
        history = self.lock.history()
        self.assertEqual(len(history), 1)
        self.assertEqual(history[0]["outcome"], "completed")
        for key in ("id", "attempts", "returns"):
            self.assertEqual(history[0][key], counted[key])
        wait_until(lambda: not self.lock.keepers())
        self.assertEqual(self.leftovers(), [])
        time.sleep(3.5)
        self.assertEqual(self.lock.pids(), [], "nobody brings it back")

    def leftovers(self):
        """What of a session is still there that should have gone with it."""
        left = [str(self.lock.session_file)] if self.lock.session_file.exists() else []
        for folder in (self.desktop.home / ".config", self.desktop.runtime):
            left += [str(path) for path in folder.rglob("*") if is_of_the_watchdog(path)]
        if self.manager:
            # The scope of what was started goes with its last process.
            units = [unit for unit in self.manager.units("velmorin") if not unit.endswith(".scope")]
            wait_until(lambda: not self.manager.units(".velmorin"))
            left += units
        return left

    def end_everything(self):
        """For a test that has failed in the middle: nothing of it comes back."""
        if self.manager:
            self.manager.ask("stop", "com.kestrava.velmorin.watchdog.timer")
        for path in (self.desktop.home / ".config").rglob("*"):
            if is_of_the_watchdog(path):
                path.unlink()
        wait_until(lambda: not self.lock.keepers())
        for pid in self.lock.pids():
            os.kill(pid, signal.SIGKILL)


def is_of_the_watchdog(path):
    """By its name, whatever kind of file it is; a link may lead nowhere."""
    return "velmorin" in path.name.lower() and not path.is_dir() or path.name == "watchdog.job"


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("--programs", required=True)
    parser.add_argument("--count", type=int, default=8)
    parser.add_argument("--seed", type=int)
    _, rest = parser.parse_known_args(namespace=OPTIONS)
    OPTIONS.programs = str(Path(OPTIONS.programs).resolve())
    result = unittest.main(argv=[sys.argv[0], *rest], verbosity=2, exit=False).result
    if not result.wasSuccessful():
        return 1
    return SKIPPED if len(result.skipped) == result.testsRun else 0


if __name__ == "__main__":
    sys.exit(main())
