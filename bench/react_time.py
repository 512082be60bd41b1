#!/usr/bin/env python3
"""Measures how soon a forbidden window is off the screen again, beside the least that any program can do.

Usage: react_time.py PROGRAMS [COUNT] [MANAGER...]

PROGRAMS is the folder of the built programs (preset release). Prints, for each window manager, the figures of a bare loop
and of velmorin-lock, turn by turn, from the same desktop.
"""

import json
import subprocess
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "desktop"))
from desktop import Desktop  # noqa: E402
from session import profile  # noqa: E402


def measure(desktop, programs, count, name, command):
    print(f"  {name}", flush=True)
    done = subprocess.run(
        [programs / "react_time", programs / "velmorin-test-window", str(count), *command], env=desktop.environment,
        capture_output=True, text=True, timeout=600, stdin=subprocess.DEVNULL)
    for line in done.stdout.splitlines():
        if line.startswith(("active", "request")):
            print("    " + line, flush=True)
    if done.returncode != 0:
        print("    failed: " + done.stderr.strip())


def main():
    programs = Path(sys.argv[1]).resolve()
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 200
    for manager in sys.argv[3:] or ["openbox", "xfwm4"]:
        print(manager)
        for _ in range(2):
            for name in ("bare loop", "velmorin-lock"):
                # A desktop for each: a session that is killed goes on.
                with Desktop(manager) as desktop:
                    path = desktop.folder / "profile.json"
                    path.write_text(json.dumps(profile(["allowed"], minutes=60)))
                    locker = [programs / "velmorin-lock", "--home", desktop.home / "store", path]
                    measure(desktop, programs, count, name, ["bare"] if name == "bare loop" else locker)


if __name__ == "__main__":
    main()
