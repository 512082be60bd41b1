#!/usr/bin/env python3
"""Measures what a session costs in which nothing happens: processor, wake-ups and memory of velmorin-lock and of what
guards it.

Usage: session_cost.py PROGRAMS [--minutes N] [--windows N] [--processes N] [--wm NAME] [--service-manager]
                       [--browser EXTENSION]

PROGRAMS is the folder of the built programs (preset release). With --service-manager, that of a user guards the session
in the place of the watchdog's own process. With --browser, an allowed Chromium with the extension of this folder shows
an allowed page; its user must run no other Chromium meanwhile, which would be locked for want of the extension.
"""

import argparse
import contextlib
import sys
import time
from pathlib import Path

TESTS = Path(__file__).resolve().parent.parent / "tests"
sys.path[:0] = [str(TESTS / "desktop"), str(TESTS / "browsers")]
import browser_bridge_test as bridge  # noqa: E402
from desktop import WINDOW_MANAGERS, Desktop, wait_until  # noqa: E402
from figures import figures_of, names_of_threads  # noqa: E402
from session import Lock, Windows, profile  # noqa: E402
from user_manager import UserManager  # noqa: E402

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


def show_browser(desktop, stack, windows, programs, extension):
    world = bridge.WORLD = bridge.World(programs, extension.resolve())
    world.desktop, world.stack = desktop, stack
    browser = bridge.Chromium(world)
    browser.command.append("--host-resolver-rules=MAP *.test 127.0.0.1")
    browser.start(f"http://allowed.test:{world.server.server_port}/page")
    wait_until(lambda: windows.of(browser.process.pid))
    wait_until(lambda: list((desktop.runtime / "velmorin" / "browsers").glob("*")))
    return [bridge.Chromium.identity]


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
    parser.add_argument("--service-manager", action="store_true")
    parser.add_argument("--browser", type=Path)
    options = parser.parse_args()
    programs = options.programs.resolve()
    with contextlib.ExitStack() as stack:
        desktop = stack.enter_context(Desktop(options.wm))
        watched = {}
        if options.service_manager:
            manager = stack.enter_context(UserManager(desktop))
            watched["service manager and the looks that it starts"] = manager.process.pid
        windows = Windows(desktop)
        allowed, forbidden = show_windows(desktop, windows, programs, options.windows, options.processes)
        if options.browser:
            allowed += show_browser(desktop, stack, windows, programs, options.browser)
        lock = Lock(desktop, programs).start(profile(allowed, ["allowed.test"], minutes=int(options.minutes) + 30))
        lock.await_event("began")
        for process in forbidden:
            wait_until(lambda: windows.are_iconic(windows.of(process.pid)))
        watched["velmorin-lock"] = lock.process.pid
        watched.update(("keeper of the watchdog", int(pid)) for pid in lock.keepers())
        time.sleep(CALM)
        print("threads: " + ", ".join(names_of_threads(lock.process.pid)), flush=True)
        start = time.monotonic()
        before = {name: figures_of(pid) for name, pid in watched.items()}
        time.sleep(options.minutes * 60)
        after = {name: figures_of(pid) for name, pid in watched.items()}
        seconds = time.monotonic() - start
        cost = {name: tell(name, before[name], after[name], seconds) for name in watched}
        if lock.log().count("hid ") > len(forbidden) or "automation denied" in lock.log():
            raise RuntimeError("something has happened:\n" + lock.log())
    limits = [MOST_CPU, MOST_SWITCHES, MOST_MEMORY]
    missed = [limit for limit, value in zip(limits, cost["velmorin-lock"]) if value > limit]
    print("all targets are met" if not missed else f"missed: {missed}")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
