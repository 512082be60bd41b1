#!/usr/bin/env python3
"""Sessions with a real browser: what velmorin-lock lets it show, and when it locks the browser itself.

Usage: browser_session_test.py chromium FOLDER_OF_PROGRAMS FOLDER_OF_THE_EXTENSION [TEST...]

Runs as browser_bridge_test.py does, as root under another user.
"""

import os
import signal
import sys
import time
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "browsers")]

import browser_bridge_test as bridge  # noqa: E402
from desktop import wait_until  # noqa: E402
from session import Lock, Windows, profile  # noqa: E402

CHROME = "com.google.Chrome"
BLANK = "about:blank"


class BrowserSessionTest(bridge.BridgeTest):
    def setUp(self):
        super().setUp()
        self.screen = Windows(self.desktop)
        self.lock = Lock(self.desktop, Path(bridge.WORLD.host).parent)
        self.addCleanup(self.end_session)

    def end_session(self):
        """Nothing may bring the session back when its desktop has gone."""
        self.lock.session_file.unlink(missing_ok=True)
        for pid in self.lock.pids():
            os.kill(pid, signal.SIGKILL)

    def page(self, host, path="page"):
        return f"http://{host}:{bridge.WORLD.server.server_port}/{path}"

    def browse(self, *addresses, has_extension=True, debugging=False):
        self.browser = bridge.BROWSER(bridge.WORLD, has_extension)
        self.browser.command.append("--host-resolver-rules=MAP *.test 127.0.0.1")
        self.browser.start(*addresses, debugging=debugging)
        if has_extension:
            self.await_addresses(*addresses)
        wait_until(self.browser_windows)
        return self.browser

    def open_window(self, address):
        self.browser.open("--new-window", address)

    def browser_windows(self):
        return self.screen.of(self.browser.process.pid)

    def is_hidden(self):
        return self.screen.are_iconic(self.browser_windows())

    def start_session(self, allowed=(CHROME,), domains=("allowed.test",)):
        self.lock.start(profile(allowed, domains), "--ticks")
        self.lock.await_event("began")

    def test_a_forbidden_address_is_blank_at_the_second_tick_at_the_latest(self):
        self.browse(self.page("games.test"))
        self.start_session()
        wait_until(lambda: set(self.windows().values()) == {BLANK}, 5, 0.05)
        self.assertLessEqual(len(self.lock.seen("tick")), 3, "the third tick has hardly begun")
        self.assertIn("blocked site in Chrome: games.test", self.lock.log())
        self.assertFalse(self.is_hidden())

    def test_an_allowed_subdomain_stays(self):
        address = self.page("docs.allowed.test")
        self.browse(address)
        self.start_session()
        time.sleep(5)
        self.assertEqual(list(self.windows().values()), [address])
        self.assertEqual(self.lock.seen("overlay"), [])
        self.assertNotIn("blocked", self.lock.log())

    def test_of_three_windows_two_forbidden_ones_are_blanked_and_it_is_one_attempt(self):
        allowed = self.page("allowed.test")
        self.browse(allowed)
        self.start_session()
        time.sleep(3.2)  # the session's first seconds count no attempt
        before = time.monotonic()
        for host in ("games.test", "more-games.test"):
            self.open_window(self.page(host))
        wait_until(lambda: sorted(self.windows().values()) == [BLANK, BLANK, allowed], 10, 0.05)
        self.assertLess(time.monotonic() - before, 8)
        self.lock.await_event("overlay", state="warning")
        self.assertEqual(self.lock.stored()["attempts"], 1)

    def test_without_the_extension_the_browser_is_hidden_for_want_of_permission(self):
        self.browse(self.page("allowed.test"), has_extension=False)
        time.sleep(10)  # it is given that long to come up
        self.start_session()
        wait_until(self.is_hidden, 6)
        self.assertIn("automation denied for Chrome", self.lock.log())

    def test_a_browser_that_loses_its_host_is_locked_and_back_in_the_next_session(self):
        address = self.page("allowed.test")
        self.browse(address)
        self.start_session()
        time.sleep(4.2)
        self.assertFalse(self.is_hidden())
        (_, host), = self.hosts()
        os.kill(host, signal.SIGKILL)
        killed = time.monotonic()
        wait_until(self.is_hidden, 6, 0.02)
        self.assertLess(time.monotonic() - killed, 4)
        warning = self.lock.await_event("overlay", state="warning")
        self.assertNotEqual(warning["target"], "Chromium", "it says that the permission is missing")
        # By now the extension has its host again, but this session has seen enough.
        wait_until(lambda: any(pid != host for _, pid in self.hosts()))
        time.sleep(2)
        self.assertTrue(self.is_hidden())
        self.end_session()
        self.screen.activate(self.browser_windows()[0])
        self.start_session()
        time.sleep(4.2)
        self.assertFalse(self.is_hidden())
        self.assertEqual(self.windows(), {window: address for window in self.windows()})

    def test_an_extension_switched_off_in_mid_session_locks_the_browser_within_four_seconds(self):
        self.browse(self.page("allowed.test"), debugging=True)
        self.start_session()
        time.sleep(10)  # a younger browser may still be on its way to a host
        self.assertFalse(self.is_hidden())
        self.browser.switch_extension_off()
        switched_off = time.monotonic()
        wait_until(self.is_hidden, 6, 0.02)
        took = time.monotonic() - switched_off
        self.assertLess(took, 4)
        wait_until(lambda: not self.hosts())
        self.assertIn("automation denied for Chrome", self.lock.log())

    def test_a_browser_that_is_not_allowed_is_hidden_and_not_asked(self):
        self.browse(self.page("allowed.test"))
        self.start_session(allowed=["nothing"])
        wait_until(self.is_hidden, 5)
        time.sleep(2)
        self.assertNotIn("Chrome:", self.lock.log())


# What they share is tried by itself.
for name in [name for name in dir(bridge.BridgeTest) if name.startswith("test_")]:
    setattr(BrowserSessionTest, name, None)


if __name__ == "__main__":
    sys.exit(bridge.main(*sys.argv[1:], test=__file__))
