#!/usr/bin/env python3
"""The program's icon in the tray, in both kinds of trays that there are: one that comes late, goes and comes back.

Usage: tray_test.py --programs DIR [TEST...]
"""

import argparse
import re
import sys
import time
import unittest
from pathlib import Path

from desktop import Desktop, wait_until
from program import Program

OPTIONS = argparse.Namespace(programs=None)

ALLOWED = "allowed"
# The rows of the menu, in the language of a first start.
MENU_OPEN, MENU_END_SESSION, MENU_QUIT = "باز کردن Dravoni", "پایان جلسه…", "خروج"
SHORT = 1.5  # seconds in which something would have happened, if it did
BAR = ["trayer", "--edge", "bottom", "--align", "right", "--widthtype", "request", "--height", "24", "--margin", "40"]


class TrayTest(unittest.TestCase):
    def setUp(self):
        self.desktop = self.enterContext(Desktop())
        self.program = Program(self.desktop, OPTIONS.programs)
        self.addCleanup(self.program.end_everything)

    def start_and_close(self):
        """Leaves it with its icon alone."""
        self.program.start()
        window = self.program.await_window()
        wait_until(self.program.is_painted)
        self.desktop.run("wmctrl", "-i", "-c", window)
        wait_until(lambda: not self.program.windows())


class WindowTrayTest(TrayTest):
    """A tray that takes the windows of icons in."""

    def start_bar(self):
        self.bar = self.desktop.start(*BAR)

    def icon(self):
        """The window of the icon as (number, left, top, width, height); None without one."""
        bars = self.desktop.run("xdotool", "search", "--class", "^trayer$", check=False).split()
        for bar in bars:
            tree = self.desktop.run("xwininfo", "-id", bar, "-tree", check=False)
            for line in tree.splitlines():
                found = re.match(r'\s+(0x[0-9a-f]+) .*\("(?:Velmorin|Vel-\w+)" .*\)\s+(\d+)x(\d+)\S*\s+\+(-?\d+)\+(-?\d+)', line)
                if found:
                    number, width, height, left, top = found.groups()
                    if int(width) > 4 and int(height) > 4:
                        return number, int(left), int(top), int(width), int(height)
        return None

    def click(self, button):
        _, left, top, width, height = wait_until(self.icon)
        self.desktop.run("xdotool", "mousemove", left + width // 2, top + height // 2, "click", button)

    def menus(self):
        """The menus that are open, which no window manager frames."""
        tree = self.desktop.run("xwininfo", "-root", "-tree")
        sizes = re.findall(r'(0x[0-9a-f]+) .*\("Vel-\w+" "Velmorin"\)\s+(\d+)x', tree)
        narrow = [number for number, width in sizes if 60 < int(width) < 600]
        told = [self.desktop.run("xwininfo", "-id", number, check=False) for number in narrow]
        return [text for text in told if "Override Redirect State: yes" in text and "IsViewable" in text]

    def test_a_click_on_the_icon_opens_the_main_window(self):
        self.start_bar()
        self.start_and_close()
        self.click(1)
        self.program.await_window()

    def test_the_other_button_opens_the_menu_whose_last_row_ends_the_program(self):
        self.start_bar()
        self.start_and_close()
        self.click(3)
        wait_until(self.menus)
        self.desktop.run("xdotool", "key", "Up", "Return")
        self.assertEqual(self.program.process.wait(10), 0)

    def test_during_a_session_that_row_asks_to_leave_early(self):
        self.start_bar()
        self.program.leave_session(600, [ALLOWED])
        self.program.start("--watchdog")
        self.click(3)
        wait_until(self.menus)
        self.desktop.run("xdotool", "key", "Up", "Return")
        wait_until(lambda: "emergency exit opened" in self.program.log())
        self.assertFalse(self.program.has_ended())

    def test_a_tray_that_comes_late_gets_the_icon(self):
        self.start_and_close()
        time.sleep(SHORT)
        self.start_bar()
        wait_until(self.icon)
        self.click(1)
        self.program.await_window()

    def test_a_tray_that_is_restarted_gets_the_icon_again(self):
        self.start_bar()
        self.start_and_close()
        for _ in range(3):
            wait_until(self.icon)
            self.desktop.stop(self.bar)
            time.sleep(0.5)
            self.start_bar()
        wait_until(self.icon)
        self.click(1)
        self.program.await_window()

    def test_without_a_tray_the_process_stays_and_a_second_start_shows_it_again(self):
        self.start_and_close()
        time.sleep(SHORT)
        self.assertFalse(self.program.has_ended())
        self.assertEqual(self.program.another().wait(10), 0)
        self.program.await_window()


class AnnouncedTrayTest(TrayTest):
    """A tray that icons are announced to on the session bus."""

    def start_bar(self, *options):
        self.bar = self.desktop.start(
            OPTIONS.programs + "/velmorin-status-watcher", *options, stdin=-1, stdout=-1, text=True, bufsize=1)

    def await_item(self):
        """The name on the bus of an item that is announced now."""
        return self.bar.stdout.readline().strip()

    def ask(self, item, path, method, *arguments):
        return self.desktop.run(
            "gdbus", "call", "--session", "-d", item, "-o", path, "-m", method, "--", *map(str, arguments))

    def property(self, item, name):
        return self.ask(item, "/StatusNotifierItem", "org.freedesktop.DBus.Properties.Get",
                        "org.kde.StatusNotifierItem", name)

    def menu(self, item):
        """The rows of the menu as a desktop reads them, as (number, text, whether it can be chosen)."""
        path = re.search(r"objectpath '([^']+)'", self.property(item, "Menu")).group(1)
        self.ask(item, path, "com.canonical.dbusmenu.AboutToShow", 0)
        layout = self.ask(item, path, "com.canonical.dbusmenu.GetLayout", 0, -1, "[]")
        rows = []
        for number, members in re.findall(r"<\((\d+), \{([^}]*)\}", layout):
            text = re.search(r"'label': <'([^']*)'>", members)
            if text and "'type': <'separator'>" not in members:
                rows.append((int(number), text.group(1).replace("_", ""), "'enabled': <false>" not in members))
        return path, rows

    def choose(self, item, row):
        path, rows = self.menu(item)
        number = next(number for number, text, _ in rows if text == row)
        self.ask(item, path, "com.canonical.dbusmenu.Event", number, "clicked", "<int32 0>", 0)

    def test_the_item_is_announced_with_a_picture_and_opens_the_main_window(self):
        self.start_bar()
        self.start_and_close()
        item = self.await_item()
        self.assertIn("Dravoni", self.property(item, "ToolTip"))
        self.assertGreater(len(self.property(item, "IconPixmap")) + len(self.property(item, "IconName")), 60)
        self.ask(item, "/StatusNotifierItem", "org.kde.StatusNotifierItem.Activate", 5, 5)
        self.program.await_window()

    def test_the_menu_follows_the_session(self):
        self.start_bar()
        self.program.leave_session(8, [ALLOWED])
        self.program.start()
        item = self.await_item()
        rows = self.menu(item)[1]
        self.assertEqual([text for _, text, _ in rows[1:]], [MENU_OPEN, MENU_END_SESSION])
        self.assertFalse(rows[0][2], "the time cannot be chosen")
        self.assertTrue(rows[1][2] and rows[2][2])
        self.assertIn(rows[0][1], self.property(item, "ToolTip"))
        wait_until(self.program.history)
        wait_until(lambda: [text for _, text, _ in self.menu(item)[1]] == [MENU_OPEN, MENU_QUIT])
        self.choose(item, MENU_QUIT)
        self.assertEqual(self.program.process.wait(10), 0)

    def test_a_tray_that_comes_late_is_told_of_the_item(self):
        self.start_and_close()
        time.sleep(SHORT)
        self.start_bar()
        self.ask(self.await_item(), "/StatusNotifierItem", "org.kde.StatusNotifierItem.Activate", 5, 5)
        self.program.await_window()

    def test_a_list_that_nobody_shows_yet_is_no_tray(self):
        self.start_bar("--no-host")
        self.start_and_close()
        time.sleep(SHORT)
        self.bar.stdin.write("\n")
        self.ask(self.await_item(), "/StatusNotifierItem", "org.kde.StatusNotifierItem.Activate", 5, 5)
        self.program.await_window()

    def test_a_tray_that_is_restarted_is_told_again(self):
        self.start_bar()
        self.start_and_close()
        for _ in range(3):
            item = self.await_item()
            self.desktop.stop(self.bar)
            time.sleep(0.5)
            self.start_bar()
        item = self.await_item()
        self.ask(item, "/StatusNotifierItem", "org.kde.StatusNotifierItem.Activate", 5, 5)
        self.program.await_window()


del TrayTest


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("--programs", required=True)
    _, rest = parser.parse_known_args(namespace=OPTIONS)
    OPTIONS.programs = str(Path(OPTIONS.programs).resolve())
    unittest.main(argv=[sys.argv[0], *rest], verbosity=2)


if __name__ == "__main__":
    main()
