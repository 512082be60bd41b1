#!/usr/bin/env python3
"""Shows by the system calls of a whole process that a tick without news touches no file.

Usage: check_plain_tick.py SIMULATE

Plays the same locked session twice, once with a few seconds in which nothing happens and once with many, under a tracer
of system calls. Every call that takes a file's name counts; both plays must make the same ones. Status 1 when they do
not, 77 when nothing may be traced here.
"""

import json
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

SKIPPED = 77
EDITOR = {"bundleID": "org.example.editor", "name": "Editor"}
GAME = {"bundleID": "org.example.game", "name": "Game"}
PROFILE = {"name": "Work", "mode": "deep", "allowedApps": [EDITOR]}


def scenario(plain_seconds):
    steps = [
        {"setup": {"front": 10, "applications": [{"pid": 10, **EDITOR}, {"pid": 11, **GAME}]}},
        {"do": "start", "profile": PROFILE, "intent": "write"},
        {"do": "advance", "seconds": 5},
        {"do": "activate", "pid": 11},
        {"do": "advance", "seconds": plain_seconds},
        {"do": "returnToWork"},
    ]
    return "".join(json.dumps(step) + "\n" for step in steps)


def file_calls(simulate, plain_seconds):
    """The traced calls of one play, without what differs from run to run; None when tracing is not allowed."""
    with tempfile.TemporaryDirectory() as folder:
        trace = Path(folder) / "trace"
        done = subprocess.run(
            ["strace", "-f", "-e", "trace=%file", "-o", trace, simulate],
            input=scenario(plain_seconds).encode(), stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False,
            # A leak check traces, too, and nothing can be traced twice.
            env={**os.environ, "ASAN_OPTIONS": "detect_leaks=0"},
        )
        if b"ptrace" in done.stderr:
            print(done.stderr.decode())
            return None
        if done.returncode != 0 or b"returned 1" not in done.stdout:
            sys.exit("the session did not go as it should: " + done.stderr.decode())
        lines = trace.read_text().splitlines()
    calls = [re.sub(r"^\d+ +|velmorin-simulate-\w+|0x[0-9a-f]+", "", line) for line in lines]
    return [call for call in calls if not call.startswith("+++")]


def main():
    (simulate,) = sys.argv[1:]
    few, many = file_calls(simulate, 10), file_calls(simulate, 3000)
    if few is None or many is None:
        return SKIPPED
    saves = sum("rename" in call and "active-session.json" in call for call in few)
    print("%d calls that name a file, %d saves of the session, with 10 plain ticks" % (len(few), saves))
    print("%d with 3000" % len(many))
    if saves == 0:
        print("FAILED: the trace shows no save at all")
        return 1
    if few != many:
        print("FAILED: the plain ticks touch files")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
