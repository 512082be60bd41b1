#!/usr/bin/env python3
"""Measures how soon the program is there: from its start until its main window has been painted, and what memory it has
then.

Usage: start_time.py PROGRAMS [--count N] [--wm NAME]

PROGRAMS is the folder of the built programs (preset release). The first starts, which fill the caches, do not count.
"""

import argparse
import statistics
import subprocess
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "desktop"))
from desktop import WINDOW_MANAGERS, Desktop  # noqa: E402
from figures import figures_of  # noqa: E402

WARM_UP = 2  # starts
MOST_TIME = 150.0  # milliseconds, the median
MOST_MEMORY = 55.0  # MB of Pss
AT_REST = 2.0  # seconds after which nothing is left of the beginning


def start(desktop, program):
    """Starts it once, and gives the milliseconds until the window was painted, and what it costs then."""
    environment = {**desktop.environment, "QT_LOGGING_RULES": "velmorin.start.debug=true"}
    began = time.monotonic()
    process = subprocess.Popen([program], env=environment, stderr=subprocess.PIPE, text=True)
    for line in process.stderr:
        if "has been painted" in line:
            break
        print(line, end="", file=sys.stderr)
    took = (time.monotonic() - began) * 1000
    time.sleep(AT_REST)
    used = figures_of(process.pid)
    process.terminate()
    process.wait(10)
    return took, used


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("programs", type=Path)
    parser.add_argument("--count", type=int, default=10)
    parser.add_argument("--wm", default="openbox", choices=WINDOW_MANAGERS)
    arguments = parser.parse_args()
    with Desktop(arguments.wm, "1280x1024") as desktop:
        program = arguments.programs.resolve() / "Velmorin"
        measured = [start(desktop, program) for _ in range(WARM_UP + arguments.count)][WARM_UP:]
    times = [took for took, _ in measured]
    shares = [used.pss / 1024 for _, used in measured]
    print(f"painted after {statistics.median(times):.0f} ms (median of {len(times)}; {min(times):.0f} to {max(times):.0f})")
    print(f"memory: {statistics.median(shares):.1f} MB Pss (median); the last: {measured[-1][1]}")
    is_good = statistics.median(times) < MOST_TIME and statistics.median(shares) < MOST_MEMORY
    print(f"to be below: {MOST_TIME:.0f} ms, {MOST_MEMORY:.0f} MB" + ("" if is_good else ": NOT MET"))
    return 0 if is_good else 1


if __name__ == "__main__":
    sys.exit(main())
