#!/usr/bin/env python3
"""Measures what a session costs in which nothing happens: processor, wake-ups and memory of velmorin-lock and of what
guards it.

Usage: session_cost.py PROGRAMS [--minutes N] [--windows N] [--processes N] [--wm NAME]

PROGRAMS is the folder of the built programs (preset release).
"""

import argparse
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "desktop"))
from desktop import WINDOW_MANAGERS, Desktop, wait_until  # noqa: E402
from figures import figures_of, names_of_threads  # noqa: E402
from session import Lock, Windows, profile  # noqa: E402

CALM = 20.0  # seconds after which nothing is left of the beginning, not even the threads that GLib keeps for a while
MOST_CPU = 0.05  # percent of a core
MOST_SWITCHES = 2.0  # a second, over all threads
MOST_MEMORY = 15.0  # MB of Pss


def show_windows(desktop, windows, programs, count, processes):
    """So many windows of so many processes, every other one allowed."""
    shown = []
    for number in range(processes):
        share = count // processes + (number < count % processes)
        name = f"allowed{number}" if number % 2 == 0 else f"game{number}"
        shown.append(desktop.start(
            programs / "velmorin-test-window", "--class", name, "--title", name, "--windows", share))
        wait_until(lambda: len(windows.of(shown[-1].pid)) == share)
    return [f"allowed{number}" for number in range(0, processes, 2)], shown[1::2]


def tell(name, before, after, seconds):
    cpu = (after.cpu - before.cpu) / seconds * 100
    accounted = (after.accounted - before.accounted) / seconds * 100
    voluntary = (after.voluntary - before.voluntary) / seconds
    involuntary = (after.involuntary - before.involuntary) / seconds
    print(f"{name}, {seconds:.0f} s")
    print(f"  {cpu:.4f} % of a core ({accounted:.4f} % with children that ended, by the system's coarse account)")
    print(f"  {voluntary:.3f} waits and {involuntary:.3f} interruptions a second")
    print(f"  before: {before}")
    print(f"  after:  {after}", flush=True)
    return cpu, voluntary + involuntary, after.pss / 1024


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("programs", type=Path)
    parser.add_argument("--minutes", type=float, default=10)
    parser.add_argument("--windows", type=int, default=20)
    parser.add_argument("--processes", type=int, default=6)
    parser.add_argument("--wm", default="openbox", choices=WINDOW_MANAGERS)
    options = parser.parse_args()
    programs = options.programs.resolve()
    with Desktop(options.wm) as desktop:
        windows = Windows(desktop)
        allowed, forbidden = show_windows(desktop, windows, programs, options.windows, options.processes)
        lock = Lock(desktop, programs).start(profile(allowed, minutes=options.minutes + 30))
        lock.await_event("began")
        for process in forbidden:
            wait_until(lambda: windows.are_iconic(windows.of(process.pid)))
        watched = {"velmorin-lock": lock.process.pid}
        watched.update(("keeper of the watchdog", int(pid)) for pid in lock.keepers())
        time.sleep(CALM)
        print("threads: " + ", ".join(names_of_threads(lock.process.pid)), flush=True)
        start = time.monotonic()
        before = {name: figures_of(pid) for name, pid in watched.items()}
        time.sleep(options.minutes * 60)
        after = {name: figures_of(pid) for name, pid in watched.items()}
        seconds = time.monotonic() - start
        cost = {name: tell(name, before[name], after[name], seconds) for name in watched}
    limits = [MOST_CPU, MOST_SWITCHES, MOST_MEMORY]
    missed = [limit for limit, value in zip(limits, cost["velmorin-lock"]) if value > limit]
    print("all targets are met" if not missed else f"missed: {missed}")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
