#!/usr/bin/env python3
"""A whole session among real windows: what it hides, asks to quit, leaves alone and shows again.

Usage: session_test.py --wm NAME --programs DIR [TEST...]
"""

import argparse
import contextlib
import json
import os
import signal
import subprocess
import sys
import time
import unittest
from pathlib import Path

from desktop import WINDOW_MANAGERS, Desktop, wait_until
from session import Lock, Windows, profile

OPTIONS = argparse.Namespace(wm="openbox", programs=None)

XTERM = "debian-xterm"
HEAVY = 10.0  # seconds that a big program may take to come or go


class SessionTest(unittest.TestCase):
    def setUp(self):
        self.desktop = Desktop(OPTIONS.wm)
        self.desktop.__enter__()
        self.addCleanup(self.desktop.__exit__, None, None, None)
        self.windows = Windows(self.desktop)
        self.lock = Lock(self.desktop, OPTIONS.programs)

    def show(self, *command):
        """A program with its windows on the screen."""
        process = self.desktop.start(*command)
        wait_until(lambda: self.windows.of(process.pid) or process.poll() is not None)
        self.assertIsNone(process.poll(), f"{command} has ended")
        return process

    def show_xterm(self, title="allowed"):
        # The desktop's own entry is what gives it its identifier.
        return self.show("xterm", "-T", title, "-e", "sleep", "600")

    def show_window(self, name, *options):
        return self.show(OPTIONS.programs + "/velmorin-test-window", "--class", name, "--title", name, *options)

    def iconic(self, process):
        return lambda: self.windows.are_iconic(self.windows.of(process.pid))

    def on_screen(self, process):
        def shown():
            windows = self.windows.of(process.pid)
            return bool(windows) and not any(map(self.windows.is_iconic, windows))

        return shown

    def test_forbidden_windows_of_every_toolkit_are_hidden_and_allowed_ones_are_not_touched(self):
        gtk = self.show("zenity", "--info", "--text=A message")
        qt = self.show("featherpad", "--standalone")
        plain = self.show_window("game", "--windows", "3")
        allowed = self.show_xterm()
        before = self.desktop.run("xprop", "-id", self.windows.of(allowed.pid)[0], "WM_STATE")
        self.lock.start(profile([XTERM]))
        for process in (gtk, qt, plain):
            wait_until(self.iconic(process))
        self.assertEqual(self.desktop.run("xprop", "-id", self.windows.of(allowed.pid)[0], "WM_STATE"), before)
        self.assertFalse(self.windows.is_iconic(self.windows.of(allowed.pid)[0]))
        self.assertEqual(self.windows.active(), int(self.windows.of(allowed.pid)[0], 16))
        for process in (gtk, qt, plain, allowed):
            self.assertIsNone(process.poll(), "nothing that ran before is asked to quit")

    def test_what_comes_to_the_front_is_hidden_at_once_and_the_front_returns(self):
        allowed = self.show_xterm()
        game = self.show_window("game")
        self.lock.start(profile([XTERM]))
        wait_until(self.iconic(game))
        time.sleep(3.2)  # the session's first seconds count no attempt
        self.windows.activate(self.windows.of(game.pid)[0])
        warning = self.lock.await_event("overlay", state="warning")
        self.assertEqual(warning["attempt"], 1)
        wait_until(self.iconic(game), 1.0)
        self.lock.await_event("overlay", state="none")
        wait_until(lambda: self.windows.active() == int(self.windows.of(allowed.pid)[0], 16))
        self.assertIsNone(game.poll())

    def test_a_new_program_is_asked_to_quit_and_goes(self):
        self.show_xterm()
        self.lock.start(profile([XTERM]))
        self.lock.await_event("began")
        for command in (["zenity", "--info", "--text=Late"], ["featherpad", "--standalone"]):
            late = self.desktop.start(*command)
            wait_until(lambda: late.poll() is not None)
            self.assertGreaterEqual(late.returncode, 0, "it went by itself: nothing has killed it")
        self.assertGreaterEqual(self.lock.log().count("blocked launch"), 2)

    def test_a_program_that_ignores_the_request_is_hidden_at_the_fourth_tick_and_left_alive(self):
        self.show_xterm()
        self.lock.start(profile([XTERM]), "--ticks")
        self.lock.await_event("began")
        time.sleep(1.5)
        stubborn = self.show_window("stubborn", "--ignore-closing", "--behind")  # its activation would be a pass of its own
        launched = self.lock.await_event("launched")["at"]
        wait_until(self.iconic(stubborn))
        ticks = [event["at"] for event in self.lock.seen("tick") if event["at"] > launched]
        self.assertIn(len(ticks), (3, 4), "its fourth tick is still under way, or has just ended")
        wait_until(lambda: "would not quit, kept hidden: stubborn" in self.lock.log())
        self.assertIsNone(stubborn.poll())
        self.assertEqual(self.lock.log().count("hid stubborn"), 1)

    def test_everything_is_shown_again_at_the_end(self):
        allowed = self.show_xterm()
        game = self.show_window("game", "--windows", "2")
        minimized = self.show_window("other")
        self.desktop.run("xdotool", "windowminimize", self.windows.of(minimized.pid)[0])
        wait_until(self.iconic(minimized))
        self.lock.leave_session(6, [XTERM])
        self.lock.start()
        wait_until(self.iconic(game))
        self.windows.activate(self.windows.of(allowed.pid)[0])
        self.lock.await_event("ending")
        wait_until(self.on_screen(game))
        self.assertEqual(self.lock.process.wait(30), 0)
        wait_until(lambda: self.windows.active() == int(self.windows.of(allowed.pid)[0], 16), 3)
        self.assertTrue(self.iconic(minimized)(), "what its user had put away stays away")
        self.assertEqual([record["outcome"] for record in self.lock.history()], ["completed"])
        self.assertFalse(self.lock.session_file.exists())

    def test_after_a_kill_in_the_middle_the_session_goes_on_and_everything_is_shown_at_its_end(self):
        self.show_xterm()
        game = self.show_window("game")
        self.lock.start(profile([XTERM]))
        wait_until(self.iconic(game))
        wait_until(lambda: self.lock.stored()["hiddenBundleIDs"] == ["game"])
        self.lock.kill()
        killed = time.monotonic()
        self.lock.shorten(12)
        self.assertTrue(self.iconic(game)(), "a kill shows nothing")
        wait_until(self.lock.pids, 4.0)
        wait_until(lambda: "session resumed" in self.lock.log())
        self.windows.activate(self.windows.of(game.pid)[0])
        wait_until(self.iconic(game))
        self.assertLess(time.monotonic() - killed, 11, "the session is still on")
        wait_until(self.on_screen(game))
        wait_until(lambda: not self.lock.pids())
        self.assertEqual([record["outcome"] for record in self.lock.history()], ["completed"])
        wait_until(lambda: not self.lock.keepers())

    def test_a_window_that_may_not_be_iconified_by_its_own_hints_is_hidden_all_the_same(self):
        self.show_xterm()
        stiff = self.show_window("stiff", "--not-iconifiable")
        self.lock.start(profile([XTERM]))
        wait_until(self.iconic(stiff))

    def test_a_dialog_over_a_forbidden_window_goes_with_it(self):
        self.show_xterm()
        game = self.desktop.start(
            OPTIONS.programs + "/velmorin-test-window", "--class", "game", "--title", "game", stdin=-1, text=True,
            bufsize=1)
        wait_until(lambda: self.windows.of(game.pid))
        game.stdin.write("dialog\n")
        wait_until(lambda: len(self.windows.of(game.pid)) == 2)
        self.lock.start(profile([XTERM]))
        wait_until(lambda: not any(self.is_viewable(window) for window in self.windows.of(game.pid)))

    def is_viewable(self, window):
        return "IsViewable" in self.desktop.run("xwininfo", "-id", window, check=False) and not self.windows.is_iconic(
            window)

    def test_a_window_that_changes_its_class_is_judged_anew(self):
        self.show_xterm()
        shifty = self.desktop.start(
            OPTIONS.programs + "/velmorin-test-window", "--class", "honest", "--title", "shifty", stdin=-1, text=True,
            bufsize=1)
        wait_until(lambda: self.windows.of(shifty.pid))
        self.lock.start(profile([XTERM, "honest", "velmorin-test-window"]))
        self.lock.await_event("began")
        time.sleep(2)
        self.assertFalse(self.iconic(shifty)())
        shifty.stdin.write("class game\n")
        wait_until(self.iconic(shifty))

    def test_windows_of_other_desktops_are_hidden_when_their_user_goes_there_and_come_back_to_where_they_were(self):
        self.desktop.run("wmctrl", "-n", "3")
        allowed = self.show_xterm()
        far, near = self.show_window("far"), self.show_window("near")
        window = self.windows.of(far.pid)[0]
        self.desktop.run("wmctrl", "-i", "-r", window, "-t", "2")
        wait_until(lambda: self.windows.desktop_of(window) == "2")
        self.assertFalse(self.windows.is_iconic(window), "it is on the screen of its desktop")
        self.lock.leave_session(9, [XTERM])
        self.lock.start()
        wait_until(self.iconic(near))
        self.desktop.run("wmctrl", "-s", "2")
        wait_until(self.iconic(far))
        self.desktop.run("wmctrl", "-s", "0")
        self.assertEqual(sorted(self.lock.stored()["hiddenBundleIDs"]), ["far", "near"])
        self.windows.activate(self.windows.of(allowed.pid)[0])
        self.lock.await_event("ending")
        wait_until(lambda: self.on_screen(far)() and self.on_screen(near)())
        wait_until(lambda: self.windows.desktop_of(window) == "2")
        self.assertEqual(self.windows.desktop_of(self.windows.of(near.pid)[0]), "0")

    def test_a_window_that_leaves_the_taskbar_is_as_forbidden_as_before(self):
        self.show_xterm()
        game = self.show_window("game")
        self.lock.start(profile([XTERM]))
        wait_until(self.iconic(game))
        window = self.windows.of(game.pid)[0]
        self.desktop.run("wmctrl", "-i", "-r", window, "-b", "add,skip_taskbar")
        self.windows.activate(window)
        wait_until(lambda: self.lock.log().count("hid game") >= 2)

    def test_a_panel_that_becomes_active_is_no_attempt(self):
        self.show_xterm()
        panel = self.show_window("unheard-of-panel", "--type", "dock")
        self.lock.start(profile([XTERM]))
        self.lock.await_event("began")
        time.sleep(3.2)
        self.windows.activate(self.windows.of(panel.pid)[0])
        wait_until(lambda: self.windows.active() == int(self.windows.of(panel.pid)[0], 16))
        time.sleep(2.2)
        self.assertEqual(self.lock.seen("overlay"), [])
        self.assertFalse(self.iconic(panel)())

    def test_with_nothing_in_front_the_lock_holds(self):
        xterm = self.show_xterm()
        self.lock.start(profile([XTERM]))
        self.lock.await_event("began")
        os.killpg(xterm.pid, 15)
        wait_until(lambda: not self.desktop.run("wmctrl", "-l", check=False))
        late = self.show_window("late", "--ignore-closing")
        self.lock.await_event("launched", bundleID="late")
        wait_until(self.iconic(late))

    def test_windows_that_vanish_at_once_do_no_harm(self):
        self.show_xterm()
        self.lock.start(profile([XTERM]))
        self.lock.await_event("began")
        for _ in range(60):
            fleeting = self.desktop.start(OPTIONS.programs + "/velmorin-test-window", "--class", "fleeting")
            time.sleep(0.01)
            fleeting.kill()
        self.assertIsNone(self.lock.process.poll())
        self.lock.command("show")
        self.lock.await_event("session")

    def test_a_new_window_manager_launches_nothing(self):
        self.show_xterm()
        game = self.show_window("game")
        self.lock.start(profile([XTERM]))
        wait_until(self.iconic(game))
        self.desktop.start(*WINDOW_MANAGERS[OPTIONS.wm], "--replace")
        time.sleep(3)
        wait_until(self.iconic(game))
        self.assertNotIn("blocked launch", self.lock.log())
        self.assertIsNone(game.poll())

    def test_nobody_who_reads_the_events_can_hold_up_the_lock(self):
        self.show_xterm()
        game = self.show_window("game")
        reading, writing = os.pipe()
        self.addCleanup(os.close, reading)
        os.set_blocking(writing, False)
        with contextlib.suppress(BlockingIOError):
            while True:
                os.write(writing, b"x" * 4096)
        os.set_blocking(writing, True)
        path = self.desktop.folder / "profile.json"
        path.write_text(json.dumps(profile([XTERM])))
        self.desktop.start(self.lock.program, "--home", self.lock.home, "--ticks", path, stdout=writing)
        os.close(writing)
        wait_until(self.iconic(game))
        for _ in range(2):
            time.sleep(1.5)
            self.windows.activate(self.windows.of(game.pid)[0])
            wait_until(self.iconic(game), 3)

    def test_a_terminal_cannot_stop_the_lock(self):
        self.show_xterm()
        self.lock.start(profile([XTERM]))
        self.lock.await_event("began")
        status = Path(f"/proc/{self.lock.process.pid}/status").read_text()
        caught = int(next(line.split()[1] for line in status.splitlines() if line.startswith("SigCgt")), 16)
        for number in (signal.SIGTSTP, signal.SIGTTIN, signal.SIGTTOU, signal.SIGQUIT):
            self.assertTrue(caught & 1 << (number - 1), number)

    def test_another_store_does_not_disarm_the_watchdog_of_a_session(self):
        self.show_xterm()
        self.lock.start(profile([XTERM]))
        self.lock.await_event("began")
        wait_until(self.lock.keepers)
        done = subprocess.run(
            [self.lock.program, "--home", self.desktop.home / "elsewhere"], env=self.desktop.environment,
            capture_output=True, text=True, timeout=30)
        self.assertEqual(done.returncode, 1)
        self.assertIn("runs already", done.stderr)
        self.lock.await_event("show")
        self.assertTrue(self.lock.keepers())
        self.lock.kill()
        wait_until(self.lock.pids, 4.0)

    def test_the_hot_key_does_nothing_under_an_overlay(self):
        self.show_xterm()
        self.lock.start(profile([XTERM]))
        self.lock.await_event("began")
        self.desktop.run("xdotool", "key", "ctrl+alt+t")
        self.lock.await_event("hotKey")
        self.lock.command("exit")
        self.lock.await_event("overlay", state="emergencyExit")
        self.desktop.run("xdotool", "key", "ctrl+alt+t")
        self.lock.command("cancel")
        self.lock.await_event("overlay", state="none")
        self.assertEqual(self.lock.seen("hotKey"), [])
        self.desktop.run("xdotool", "key", "ctrl+alt+t")
        self.lock.await_event("hotKey")

    def test_commands_come_through_the_pipe_too(self):
        self.show_xterm()
        self.lock.start(profile([XTERM]))
        self.lock.await_event("began")
        (self.lock.home / "commands").write_text("exit\n")
        self.lock.await_event("overlay", state="emergencyExit")

    def test_a_request_to_quit_during_a_session_is_refused(self):
        self.show_xterm()
        self.lock.start(profile([XTERM]))
        self.lock.await_event("began")
        self.lock.process.terminate()
        self.lock.await_event("stays")
        self.lock.command("quit")
        self.lock.await_event("stays")
        self.assertIsNone(self.lock.process.poll())


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--wm", default="openbox", choices=WINDOW_MANAGERS)
    parser.add_argument("--programs", required=True)
    parser.parse_known_args(namespace=OPTIONS)
    _, rest = parser.parse_known_args()
    unittest.main(argv=[sys.argv[0], *rest], verbosity=2)


if __name__ == "__main__":
    main()
