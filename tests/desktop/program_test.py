#!/usr/bin/env python3
"""The real program on a real desktop: how it starts, what its main window does, and when it may end.

Usage: program_test.py --wm NAME --programs DIR [TEST...]
"""

import argparse
import json
import os
import select
import signal
import socket
import sys
import time
import unittest
from pathlib import Path

from desktop import WINDOW_MANAGERS, Desktop, wait_until
from program import IDENTIFIER, Program
from session import Windows

OPTIONS = argparse.Namespace(wm="openbox", programs=None)

ALLOWED = "allowed"
SHORT = 1.5  # seconds in which something would have happened, if it did


class ProgramTest(unittest.TestCase):
    environment = {}

    def setUp(self):
        self.desktop = self.enterContext(Desktop(OPTIONS.wm))
        self.program = Program(self.desktop, OPTIONS.programs, environment=self.environment)
        self.addCleanup(self.program.end_everything)

    def start_and_show(self):
        self.program.start()
        return self.program.await_window()

    def leave_and_start(self, *arguments):
        """Takes up a session that was left behind."""
        self.program.leave_session(600, [ALLOWED])
        self.program.start(*arguments)
        wait_until(lambda: "session resumed" in self.program.log())

    def stays_without_window(self):
        time.sleep(SHORT)
        self.assertFalse(self.program.has_ended())
        self.assertEqual(self.program.windows(), [])

    def topmost(self):
        return int(self.desktop.run("xprop", "-root", "-notype", "_NET_CLIENT_LIST_STACKING").split()[-1], 16)

    # --- Its start ----------------------------------------------------------------------------------------------

    def test_a_start_by_the_user_shows_the_main_window_in_the_middle_of_the_screen(self):
        window = self.start_and_show()
        wait_until(self.program.is_painted)
        wait_until(lambda: self.program.has_keyboard(window))
        geometry = self.desktop.run("xdotool", "getwindowgeometry", "--shell", window)
        values = dict(line.split("=") for line in geometry.splitlines())
        self.assertEqual(values["WIDTH"], "980")
        # As high as the screen lets it be.
        self.assertIn(int(values["HEIGHT"]), range(680, 821))
        self.assertAlmostEqual(int(values["X"]), 150, delta=10)
        hints = self.desktop.run("xprop", "-id", window, "WM_NORMAL_HINTS")
        self.assertIn("900 by 680", hints)
        self.assertIn("Dravoni", self.desktop.run("xprop", "-id", window, "_NET_WM_NAME"))
        self.assertIn("dark", self.desktop.run("xprop", "-id", window, "_GTK_THEME_VARIANT"))
        self.assertTrue(self.program.is_in_taskbar(window))
        self.assertIn("activation regular", self.program.log())

    def test_a_second_start_shows_the_window_of_the_first_and_ends(self):
        window = self.start_and_show()
        self.desktop.run("wmctrl", "-i", "-c", window)
        wait_until(lambda: not self.program.windows())
        self.assertEqual(self.program.another().wait(10), 0)
        wait_until(self.program.windows)
        self.assertEqual(self.program.pids(), [self.program.process.pid])

    def test_a_second_start_brings_a_covered_or_minimised_window_to_the_front(self):
        window = self.start_and_show()
        other = self.desktop.start("xterm", "-e", "sleep", "600")
        windows = Windows(self.desktop)
        wait_until(lambda: windows.of(other.pid))
        for hide in (lambda: windows.activate(windows.of(other.pid)[0]),
                     lambda: self.desktop.run("xdotool", "windowminimize", window)):
            hide()
            wait_until(lambda: not self.program.has_keyboard(window))
            self.assertEqual(self.program.another().wait(10), 0)
            wait_until(lambda: self.program.has_keyboard(window) and not windows.is_iconic(window))

    def test_a_second_start_says_when_the_first_does_not_answer(self):
        self.start_and_show()
        self.program.process.send_signal(signal.SIGSTOP)
        second = self.program.another_that_prints()
        self.assertIn("does not answer", second.communicate(timeout=10)[0])
        self.assertNotEqual(second.returncode, 0)
        self.program.process.send_signal(signal.SIGCONT)

    def test_without_a_display_it_says_so_and_ends(self):
        self.program.environment = {"DISPLAY": ":4711"}
        self.program.start()
        self.assertEqual(self.program.process.wait(10), 1)

    # --- Its main window ----------------------------------------------------------------------------------------

    def test_closing_the_main_window_keeps_the_process_and_it_can_be_shown_again(self):
        for close in (lambda window: self.desktop.run("wmctrl", "-i", "-c", window),
                      lambda window: self.program.press(window, "ctrl+w")):
            self.program.start() if self.program.process is None else self.program.another().wait(10)
            window = self.program.await_window()
            wait_until(self.program.is_painted)
            close(window)
            wait_until(lambda: not self.program.windows())
            self.stays_without_window()

    def test_a_hidden_main_window_costs_nothing(self):
        window = self.start_and_show()
        self.desktop.run("wmctrl", "-i", "-c", window)
        wait_until(lambda: not self.program.windows())
        time.sleep(SHORT)
        before = processor_time(self.program.process.pid)
        time.sleep(2)
        self.assertLessEqual(processor_time(self.program.process.pid) - before, 1, "hundredths of a second")

    # --- Its end ------------------------------------------------------------------------------------------------

    def test_control_q_ends_it_outside_a_session(self):
        self.program.press(self.start_and_show(), "ctrl+q")
        self.assertEqual(self.program.process.wait(10), 0)

    def test_control_q_ends_it_on_a_keyboard_without_latin_letters(self):
        self.desktop.run("setxkbmap", "-layout", "ir")
        window = self.start_and_show()
        wait_until(self.program.is_painted)
        wait_until(lambda: self.program.has_keyboard(window))
        for action in ("keydown", "Control_L"), ("key", "24"), ("keyup", "Control_L"):
            self.desktop.run("xdotool", *action)
        self.assertEqual(self.program.process.wait(10), 0)

    def test_requests_to_end_are_granted_outside_a_session(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            self.start_and_show()
            self.program.process.send_signal(number)
            self.assertEqual(self.program.process.wait(10), 0)
            wait_until(lambda: not self.program.windows())

    def test_the_end_of_the_display_ends_it(self):
        self.start_and_show()
        self.desktop.stop(self.desktop.server)
        self.assertNotEqual(self.program.process.wait(10), 0)

    # --- During a session ---------------------------------------------------------------------------------------

    def test_a_request_to_end_during_a_session_brings_up_the_main_window_and_it_stays(self):
        self.leave_and_start("--watchdog")
        self.stays_without_window()
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            self.program.process.send_signal(number)
            window = self.program.await_window()
            wait_until(lambda: self.program.has_keyboard(window))
            self.assertFalse(self.program.is_in_taskbar(window))
            self.assertFalse(self.program.has_ended())
            self.desktop.run("wmctrl", "-i", "-c", window)
            wait_until(lambda: not self.program.windows())
        self.assertTrue(self.program.session_file.exists())

    def test_control_q_during_a_session_raises_the_main_window_and_ends_nothing(self):
        self.leave_and_start()
        window = self.program.await_window()
        wait_until(self.program.is_painted)
        # It has the keyboard, and somebody else's window stands above it all the same.
        self.desktop.start(OPTIONS.programs + "/velmorin-test-window", "--class", ALLOWED, "--title", ALLOWED)
        other = Windows(self.desktop).appear(ALLOWED)[0]
        self.desktop.run("wmctrl", "-i", "-a", window)
        wait_until(lambda: self.program.has_keyboard(window))
        self.desktop.run("wmctrl", "-i", "-r", other, "-b", "add,above")
        wait_until(lambda: self.topmost() == int(other, 16))
        self.desktop.run("wmctrl", "-i", "-r", other, "-b", "remove,above")
        self.desktop.run("xdotool", "windowraise", other)
        time.sleep(0.3)
        self.assertEqual(self.topmost(), int(other, 16))
        self.assertTrue(self.program.has_keyboard(window))
        self.desktop.run("xdotool", "key", "ctrl+q")
        wait_until(lambda: self.topmost() == int(window, 16))
        time.sleep(SHORT)
        self.assertFalse(self.program.has_ended())
        self.assertEqual(self.program.windows(), [window])

    def test_the_announced_end_of_the_desktop_session_ends_it_during_a_session(self):
        manager = self.desktop.start(OPTIONS.programs + "/velmorin-session-manager", stdin=-1, stdout=-1, text=True,
                                     bufsize=1)
        self.leave_and_start("--watchdog")
        self.assertEqual(manager.stdout.readline(), f"client {IDENTIFIER}\n")
        time.sleep(SHORT)
        manager.stdin.write("Stop\n")
        window = self.program.await_window()
        self.assertFalse(self.program.has_ended(), "nobody is being logged out")
        self.desktop.run("wmctrl", "-i", "-c", window)
        manager.stdin.write("EndSession\n")
        self.assertEqual(manager.stdout.readline(), "agrees\n")
        self.assertFalse(self.program.has_ended(), "nobody has asked it to end yet")
        self.program.process.send_signal(signal.SIGTERM)
        self.assertEqual(self.program.process.wait(10), 0)
        self.assertTrue(self.program.session_file.exists(), "it goes on at the next login")

    def test_it_is_no_client_of_the_x_session_manager_which_would_end_it_unasked(self):
        place = self.desktop.folder / "ICE"
        with socket.socket(socket.AF_UNIX) as listening:
            listening.bind(str(place))
            listening.listen()
            self.program.environment = {"SESSION_MANAGER": f"local/{socket.gethostname()}:{place}"}
            self.start_and_show()
            self.assertEqual(select.select([listening], [], [], SHORT)[0], [])

    def test_closing_the_main_window_leaves_the_session_as_it_is(self):
        self.leave_and_start()
        window = self.program.await_window()
        before = self.program.stored()
        self.desktop.run("wmctrl", "-i", "-c", window)
        wait_until(lambda: not self.program.windows())
        self.stays_without_window()
        self.assertEqual(self.program.stored(), before)

    def test_the_taskbar_gets_its_entry_back_with_the_end_of_the_session(self):
        self.program.leave_session(6, [ALLOWED])
        self.program.start()
        window = self.program.await_window()
        self.assertFalse(self.program.is_in_taskbar(window))
        wait_until(self.program.history)
        wait_until(lambda: self.program.is_in_taskbar(window))
        self.assertIn("activation regular", self.program.log())

    # --- The watchdog -------------------------------------------------------------------------------------------

    def test_a_start_by_the_watchdog_without_a_session_ends_at_once(self):
        self.program.start("--watchdog")
        self.assertEqual(self.program.process.wait(10), 0)
        self.assertNotIn("activation", self.program.log())

    def test_a_start_by_the_watchdog_resumes_the_session_without_window_and_taskbar_entry(self):
        self.leave_and_start("--watchdog")
        self.stays_without_window()
        self.assertNotIn("activation", self.program.log())

    def test_a_second_start_by_the_watchdog_leaves_the_first_alone(self):
        self.leave_and_start("--watchdog")
        self.assertEqual(self.program.another("--watchdog").wait(10), 0)
        self.stays_without_window()

    def test_killed_in_a_session_it_comes_back_with_the_same_store(self):
        self.program.end_everything()
        elsewhere = self.desktop.home / "else where"
        self.program.environment = {"XDG_DATA_HOME": str(elsewhere)}
        self.program.home = elsewhere / "Velmorin"
        self.leave_and_start()
        self.program.process.kill()
        self.program.process.wait()
        wait_until(lambda: self.program.log().count("session resumed") == 2)
        self.assertEqual(len(self.program.pids()), 1)
        self.assertEqual(self.program.windows(), [], "a start by the watchdog shows no window")

    # --- What it starts -----------------------------------------------------------------------------------------

    def test_what_it_starts_has_the_environment_that_it_was_given(self):
        self.program.home.mkdir(parents=True)
        (self.program.home / "settings.json").write_text(json.dumps({"useFocusShortcuts": True}))
        shortcuts = self.program.home / "shortcuts"
        shortcuts.mkdir()
        told = self.desktop.folder / "environment"
        script = shortcuts / "Velmorin Off"
        script.write_text(f"#!/bin/sh\nenv -0 > {told}.new && mv {told}.new {told}\n")
        script.chmod(0o755)
        self.program.leave_session(3, [ALLOWED])
        kept = {"QT_NO_GLIB": "1", "SESSION_MANAGER": "local/nowhere:@/nowhere"}
        service = {"INVOCATION_ID": "ours", "NOTIFY_SOCKET": "/nowhere", "JOURNAL_STREAM": "1:1", "LISTEN_FDS": "0"}
        self.program.environment = {**kept, **service}
        self.program.start()
        wait_until(told.exists)
        given = {**self.desktop.environment, **kept}
        shells = {"PWD", "SHLVL", "_", "OLDPWD"}
        found = dict(line.split("=", 1) for line in told.read_text().split("\0") if line)
        self.assertEqual({name: value for name, value in found.items() if name not in shells},
                         {name: value for name, value in given.items() if name not in shells})


def processor_time(pid):
    """In hundredths of a second."""
    fields = Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) * 100 // os.sysconf("SC_CLK_TCK")


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("--wm", default="openbox", choices=WINDOW_MANAGERS)
    parser.add_argument("--programs", required=True)
    _, rest = parser.parse_known_args(namespace=OPTIONS)
    OPTIONS.programs = str(Path(OPTIONS.programs).resolve())
    unittest.main(argv=[sys.argv[0], *rest], verbosity=2)


if __name__ == "__main__":
    main()
