"""Runs velmorin-simulate: what the tests of it share."""

import json
import subprocess
import sys
import unittest

sys.dont_write_bytecode = True

EDITOR = {"pid": 10, "bundleID": "org.example.editor", "name": "Editor"}
GAME = {"pid": 11, "bundleID": "org.example.game", "name": "Game"}
APPLICATIONS = {"language": "en", "front": 10, "applications": [EDITOR, GAME]}
ALLOWED = [{"bundleID": "org.example.editor", "name": "Editor"}]
PROFILE = {"name": "Work", "allowedApps": ALLOWED}
START = {"do": "start", "profile": PROFILE, "intent": "write"}
SHOW = {"do": "show"}

program = None  # the path of velmorin-simulate


def advance(seconds):
    return {"do": "advance", "seconds": seconds}


def text_of(*lines):
    """A scenario of these lines: objects, or texts as they are."""
    return "".join((line if isinstance(line, str) else json.dumps(line)) + "\n" for line in lines)


def run(text="", *arguments, **options):
    """The finished process, with text in and text out."""
    command = [program, *arguments]
    return subprocess.run(
        command, input=text, capture_output=True, encoding="utf-8", check=False, timeout=120, **options
    )


def play(*steps, setup=None, options=()):
    """The events of a scenario that must succeed."""
    done = run(text_of({"setup": APPLICATIONS if setup is None else setup}, *steps), *options)
    if done.returncode or done.stderr:
        raise AssertionError("status %d: %s" % (done.returncode, done.stderr))
    return [json.loads(line) for line in done.stdout.splitlines()]


def after(events, time):
    """The events from a moment on, without their times."""
    return [{key: value for key, value in event.items() if key != "t"} for event in events if event["t"] >= time]


def named(events, *names):
    return [event for event in events if event["event"] in names]


def names(events):
    return [event["event"] for event in events]


def state(*steps, **options):
    """What `show` tells after the steps."""
    return play(*steps, SHOW, **options)[-1]


def main(arguments=1):
    """Runs the tests of the calling file with the program that the command line names."""
    global program
    if len(sys.argv) <= arguments:
        sys.exit("Usage: %s VELMORIN_SIMULATE ..." % sys.argv[0])
    program = sys.argv[1]
    unittest.main(argv=[sys.argv[0], *sys.argv[1 + arguments :]])
