#!/usr/bin/python3
"""The page of profiles in the real program, used by mouse and keyboard and seen as a screen reader sees it.

Usage: profiles_test.py --programs DIR [--wm NAME] [--pictures DIR] [TEST...]
"""

import shutil
import struct
import sys
import time
import zlib

from desktop import wait_until
from screens import ScreensTest, main, profile

BROWSER = "com.google.Chrome"
NO_SITES = "A browser is allowed but no sites are, so only blank pages will open."
BAD_ADDRESS = "That address isn't valid. Write it like example.org."
CHECK = "Check Chrome permission"
DELETE = "Delete this profile"
MANY = 300
ICON_COLOUR = (255, 0, 255)
PATIENCE_FOR_PICKER = 3.0  # seconds


def with_browser(**fields):
    result = profile(allowed=[], **fields)
    result["allowedApps"] = [{"bundleID": BROWSER, "name": "Browser"}]
    return result


class ProfilesTest(ScreensTest):
    def setUp(self):
        super().setUp()
        # A system with no applications but those of the test.
        self.system = self.desktop.folder / "system"
        self.desktop.environment["XDG_DATA_DIRS"] = str(self.system)
        self.addCleanup(shutil.rmtree, self.system, ignore_errors=True)

    # --- Scenes ---------------------------------------------------------------------------------------------------

    def edit(self, *profiles):
        """The program with its page of profiles, the first of them chosen."""
        screens = self.open(profiles=list(profiles))
        self.await_main_window()
        screens.click("Profiles")
        screens.find("Choose apps…", "push button")
        return screens

    def open_picker(self):
        self.screens.click("Choose apps…", "push button")
        self.screens.find("Search apps", "text")

    def close_picker(self):
        self.screens.key("Escape")
        self.screens.await_gone("Search apps", "text")

    def listed(self):
        """The names of the applications that the picker shows."""
        return [node.name for node in self.screens.all(role="check box")]

    def await_listed(self, *names):
        try:
            wait_until(lambda: self.listed() == list(names), 10)
        except TimeoutError:
            self.assertEqual(self.listed(), list(names))

    def stored_profiles(self):
        return self.program.stored("profiles")

    def await_stored(self, field, values):
        try:
            wait_until(lambda: [each[field] for each in self.stored_profiles()] == values, 10)
        except TimeoutError:
            self.assertEqual([each[field] for each in self.stored_profiles()], values)

    def add_address(self, text):
        """Types an address into the field for it, which is empty before."""
        field = self.screens.click("Allowed sites", "text")
        wait_until(lambda: field.is_focused)
        self.screens.type(text)
        wait_until(lambda: field.text == text)
        self.screens.key("Return")
        return field

    # --- Applications ---------------------------------------------------------------------------------------------

    def test_an_application_of_the_system_and_of_the_user_is_listed_once_as_the_user_has_it(self):
        self.install("word", "System's Word", self.system / "applications")
        self.install("word", "User's Word")
        self.install("sheet", "System's Sheet", self.system / "applications")
        self.edit(profile(allowed=[]))
        self.open_picker()
        self.await_listed("System's Sheet", "User's Word")
        self.screens.click("User's Word", "check box")
        self.await_stored("allowedApps", [[{"bundleID": "word", "name": "User's Word"}]])

    def test_a_program_without_a_desktop_entry_is_listed_only_while_it_runs_with_a_window(self):
        # An entry stands for all that runs its program, so this one has another.
        self.install("word", Exec="/bin/true")
        self.edit(profile(allowed=[]))
        self.open_picker()
        self.await_listed("Tidy Word")
        self.close_picker()
        loners = [self.show_window("loner"), self.show_window("loner", "--windows", "2")]
        self.open_picker()
        self.await_listed("loner", "Tidy Word")
        self.screens.click("loner", "check box")
        self.await_stored("allowedApps", [[{"bundleID": "loner", "name": "loner"}]])
        self.close_picker()
        for loner in loners:
            self.desktop.stop(loner)
        wait_until(lambda: not self.windows.named("loner"))
        self.open_picker()
        self.await_listed("Tidy Word")
        self.close_picker()
        self.screens.find("Remove loner", "push button")

    def test_a_picker_of_hundreds_opens_filters_and_gives_the_focus_back(self):
        icons = self.system / "icons"
        icons.mkdir(parents=True)
        for number in range(MANY):
            icon = icons / f"{number}.png"
            write_icon(icon)
            self.install(f"p{number}", f"Program {number:03}", self.system / "applications", Icon=icon)
        screens = self.edit(profile(allowed=[]))
        began = time.monotonic()
        self.open_picker()
        self.assertLess(time.monotonic() - began, PATIENCE_FOR_PICKER)
        wait_until(lambda: "Program 000" in self.listed())
        self.assertLess(len(self.listed()), 40, "only the rows to be seen exist")
        wait_until(lambda: self.icon_pixels() > 5 * 24 * 24)
        self.picture("picker-of-hundreds")
        screens.type("program 29")  # the field has the focus from the beginning
        self.await_listed(*[f"Program {number}" for number in range(290, 300)])
        screens.type("9")
        self.await_listed("Program 299")
        screens.type("9")
        self.await_listed()
        self.close_picker()
        wait_until(lambda: screens.focused() and screens.focused().name == "Choose apps…")
        # Again by the keyboard alone.
        screens.key("Return")
        screens.find("Search apps", "text")
        wait_until(lambda: "Program 000" in self.listed())
        screens.tab_to("Allowed apps", "list")
        screens.key("Down", "Down", "space")
        self.await_stored("allowedApps", [[{"bundleID": "p2", "name": "Program 002"}]])
        self.assertTrue(screens.find("Program 002", "check box").is_checked)
        self.close_picker()
        wait_until(lambda: screens.focused() and screens.focused().name == "Choose apps…")

    def icon_pixels(self):
        """How many points of the screen have the colour of the icons."""
        path = self.desktop.folder / "screen.ppm"
        self.screens.picture(path)
        return path.read_bytes().count(bytes(ICON_COLOUR))

    # --- Profiles -------------------------------------------------------------------------------------------------

    def test_the_last_profile_cannot_be_deleted(self):
        screens = self.edit(profile("First", allowed=[]), profile("Second", allowed=[]))
        screens.tab_to(DELETE, "push button")
        screens.key("Return")
        self.await_stored("name", ["Second"])
        screens.await_gone("First")
        self.assert_nothing_deletes("Second")
        # With two again it can.
        screens.click("New profile", "push button")
        self.await_stored("name", ["Second", "New profile"])
        screens.tab_to(DELETE, "push button")
        screens.key("Return")
        self.await_stored("name", ["Second"])
        self.assert_nothing_deletes("Second")

    def assert_nothing_deletes(self, name):
        """Neither the mouse nor the keyboard, which passes the button by."""
        screens = self.screens
        screens.click(DELETE, "push button")
        screens.tab_to("Add", "push button")
        screens.key("Tab")
        wait_until(lambda: screens.focused() and screens.focused().name != "Add")
        self.assertNotEqual(screens.focused().name, DELETE)
        self.assertEqual([each["name"] for each in self.stored_profiles()], [name])
        screens.find(name, "push button")

    # --- Sites ----------------------------------------------------------------------------------------------------

    def test_an_address_with_a_path_becomes_its_domain(self):
        self.edit(profile(allowed=[]))
        field = self.add_address("https://www.Example.org:8080/a/path?query=1")
        self.await_stored("allowedDomains", [["example.org"]])
        self.screens.find("Remove example.org", "push button")
        wait_until(lambda: field.text == "")

    def test_a_second_site_of_the_same_name_is_dropped_silently(self):
        self.edit(profile(allowed=[], domains=["example.org"]))
        field = self.add_address("http://example.org/other")
        wait_until(lambda: field.text == "")
        self.assertEqual(len(self.screens.all("Remove example.org", "push button")), 1)
        self.assertFalse(self.screens.is_there(BAD_ADDRESS))
        self.assertEqual(self.stored_profiles()[0]["allowedDomains"], ["example.org"])

    def test_the_warning_about_no_sites_gives_way_to_a_bad_address_and_comes_back(self):
        screens = self.edit(with_browser())
        screens.find(NO_SITES)
        field = self.add_address("not an address")
        screens.find(BAD_ADDRESS)
        screens.await_gone(NO_SITES)
        self.assertEqual(field.text, "not an address")
        screens.key("ctrl+a", "BackSpace", "Return")
        screens.find(NO_SITES)
        screens.await_gone(BAD_ADDRESS)
        # A site ends it, and the site's removal brings it back.
        self.add_address("example.org")
        screens.await_gone(NO_SITES)
        screens.click("Remove example.org", "push button")
        screens.find(NO_SITES)
        self.await_stored("allowedDomains", [[]])

    # --- Browsers -------------------------------------------------------------------------------------------------

    def test_the_permission_of_a_browser_is_asked_for_while_it_is_allowed(self):
        self.install("google-chrome", "Big Browser")
        screens = self.edit(profile(allowed=[]))
        self.assertFalse(screens.is_there("Browser permission"))
        self.open_picker()
        screens.click("Big Browser", "check box")
        self.close_picker()
        self.await_stored("allowedApps", [[{"bundleID": BROWSER, "name": "Big Browser"}]])
        screens.find("Browser permission", "heading")
        screens.tab_to(CHECK, "push button")
        screens.tab_to("Remove Big Browser", "push button", key="shift+Tab")
        screens.key("Return")
        screens.await_gone("Browser permission")
        self.assertFalse(screens.is_there(CHECK))
        self.assertFalse(screens.is_there(NO_SITES))
        self.await_stored("allowedApps", [[]])


def write_icon(path):
    """A square of one colour as a PNG."""
    side = 64

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    rows = (b"\0" + bytes(ICON_COLOUR) * side) * side
    header = struct.pack(">IIBBBBB", side, side, 8, 2, 0, 0, 0)
    path.write_bytes(
        b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b"")
    )


if __name__ == "__main__":
    sys.exit(main(__doc__))
