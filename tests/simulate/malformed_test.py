#!/usr/bin/env python3
"""What velmorin-simulate refuses, and how it says so; its command line; and what it leaves behind: nothing.

Usage: malformed_test.py VELMORIN_SIMULATE
"""

import json
import os
import re
import tempfile
import unittest
from pathlib import Path

import simulation
from simulation import APPLICATIONS, START, advance, play, run, text_of

SETUP = {"setup": APPLICATIONS}

# A first line, and what the message must say of it.
BAD_SETUPS = [
    ("nonsense", "not a JSON object"),
    ("[]", "not a JSON object"),
    ('"setup"', "not a JSON object"),
    ('{"setup":{}', "not a JSON object"),
    ('{"setup":{}} trailing', "not a JSON object"),
    ('{"setup":{},"setup":{}}', "not a JSON object"),
    ("{}", '"setup" is missing'),
    ('{"do":"show"}', '"setup" is missing'),
    ('{"setup":5}', '"setup" is not an object'),
    ('{"setup":{"now":"today"}}', '"now" is malformed'),
    ('{"setup":{"timeZone":"Nowhere/AtAll"}}', '"timeZone"'),
    ('{"setup":{"timeZone":1}}', '"timeZone" is malformed'),
    ('{"setup":{"language":7}}', '"language" is malformed'),
    ('{"setup":{"settings":5}}', "set of settings"),
    ('{"setup":{"settings":{"lockPhoneToo":"yes"}}}', "set of settings"),
    ('{"setup":{"files":[]}}', '"files" is not an object'),
    ('{"setup":{"files":{"thoughts.json":[]}}}', '"thoughts.json" is malformed'),
    ('{"setup":{"files":{"../outside.json":"[]"}}}', "cannot be written"),
    ('{"setup":{"files":{"":"[]"}}}', "cannot be written"),
    ('{"setup":{"self":5}}', '"self" is malformed'),
    ('{"setup":{"applications":{}}}', '"applications" is not a list of objects'),
    ('{"setup":{"applications":[5]}}', '"applications" is not a list of objects'),
    ('{"setup":{"applications":[{"pid":0}]}}', '"pid" is no process identifier'),
    ('{"setup":{"applications":[{"pid":2147483648}]}}', '"pid" is no process identifier'),
    ('{"setup":{"applications":[{"pid":2000000000}]}}', '"pid" is too large'),
    ('{"setup":{"applications":[{"pid":1},{"pid":1}]}}', "one process identifier"),
    ('{"setup":{"applications":[{"pid":1,"policy":3}]}}', '"policy" is not 0, 1 or 2'),
    ('{"setup":{"applications":[{"pid":1,"hidden":1}]}}', '"hidden" is malformed'),
    ('{"setup":{"applications":[{"pid":1,"quits":"maybe"}]}}', '"quits" is malformed'),
    ('{"setup":{"applications":[{"pid":1,"bundleID":5}]}}', '"bundleID" is malformed'),
    ('{"setup":{"front":7}}', "in front"),
    ('{"setup":{"front":"editor"}}', '"front" is malformed'),
    ('{"setup":{"installed":"org.example.mail"}}', '"installed" is malformed'),
    ('{"setup":{"onlyBlock":[1]}}', '"onlyBlock" is malformed'),
    ('{"setup":{"exitWaitOverride":"0"}}', '"exitWaitOverride" is malformed'),
    ('{"setup":{"autoReturnFromWarnings":1}}', '"autoReturnFromWarnings" is malformed'),
    ('{"setup":{"watchdogArguments":"-x"}}', '"watchdogArguments" is malformed'),
    ('{"setup":{"launch":"cron"}}', '"launch" is not'),
]

# A step, and what the message must say of it.
BAD_STEPS = [
    ("{", "not a JSON object"),
    ("{}", '"do" is missing'),
    ('{"do":5}', '"do" is malformed'),
    ('{"do":"dance"}', 'no step "dance"'),
    ('{"do":"Show"}', 'no step "Show"'),
    ('{"setup":{}}', '"do" is missing'),
    ('{"do":"start"}', '"profile" is missing'),
    ('{"do":"start","profile":5}', "not a profile"),
    ('{"do":"start","profile":{"mode":"shallow"}}', "not a profile"),
    ('{"do":"start","profile":{"pomodoro":{"workMinutes":"25"}}}', "not a profile"),
    ('{"do":"start","profile":{},"intent":5}', '"intent" is malformed'),
    ('{"do":"advance"}', '"seconds" is missing'),
    ('{"do":"advance","seconds":"1"}', '"seconds" is malformed'),
    ('{"do":"advance","seconds":-1}', '"seconds" is negative'),
    ('{"do":"sleep"}', '"seconds" is missing'),
    ('{"do":"sleep","seconds":-0.5}', '"seconds" is negative'),
    ('{"do":"setClock"}', '"by" is missing'),
    ('{"do":"setClock","by":true}', '"by" is malformed'),
    ('{"do":"launch"}', '"app" is missing'),
    ('{"do":"launch","app":"editor"}', '"app" is not an object'),
    ('{"do":"launch","app":{"pid":10}}', "runs already"),
    ('{"do":"launch","app":{"pid":12},"front":"yes"}', '"front" is malformed'),
    ('{"do":"activate"}', '"pid" is missing'),
    ('{"do":"activate","pid":"10"}', '"pid" is malformed'),
    ('{"do":"unhide"}', '"pid" is missing'),
    ('{"do":"quit","pid":-1}', '"pid" is no process identifier'),
    ('{"do":"quit","pid":1.5}', '"pid" is malformed'),
    ('{"do":"front"}', '"pid" is missing'),
    ('{"do":"front","pid":"nobody"}', '"pid" is malformed'),
    ('{"do":"browser","answers":"denied"}', '"kind" is missing'),
    ('{"do":"browser","kind":"firefox","answers":"denied"}', '"kind" is malformed'),
    ('{"do":"browser","kind":"chrome"}', '"answers" is missing'),
    ('{"do":"browser","kind":"chrome","answers":"yes"}', '"answers" is not an object'),
    ('{"do":"browser","kind":"chrome","answers":{}}', '"tabs" is missing'),
    ('{"do":"browser","kind":"chrome","answers":{"tabs":[["1"]]}}', "a window and an address"),
    ('{"do":"browser","kind":"chrome","answers":{"tabs":[[1,"https://a.example/"]]}}', '"tabs" is malformed'),
    ('{"do":"browser","kind":"chrome","answers":"denied","after":-1}', '"after" is negative'),
    ('{"do":"browser","kind":"chrome","answers":"denied","stubborn":1}', '"stubborn" is malformed'),
    ('{"do":"confirmEmergencyExit"}', '"reason" is missing'),
    ('{"do":"addThought"}', '"text" is missing'),
    ('{"do":"setThoughts"}', '"thoughts" is missing'),
    ('{"do":"setThoughts","thoughts":[{"text":"half a thought"}]}', '"thoughts" is malformed'),
    ('{"do":"settings"}', '"set" is missing'),
    ('{"do":"settings","set":{"showFloatingTimer":"no"}}', "set of settings"),
    ('{"do":"relaunch","watchdog":"yes"}', '"watchdog" is malformed'),
    ('{"do":"disk"}', '"full" is missing'),
    ('{"do":"disk","full":1}', '"full" is malformed'),
    ('{"do":"relay"}', '"up" is missing'),
    ('{"do":"phone"}', '"status" is missing'),
]


class MalformedTest(unittest.TestCase):
    def assert_refused(self, text, line, said):
        done = run(text)
        self.assertEqual(done.returncode, 2, text)
        self.assertRegex(done.stderr, r"^velmorin-simulate: line %d: .*%s.*\n$" % (line, re.escape(said)))
        return done.stdout

    def test_a_malformed_first_line_names_itself(self):
        for first, said in BAD_SETUPS:
            with self.subTest(first):
                self.assertEqual(self.assert_refused(first + "\n" + '{"do":"show"}\n', 1, said), "")

    def test_a_malformed_step_names_its_line_and_ends_the_run(self):
        for step, said in BAD_STEPS:
            with self.subTest(step):
                output = self.assert_refused(text_of(SETUP, {"do": "addThought", "text": "first"}, step, advance(1),
                                                     {"do": "addThought", "text": "never"}), 3, said)
                self.assertIn("first", output)
                self.assertNotIn("never", output)

    def test_empty_lines_are_no_steps_but_count(self):
        self.assert_refused(text_of("", SETUP, "", "  \t", "\r", {"do": "dance"}), 6, "dance")

    def test_without_a_first_line_there_is_no_scene(self):
        for text in ["", "\n", " \n\t\n"]:
            with self.subTest(repr(text)):
                self.assert_refused(text, text.count("\n") + 1, "ends before it has set the scene")

    def test_the_last_line_needs_no_end_and_lines_may_end_as_on_other_systems(self):
        for text in [json.dumps(SETUP) + "\n" + '{"do":"show"}', json.dumps(SETUP) + "\r\n" + '{"do":"show"}\r\n']:
            done = run(text)
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            self.assertEqual(json.loads(done.stdout.splitlines()[-1])["event"], "state")


class CommandLineTest(unittest.TestCase):
    def test_help_is_printed_on_request(self):
        for option in ["--help", "-h"]:
            done = run("", option)
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            self.assertTrue(done.stdout.startswith("Usage: velmorin-simulate "))
            for word in ["--ticks", "--speed", "--help", "setup", "status 2"]:
                self.assertIn(word, done.stdout)

    def test_what_makes_no_sense_shows_the_usage(self):
        for arguments in [["--tick"], ["-x"], ["--speed"], ["--speed", "0"], ["--speed", "-1"], ["--speed", "fast"],
                          ["--speed", "2x"], ["one.jsonl", "two.jsonl"]]:
            with self.subTest(arguments):
                done = run(text_of(SETUP), *arguments)
                self.assertEqual((done.returncode, done.stdout), (2, ""))
                self.assertTrue(done.stderr.startswith("Usage: velmorin-simulate "))

    def test_the_usage_example_works(self):
        lines = [line.strip() for line in run("", "--help").stdout.splitlines() if line.strip().startswith("{")]
        done = run(text_of(*lines))
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(json.loads(done.stdout.splitlines()[-1])["event"], "state")

    def test_a_file_or_standard_input_is_read(self):
        text = text_of(SETUP, START, advance(5))
        expected = run(text).stdout
        self.assertGreater(len(expected), 0)
        self.assertEqual(run(text, "-").stdout, expected)
        with tempfile.TemporaryDirectory() as folder:
            path = Path(folder) / "scenario.jsonl"
            path.write_text(text, encoding="utf-8")
            self.assertEqual(run("ignored", str(path)).stdout, expected)

    def test_a_file_that_cannot_be_read_is_named(self):
        with tempfile.TemporaryDirectory() as folder:
            for path in [folder, os.path.join(folder, "none.jsonl")]:
                done = run("", path)
                self.assertEqual((done.returncode, done.stdout), (2, ""))
                self.assertEqual(done.stderr, "velmorin-simulate: %s cannot be read\n" % path)

    def test_ticks_are_printed_on_request_only(self):
        steps = [START, advance(3)]
        self.assertNotIn("tick", [event["event"] for event in play(*steps)])
        ticks = [event for event in play(*steps, options=["--ticks"]) if event["event"] == "tick"]
        self.assertEqual(ticks, [{"t": time, "event": "tick"} for time in [0, 1, 2, 3]])

    def test_another_speed_plays_the_same_events(self):
        app = {"pid": 12, "bundleID": "org.example.chat", "name": "Chat"}
        text = text_of(SETUP, START, advance(10.7), {"do": "launch", "app": app, "front": True}, advance(0.3),
                       {"do": "sleep", "seconds": 600.1}, advance(1200), {"do": "show"})
        done = run(text, "--speed", "100000")
        self.assertEqual(done.stdout, run(text).stdout)
        self.assertEqual(done.returncode, 0)

    def test_nothing_is_left_behind(self):
        with tempfile.TemporaryDirectory() as folder:
            environment = {**os.environ, "TMPDIR": folder}
            for last, status in [('{"do":"show"}', 0), ('{"do":"dance"}', 2)]:
                done = run(text_of(SETUP, START, advance(60), last), env=environment)
                self.assertEqual(done.returncode, status)
                self.assertEqual(os.listdir(folder), [])

    def test_without_a_place_for_its_files_it_says_so(self):
        done = run(text_of(SETUP), env={**os.environ, "TMPDIR": "/nowhere/at/all"})
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertTrue(done.stderr.startswith("velmorin-simulate: "))


if __name__ == "__main__":
    simulation.main()
