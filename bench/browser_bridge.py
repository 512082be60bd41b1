#!/usr/bin/env python3
"""How long it takes to ask real browsers for their windows, and what the host costs.

Usage: browser_bridge.py FOLDER_OF_PROGRAMS FOLDER_OF_THE_EXTENSION [chromium] [firefox]

Prints medians and 95th percentiles: of `velmorin-browser-script` as a whole process, of a round trip to the host alone,
and of blanking until the browser shows the blank page; then the host's memory. Firefox needs root, see
tests/desktop/browser_bridge_test.py, whose desktop and browsers these are.
"""

import contextlib
import os
import socket
import statistics
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path[:0] = [str(ROOT / "tests/desktop"), str(ROOT / "tests/browsers")]

import browser_bridge_test as bridge  # noqa: E402
from desktop import Desktop, wait_until  # noqa: E402
from playing import blank_script, list_script  # noqa: E402

ROUNDS = 300
BLANKINGS = 30


def show(name, seconds):
    milliseconds = sorted(1000 * each for each in seconds)
    p95 = milliseconds[int(0.95 * (len(milliseconds) - 1))]
    print(f"  {name:34} median {statistics.median(milliseconds):7.2f} ms   p95 {p95:7.2f} ms   of {len(seconds)}")


def timed(action, rounds=ROUNDS):
    times = []
    for _ in range(rounds):
        start = time.perf_counter()
        action()
        times.append(time.perf_counter() - start)
        time.sleep(0.01)
    return times


def run(environment, program, *arguments):
    """(exit status, output), by the quickest way there is to start a process from here."""
    reading, writing = os.pipe()
    actions = [(os.POSIX_SPAWN_DUP2, writing, 1), (os.POSIX_SPAWN_CLOSE, reading)]
    process = os.posix_spawn(program, [program, *arguments], environment, file_actions=actions)
    os.close(writing)
    with os.fdopen(reading, "rb") as stream:
        output = stream.read()
    return os.waitstatus_to_exitcode(os.waitpid(process, 0)[1]), output.decode()


def ask_host(path):
    with socket.socket(socket.AF_UNIX) as client:
        client.connect(str(path))
        client.sendall(b"list\n")
        data = b""
        while not data.endswith(b"end\n"):
            data += client.recv(65536)


def memory(process):
    values = {}
    for line in Path(f"/proc/{process}/smaps_rollup").read_text().splitlines()[1:]:
        name, value, *_ = line.split()
        values[name.rstrip(":")] = int(value)
    return values["Pss"], values["Private_Clean"] + values["Private_Dirty"]


def measure(world, kind):
    with Desktop() as desktop, contextlib.ExitStack() as stack:
        world.desktop, world.stack = desktop, stack
        script = list_script(kind.identity)
        lines = lambda: run(desktop.environment, world.script, "-e", script)
        page = f"{world.origin}/page"
        browser = kind(world).start(page)
        wait_until(lambda: page in lines()[1], step=0.2)
        time.sleep(3)
        path = next((desktop.runtime / "velmorin" / "browsers").iterdir())
        show("list, the whole script process", timed(lines))
        show("--help, the start of a process alone", timed(lambda: run(desktop.environment, world.script, "--help")))
        show("list, a round trip to the host", timed(lambda: ask_host(path)))
        show("blanking, until it is seen", [blanking(world, browser, lines, number) for number in range(BLANKINGS)])
        pss, private = memory(path.name.rpartition(".")[2])
        print(f"  host: Pss {pss} kB, private {private} kB", flush=True)


def blanking(world, browser, lines, number):
    """The seconds from the start of the script to the blank page, seen by asking again and again."""
    page = f"{world.origin}/{number}"
    browser.open(page)
    line = wait_until(lambda: [each for each in lines()[1].splitlines() if each.endswith(page)])[0]
    start = time.perf_counter()
    run(world.desktop.environment, world.script, "-e", blank_script(browser.identity, line.split("|||")[0]))
    while page in lines()[1]:
        pass
    return time.perf_counter() - start


def main(programs, extension, *names):
    for name in names or ("chromium", "firefox"):
        bridge.BROWSER = {"chromium": bridge.Chromium, "firefox": bridge.Firefox}[name]
        reason = bridge.reason_to_skip(name)
        if reason:
            print(f"{name}: skipped: {reason}")
            continue
        world = bridge.WORLD = bridge.World(Path(programs).resolve(), Path(extension).resolve())
        archive = f"{world.extension}/velmorin.xpi"
        print(f"{name}:", flush=True)
        needs_policy = name == "firefox" and os.geteuid() == 0
        with bridge.unsigned_extension(archive) if needs_policy else contextlib.nullcontext():
            measure(world, bridge.BROWSER)


if __name__ == "__main__":
    main(*sys.argv[1:])
