#!/usr/bin/python3
"""The real program, lived through on three monitors by mouse and by keyboard, as a screen reader sees it.

Usage: story_test.py --programs DIR [--wm NAME] [--pictures DIR] [TEST...]
"""

import re
import sys
import time

from desktop import wait_until
from screens import ScreensTest, add_missing_monitors, add_monitors, main, profile, remove_monitor, session

WARNING_PAUSE = 5.0  # seconds, of a session's first attempt
EXIT_WAIT = 60.0  # seconds, of a session in rounds
REASON = "I have to leave the house now"


class StoryTest(ScreensTest):
    # --- Scenes ---------------------------------------------------------------------------------------------------

    def is_hidden(self, process):
        return self.windows.are_iconic(self.windows.of(process.pid))

    def shields(self):
        """The boxes of the overlay's windows: those that no window manager looks after."""
        boxes = []
        for line in self.desktop.run("xwininfo", "-root", "-children").splitlines():
            found = re.search(r'"Velmorin"\)\s+(\d+)x(\d+)\S*\s+\+(-?\d+)\+(-?\d+)$', line)
            if found and min(map(int, found.group(1, 2))) > 100:
                boxes.append(tuple(map(int, found.group(3, 4, 1, 2))))
        return sorted(boxes)

    def start_by_mouse(self, goal="Write the report"):
        self.screens.click("What exactly do you want to finish?", "text")
        self.screens.type(goal)
        self.screens.click("Start session", "push button")
        wait_until(lambda: self.program.stored("active-session"))

    def push(self, process):
        """Tries to go to a forbidden application, once attempts count."""

        def warned():
            if self.windows.of(process.pid):
                self.activate(process)
            time.sleep(0.3)
            return self.screens.is_there("One slow breath…") or self.screens.is_there("Back to work")

        wait_until(warned)

    # --- Stories --------------------------------------------------------------------------------------------------

    def test_a_first_start_shows_the_start_page_in_persian(self):
        screens = self.open(settings=None, profiles=None)
        button = screens.find("شروع جلسه", "push button")
        self.assertTrue(button.is_enabled)
        self.picture("first-start")
        rail = screens.find("پروفایل‌ها")
        window = screens.windows()[0]
        self.assertGreater(rail.box[0], window.box[0] + window.box[2] / 2, "the rail is on the leading side")

    def test_a_session_is_prepared_lived_through_and_left_early(self):
        for name in ("word", "sheet", "game"):
            self.install(name)
        game = self.show_window("game")
        word = self.show_window("word")
        screens = self.open(profiles=[profile("Old", allowed=[])])

        # A new profile with two applications and a site.
        screens.click("Profiles")
        screens.click("New profile", "push button")
        screens.click("Choose apps…", "push button")
        screens.click("Search apps", "text")
        screens.type("tidy ")
        for name in ("Tidy Word", "Tidy Sheet"):
            screens.click(name, "check box")
        self.picture("picker")
        screens.click("Done", "push button")
        screens.click("Allowed sites", "text")
        screens.type("https://www.example.org/a/path")
        screens.key("Return")
        screens.find("Remove example.org", "push button")
        self.picture("profile")
        made = wait_until(lambda: next((p for p in self.program.stored("profiles") if p["allowedDomains"]), None))
        self.assertEqual([app["bundleID"] for app in made["allowedApps"]], ["word", "sheet"])
        self.assertEqual(made["allowedDomains"], ["example.org"])

        # A session of it.
        screens.click("Start")
        screens.click("New profile")
        self.start_by_mouse()
        stored = self.program.stored("active-session")
        self.assertEqual((stored["intent"], stored["profileName"]), ("Write the report", "New profile"))
        wait_until(lambda: self.is_hidden(game))
        self.assertFalse(self.is_hidden(word))

        # A push against it.
        self.push(game)
        began = time.monotonic()
        self.picture("warning")
        self.assertEqual(len(self.shields()), 3)
        # Before the pause is over the way back cannot be pressed.
        button = screens.click("One slow breath…", "push button")
        self.assertEqual(self.program.stored("active-session")["returns"], 0)
        screens.click("For example: message a friend", "text")
        # What is typed goes to the thought and presses nothing.
        screens.type("buy bread")
        screens.key("Return")
        wait_until(lambda: self.program.stored("thoughts"))
        self.assertEqual(self.program.stored("thoughts")[0]["text"], "buy bread")
        screens.click(button)
        self.assertEqual(len(self.shields()), 3)
        screens.find("Back to work", "push button")
        self.assertGreater(time.monotonic() - began, WARNING_PAUSE - 1.5)
        screens.click("Back to work", "push button")
        wait_until(lambda: not self.shields())
        wait_until(lambda: self.program.stored("active-session")["returns"] == 1)

        # The way out, refused and granted.
        # By the backdrop of the last monitor, where no window is in front of it.
        screens.click(max(screens.all("End session", "push button"), key=lambda node: node.box[0]))
        wait_until(lambda: len(self.shields()) == 3)
        end = screens.find(lambda name: name.startswith("End session becomes available in"), "push button")
        screens.click(end)
        screens.click("Write a few words for yourself", "text")
        screens.type("short")
        self.picture("exit")
        # Once the wait is over, only the reason holds it back.
        hint = "To end the session, write your reason a little more fully"
        wait_until(lambda: screens.is_there(hint, "push button"), EXIT_WAIT + 15)
        screens.type(" no longer: " + REASON)
        # The one under the way to stay: backdrops, which are out of reach now, have others.
        left, top, *_ = screens.find("I'll stay and continue", "push button").box

        def way_out():
            found = [node.box for node in screens.all("End session", "push button")]
            return [box for box in found if left <= box[0] + box[2] // 2 <= left + 400 and 0 < box[1] - top < 130]

        x, y, width, height = wait_until(way_out)[0]
        screens.click_at(x + width // 2, y + height // 2)
        wait_until(lambda: self.program.stored("active-session") is None)
        wait_until(lambda: not self.shields())
        record = self.program.stored("history")[0]
        self.assertEqual((record["outcome"], record["exitReason"]), ("aborted", "short no longer: " + REASON))
        wait_until(lambda: not self.is_hidden(game))

    def test_a_session_is_started_by_the_keyboard_alone(self):
        screens = self.open()
        screens.find("Start session", "push button")
        screens.tab_to("What exactly do you want to finish?", "text")
        screens.type("Only keys")
        screens.tab_to("Start session", "push button")
        screens.key("Return")
        stored = wait_until(lambda: self.program.stored("active-session"))
        self.assertEqual(stored["intent"], "Only keys")

    def test_a_locked_break_and_the_end_have_their_screens(self):
        plan = [("work", 600.0), ("lockedBreak", 12.0), ("work", 6.0)]
        screens = self.open(session=session(plan, elapsed=597.0))
        screens.find("Break time")
        self.assertEqual(len(self.shields()), 3)
        self.picture("locked-break")
        wait_until(lambda: not self.shields())
        screens.find("Done", "push button")
        self.assertEqual(len(self.shields()), 3)
        self.picture("finished")
        screens.key("Return")
        wait_until(lambda: not self.shields())
        self.assertEqual(self.program.stored("history")[0]["outcome"], "completed")

    def warned(self):
        """A session with a warning on the screen, and the forbidden window behind it."""
        game = self.show_window("game")
        word = self.show_window("word")
        screens = self.open(session=session([("work", 1500.0)], elapsed=10.0))
        self.push(game)
        wait_until(lambda: len(self.shields()) == 3)
        return screens, game, word

    def test_monitors_come_and_go_under_an_overlay(self):
        screens, _, _ = self.warned()
        self.addCleanup(add_missing_monitors, self.desktop)
        remove_monitor(self.desktop, "C")
        wait_until(lambda: len(self.shields()) == 2)
        remove_monitor(self.desktop, "B")
        wait_until(lambda: len(self.shields()) == 1)
        add_monitors(self.desktop, ["B"])
        wait_until(lambda: len(self.shields()) == 2)
        add_monitors(self.desktop, ["C"])
        wait_until(lambda: len(self.shields()) == 3)
        screens.type("still mine")
        wait_until(lambda: any(node.text == "still mine" for node in screens.all(role="text")))

    def test_only_the_primary_screen_takes_the_keyboard(self):
        screens, _, _ = self.warned()
        fields = screens.all(role="text")
        self.assertEqual(len(fields), 1)
        self.assertTrue(fields[0].is_focused)

    def test_no_key_of_the_desktop_gets_past_the_shield(self):
        screens, game, _ = self.warned()
        for keys in ("alt+Tab", "alt+F4", "super", "ctrl+alt+t", "alt+F2", "ctrl+q", "ctrl+w"):
            screens.key(keys)
        time.sleep(0.5)
        self.assertEqual(len(self.shields()), 3)
        self.assertTrue(self.program.pids())
        screens.click("For example: message a friend", "text")
        screens.type("x")
        wait_until(lambda: any("x" in node.text for node in screens.all(role="text")))
        self.assertEqual(len(self.shields()), 3)

    def test_another_program_that_comes_up_stays_below_the_shield(self):
        _, _, word = self.warned()
        self.activate(word)
        # One that no window manager looks after, and that covers everything.
        intruder = self.programs / "velmorin-test-window"
        self.others.append(self.desktop.start(intruder, "--class", "intruder", "--title", "Intruder", "--covers-all"))
        wait_until(lambda: "Intruder" in self.desktop.run("xwininfo", "-root", "-children"))
        for box in self.shields():
            wait_until(lambda: self.is_on_top(box))
        self.screens.type("mine")
        wait_until(lambda: any("mine" in node.text for node in self.screens.all(role="text")))

    def is_on_top(self, box):
        """Whether what is under the middle of a screen belongs to the program."""
        self.desktop.run("xdotool", "mousemove", str(box[0] + box[2] // 2), str(box[1] + box[3] // 2))
        found = re.search(r"window:(\d+)", self.desktop.run("xdotool", "getmouselocation"))
        pid = self.desktop.run("xdotool", "getwindowpid", found.group(1), check=False)
        return pid.isdigit() and int(pid) in self.program.pids()

    def look(self, *texts):
        """Whether a screen reader can tell what is on the screen: these texts, and a name for all that needs one."""
        for text in texts:
            self.screens.find(text)
        for flaw in (self.screens.nameless, self.screens.of_no_kind):
            found = flaw()
            self.assertEqual(found, [], f"{texts}:\n{self.screens.tree()}" if found else "")

    def test_every_control_of_the_main_window_and_of_the_way_out_has_a_name(self):
        self.install("word")
        screens = self.open(profiles=[profile(domains=["example.org"])])
        self.await_main_window()
        self.look("Start session", "What will you focus on today?")
        screens.click("Profiles")
        self.look("Choose apps…", "Allowed sites", "Remove example.org")
        screens.click("Choose apps…", "push button")
        self.look("Search apps", "Tidy Word")
        screens.key("Escape")
        screens.click("Start")
        self.start_by_mouse()
        self.program_again()
        self.look("End session")
        screens.click("End session", "push button")
        self.look("I'll stay and continue")

    def test_every_control_of_a_warning_has_a_name(self):
        self.warned()
        self.look("One slow breath…", "This session's work", "Write the report", "For example: message a friend")
        self.look("Back to work")

    def test_every_control_of_the_screens_that_a_session_shows_by_itself_has_a_name(self):
        for plan, elapsed, texts in (
            ([("work", 600.0)], 10.0, ["Time", "Left in session", "Write the report", "End session"]),
            ([("work", 600.0), ("lockedBreak", 60.0), ("work", 600.0)], 610.0, ["Break time", "Back to work early"]),
            ([("work", 600.0), ("shortBreak", 3.0), ("work", 600.0)], 601.0, ["This round's work", "Let's start"]),
            ([("work", 600.0)], 597.0, ["Focus time", "Done"]),
        ):
            with self.subTest(shows=texts):
                self.open(session=session(plan, elapsed=elapsed))
                try:
                    self.look(*texts)
                finally:
                    self.program.stop()


if __name__ == "__main__":
    sys.exit(main(__doc__))
