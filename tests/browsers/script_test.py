#!/usr/bin/env python3
"""The script tool with the real host and played browsers: what it prints, and when it calls a browser one that refuses.

Usage: script_test.py FOLDER_OF_PROGRAMS FOLDER_OF_THE_EXTENSION [CLASS...]
"""

import os
import signal
import socket
import subprocess
import sys
import threading
import time
import unittest
from pathlib import Path

from playing import PATIENCE, World, blank_script, eventually, frame, list_script

PROGRAMS = None
REFUSED = "-1743"


class Asking(unittest.TestCase):
    """All browsers of a kind that run are asked, so those who test at the same time need kinds of their own."""

    def setUp(self):
        self.world = World(PROGRAMS)
        self.addCleanup(self.world.close)

    def browser(self):
        return self.world.browser(self.kind)

    def list(self, browser):
        return self.world.run_script(list_script(browser.identity))

    def assert_lists(self, browser, *expected):
        status, output, error, _ = self.list(browser)
        self.assertEqual((status, sorted(output.splitlines()), error), (0, sorted(expected), ""))

    def assert_refused(self, result, at_least=0.0, at_most=PATIENCE):
        status, output, error, seconds = result
        self.assertEqual((status, output), (1, ""))
        self.assertIn(REFUSED, error)
        self.assertGreaterEqual(seconds, at_least)
        self.assertLessEqual(seconds, at_most)

    def assert_failed(self, result):
        status, output, error, _ = result
        self.assertEqual((status, output), (1, ""))
        self.assertTrue(error)
        self.assertNotIn(REFUSED, error)


class ScriptTest(Asking):
    kind = "brave"

    # --- Lists and windows ----------------------------------------------------------------------------------------

    def test_every_window_of_every_profile_and_process_has_its_line(self):
        one, other = self.browser(), self.browser()
        profiles = [one.start_host().ready(), one.start_host().ready(), other.start_host().ready()]
        lines = []
        for number, host in enumerate(profiles):
            # The browsers count their windows alike.
            host.shows(f"http://{number}.example/", f"http://more{number}.example/")
            lines.append(f"{host.window(1)}|||http://{number}.example/")
            lines.append(f"{host.window(2)}|||http://more{number}.example/")
        self.assert_lists(one, *lines)

    def test_a_browser_without_windows_has_answered(self):
        browser = self.browser()
        browser.start_host().ready()
        self.assert_lists(browser)

    def test_a_window_is_blanked_where_it_is(self):
        browser = self.browser()
        hosts = [browser.start_host().ready(), browser.start_host().ready()]
        result = self.world.run_script(blank_script(browser.identity, hosts[1].window(1171247783, 1)))
        self.assertEqual(result[:3], (0, "", ""))
        self.assertEqual(hosts[0].requests, [])
        self.assertEqual(hosts[1].requests, [{"id": 1, "do": "blank", "window": 1171247783, "place": 1}])

    def test_what_is_no_window_is_not_blanked_and_succeeds(self):
        browser = self.browser()
        host = browser.start_host().ready()
        for window in ("", "1", "12", f"{host.pid + 1}{1:016}0", f"0{host.window(1)}", "9" * 60):
            result = self.world.run_script(blank_script(browser.identity, window))
            self.assertEqual(result[:3], (0, "", ""), window)
        result = self.world.run_script(blank_script("com.google.Chrome", host.window(1)))
        self.assertEqual(result[:3], (0, "", ""), "another browser's window")
        self.assertEqual(host.requests, [])

    def test_no_address_makes_a_second_line(self):
        browser = self.browser()
        hostile = "http://a.example/%0a|||\n1|||x\r\u2028\u2029\u0085\v\f\0\x1b"
        host = browser.start_host().ready().shows(hostile)
        safe = "http://a.example/%0a|||%0A1|||x%0D%E2%80%A8%E2%80%A9%C2%85%0B%0C%00%1B"
        self.assertEqual(self.list(browser)[:3], (0, f"{host.window(1)}|||{safe}\n", ""))

    def test_not_even_a_false_host_makes_a_second_line(self):
        browser = self.browser()
        browser.start_host().ready()
        path = self.world.sockets / f"{browser.identity}.{browser.pid}.{os.getpid()}"
        with socket.socket(socket.AF_UNIX) as listener:
            listener.bind(str(path))
            listener.listen()

            def serve():
                client, _ = listener.accept()
                client.recv(100)
                client.sendall("tab 1 0 a\u2028b\u0085c\rd\nend\n".encode())
                client.close()

            threading.Thread(target=serve, daemon=True).start()
            status, output, _, _ = self.list(browser)
        self.assertEqual((status, len(output.splitlines())), (0, 1), output)

    def test_an_extension_that_fails_is_no_refusal(self):
        browser = self.browser()
        host = browser.start_host().ready()
        host.answer = lambda request: host.send(
            frame({"id": request["id"], "error": "something is wrong"})
        )
        result = self.list(browser)
        self.assert_failed(result)
        self.assertIn("something is wrong", result[2])

    # --- Browsers that come, hang and go ----------------------------------------------------------------------------

    def test_a_browser_that_does_not_run_is_no_refusal(self):
        result = self.world.run_script(list_script("com.brave.Browser"))
        self.assert_failed(result)
        self.assertIn("not running", result[2])
        self.assertLess(result[3], 1)

    def test_a_browser_that_is_coming_up_is_waited_for(self):
        browser = self.browser()
        asked = self.world.start_script(list_script(browser.identity))
        time.sleep(2)
        self.assertIsNone(asked.poll())
        host = browser.start_host().shows("http://a.example/")
        output, error = asked.communicate(timeout=PATIENCE)
        self.assertEqual((asked.returncode, output, error), (0, f"{host.window(1)}|||http://a.example/\n", ""))

    def test_another_browser_that_is_coming_up_keeps_no_answer_back(self):
        first = self.browser()
        host = first.start_host().ready().shows("http://a.example/")
        self.browser()
        self.assert_lists(first, f"{host.window(1)}|||http://a.example/")

    def test_a_browser_that_hangs_is_waited_for_until_the_caller_ends_it(self):
        browser = self.browser()
        host = browser.start_host().ready().shows("http://a.example/")
        for stop in (True, False):
            # The whole browser stands still, or only its answer fails to come.
            host.answers = False
            if stop:
                browser.stop()
            asked = self.world.start_script(list_script(browser.identity))
            time.sleep(4)
            self.assertIsNone(asked.poll())
            asked.terminate()
            output, error = asked.communicate(timeout=PATIENCE)
            self.assertNotEqual(asked.returncode, 0)
            self.assertEqual((output, error), ("", ""))
            browser.go_on()
            host.answers = True
            self.assert_lists(browser, f"{host.window(1)}|||http://a.example/")

    def test_a_browser_that_stands_still_hides_no_other(self):
        still, other = self.browser(), self.browser()
        still.start_host().ready().answers = False
        still.stop()
        host = other.start_host().ready().shows("http://a.example/")
        status, output, _, seconds = self.list(other)
        self.assertEqual((status, output), (0, f"{host.window(1)}|||http://a.example/\n"))
        self.assertLess(seconds, 4)

    def test_a_browser_that_quits_meanwhile_is_no_refusal(self):
        browser = self.browser()
        host = browser.start_host().ready()
        host.answers = False
        asked = self.world.start_script(list_script(browser.identity))
        eventually(lambda: host.requests)
        browser.kill()
        output, error = asked.communicate(timeout=PATIENCE)
        self.assert_failed((asked.returncode, output, error, 0))

    def test_a_part_of_a_browser_is_no_browser(self):
        browser = self.browser()
        browser.part("--type=renderer")
        browser.part("--headless=new")
        time.sleep(0.3)
        host = browser.start_host().ready().shows("http://a.example/")
        self.assert_lists(browser, f"{host.window(1)}|||http://a.example/")

    # --- The tool itself ------------------------------------------------------------------------------------------------

    def test_other_arguments_and_scripts_are_errors(self):
        script = list_script("com.brave.Browser")
        for arguments in ([], ["-e"], [script], ["-x", script], ["-e", script, "more"], ["-e", ""], ["-e", script + "\n"],
                          ["-e", list_script("com.apple.Safari")], ["-e", 'do shell script "true"']):
            done = subprocess.run([self.world.script, *arguments], capture_output=True, text=True)
            self.assert_failed((done.returncode, done.stdout, done.stderr, 0))

    def test_the_help_tells_of_every_browser(self):
        done = subprocess.run([self.world.script, "--help"], capture_output=True, text=True)
        self.assertEqual(done.returncode, 0)
        for word in ("com.google.Chrome", "org.mozilla.firefox", "com.vivaldi.Vivaldi", "-1743", "XDG_RUNTIME_DIR"):
            self.assertIn(word, done.stdout)

    def test_output_that_nobody_takes_is_an_error(self):
        with open("/dev/full", "w") as full:
            done = subprocess.run([self.world.script, "--help"], stdout=full)
        self.assertEqual(done.returncode, 1)


class RefusalTest(Asking):
    """What cannot be watched."""

    kind = "msedge"

    def test_a_browser_without_a_host_is_refused_once_it_is_up(self):
        browser = self.browser()
        self.assert_refused(self.list(browser), at_least=8, at_most=11)
        # And then without delay, but for the moment in which a host might come back.
        self.assert_refused(self.list(browser), at_most=2)

    def test_one_browser_without_a_host_is_enough(self):
        with_host, without = self.browser(), self.browser()
        with_host.start_host().ready()
        without.grow_old()
        self.assert_refused(self.list(with_host), at_most=2)

    def test_a_killed_host_is_refused_within_the_next_poll(self):
        browser = self.browser()
        host = browser.start_host().ready()
        self.assert_lists(browser)
        host.kill()
        self.assert_refused(self.list(browser), at_most=2)
        browser.start_host().ready().shows("http://a.example/")
        self.assertEqual(self.list(browser)[0], 0, "and watched again with the next one")

    def test_a_killed_host_is_refused_though_another_profile_has_one(self):
        browser = self.browser()
        killed = browser.start_host().ready()
        browser.start_host().ready()
        killed.kill()
        self.assert_refused(self.list(browser), at_most=2)

    def test_a_host_that_is_killed_before_it_has_answered_is_refused(self):
        browser = self.browser()
        host = browser.start_host().ready()
        host.answers = False
        asked = self.world.start_script(list_script(browser.identity))
        eventually(lambda: host.requests)
        host.kill()
        start = time.monotonic()
        output, error = asked.communicate(timeout=PATIENCE)
        self.assert_refused((asked.returncode, output, error, time.monotonic() - start), at_most=2)

    def test_a_host_that_comes_back_in_time_is_asked(self):
        browser = self.browser()
        browser.grow_old()
        browser.start_host().ready().kill()
        asked = self.world.start_script(list_script(browser.identity))
        time.sleep(0.3)
        host = browser.start_host().shows("http://a.example/")
        output, error = asked.communicate(timeout=PATIENCE)
        self.assertEqual((asked.returncode, output, error), (0, f"{host.window(1)}|||http://a.example/\n", ""))

    def test_a_profile_that_was_closed_leaves_no_trace(self):
        browser = self.browser()
        browser.grow_old()
        browser.start_host().ready().leave()
        host = browser.start_host().ready().shows("http://a.example/")
        eventually(lambda: len(os.listdir(self.world.sockets)) == 1)
        self.assert_lists(browser, f"{host.window(1)}|||http://a.example/")

    def test_a_host_that_was_stopped_is_refused(self):
        browser = self.browser()
        host = browser.start_host().ready()
        host.kill(signal.SIGSTOP)
        self.assert_refused(self.list(browser), at_least=1.9, at_most=3.5)
        host.kill(signal.SIGCONT)
        self.assert_lists(browser)

    def test_an_extension_whose_process_was_stopped_is_refused(self):
        browser = self.browser()
        host = browser.start_host().ready()
        host.answers = False
        part = browser.part("--type=renderer", "--extension-process")
        os.kill(part, signal.SIGSTOP)
        self.assert_refused(self.list(browser), at_least=1.9, at_most=3.5)

    def test_a_stopped_program_that_is_no_part_of_the_browser_changes_nothing(self):
        browser = self.browser()
        host = browser.start_host().ready()
        host.answers = False
        # A host of another program, say.
        other = browser.start_host(command=["/bin/sleep", "1000"])
        other.kill(signal.SIGSTOP)
        asked = self.world.start_script(list_script(browser.identity))
        time.sleep(3.5)
        self.assertIsNone(asked.poll())
        asked.kill()
        asked.communicate()

    def test_a_folder_that_lets_others_in_is_refused_while_a_browser_runs(self):
        browser = self.browser()
        browser.start_host().ready()
        self.world.sockets.chmod(0o755)
        self.assert_refused(self.list(browser))
        browser.kill()
        self.assert_failed(self.list(browser))


if __name__ == "__main__":
    PROGRAMS = Path(sys.argv[1]).resolve()
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
