#!/usr/bin/env python3
"""A look of the watchdog that finds the program is one process, which starts no other.

Usage: watchdog_look_test.py WATCHDOG
"""

import os
import re
import subprocess
import sys

SKIPPED = 77


def trace(arguments):
    """The processes that a look has made, and the programs it has become, as strace sees them; None where it may not
    trace."""
    # A leak check is a process of its own, and cannot be traced.
    environment = {**os.environ, "ASAN_OPTIONS": "detect_leaks=0"}
    command = ["strace", "-f", "-qq", "-e", "trace=execve,clone,clone3,fork,vfork", *arguments]
    try:
        done = subprocess.run(command, stderr=subprocess.PIPE, env=environment, timeout=60, check=False)
    except FileNotFoundError:
        return None
    lines = done.stderr.decode(errors="replace").splitlines()
    calls = [match[1] for line in lines if (match := re.search(r"\b(execve|clone3?|v?fork)\(", line))]
    return calls or None


def main():
    (watchdog,) = sys.argv[1:]
    with open("/proc/self/comm", encoding="utf-8") as file:
        own = file.read().rstrip("\n")
    calls = trace([watchdog, "check", own, "/nowhere/environment", "/nowhere/program"])
    if calls is None:
        print("strace cannot be used here")
        return SKIPPED
    print(f"the look called {calls}")
    return 0 if calls == ["execve"] else 1


if __name__ == "__main__":
    sys.exit(main())
