#!/usr/bin/env python3
"""Measures what the program with windows costs: the picker over many applications, and a locked session with the backdrop
and without it.

Usage: screens_cost.py PROGRAMS [--minutes M] [--applications N] [--wm NAME]

PROGRAMS is the folder of the built programs (preset release). The picker is opened by the mouse at places that
a screen reader has told before, in a process of its own: one that is read aloud costs more.
"""

import argparse
import json
import subprocess
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "desktop"))
from desktop import WINDOW_MANAGERS, Desktop, wait_until  # noqa: E402
from figures import figures_of  # noqa: E402

SETTLED = 4.0  # seconds after which nothing is left of what was done
SINCE_2001 = 978307200.0
MOST_OPEN, MOST_LOCKED = 80.0, 50.0  # MB of Pss
MOST_CPU = {"without backdrop": 0.06, "with backdrop": 0.12}  # percent of a core
MOST_SWITCHES = 2.0  # a second
SERVER = "1280x1024"


def store(desktop, backdrop, session=None):
    folder = desktop.home / ".local/share/Velmorin"
    folder.mkdir(parents=True, exist_ok=True)
    (folder / "settings.json").write_text(json.dumps({"language": "en", "showQuoteBackdrop": backdrop}))
    path = folder / "active-session.json"
    path.unlink(missing_ok=True)
    if session:
        path.write_text(json.dumps(session))


def session_of(seconds):
    return {
        "id": "11111111-2222-4333-8444-555555555555", "profileName": "Work", "mode": "deep", "intent": "Measure",
        "startedAt": time.time() - SINCE_2001 - 60, "segments": [{"kind": "work", "duration": seconds + 600}],
        "allowedBundleIDs": [], "allowedDomains": [], "attempts": 0, "returns": 0, "hiddenBundleIDs": [],
    }


def install(desktop, count):
    """Applications with pictures of their own."""
    entries = desktop.home / ".local/share/applications"
    icons = desktop.home / ".local/share/icons"
    entries.mkdir(parents=True)
    icons.mkdir(parents=True)
    for number in range(count):
        icon = icons / f"bench{number}.png"
        subprocess.run(["convert", "-size", "64x64", f"gradient:#{number * 40503 % 0xFFFFFF:06x}-#20{number % 256:02x}60", str(icon)], check=True)
        (entries / f"bench{number}.desktop").write_text(
            f"[Desktop Entry]\nType=Application\nName=Application {number}\nExec=/bin/true\nIcon={icon}\n"
        )


def end(desktop, process):
    """With whatever would bring it back."""
    desktop.run("pkill", "-KILL", "-f", "velmorin-watchdog", check=False)
    process.kill()
    process.wait()


def lock(desktop, program, name, backdrop, minutes):
    store(desktop, backdrop, session_of(minutes * 60))
    process = desktop.start(program, "--watchdog")
    wait_until(lambda: "resumed" in (desktop.home / ".local/share/Velmorin/events.log").read_text())
    time.sleep(SETTLED)
    began, before = time.monotonic(), figures_of(process.pid)
    time.sleep(minutes * 60)
    after, seconds = figures_of(process.pid), time.monotonic() - began
    cpu = (after.cpu - before.cpu) / seconds * 100
    switches = (after.switches - before.switches) / seconds
    print(f"locked {name}, {seconds:.0f} s: {cpu:.4f} % of a core, {switches:.2f} switches a second\n  {after}", flush=True)
    end(desktop, process)
    return cpu <= MOST_CPU[name] and switches <= MOST_SWITCHES and (not backdrop or after.pss / 1024 <= MOST_LOCKED)


def pick(desktop, program, applications, places):
    store(desktop, True)
    install(desktop, applications)
    process = desktop.start(program)
    time.sleep(SETTLED)
    print(f"main window: {figures_of(process.pid)}")

    def click(place):
        desktop.run("xdotool", "mousemove", *map(str, place), "click", "1")
        time.sleep(SETTLED / 2)

    click(places["Profiles"])
    click(places["Choose apps…"])
    desktop.run("xdotool", "mousemove", "490", "500", "click", "--repeat", "200", "--delay", "20", "5")
    time.sleep(SETTLED)
    opened = figures_of(process.pid)
    print(f"picker over {applications} applications, scrolled to its end: {opened}")
    desktop.run("xdotool", "key", "Escape")
    time.sleep(SETTLED)
    print(f"and closed: {figures_of(process.pid)}", flush=True)
    end(desktop, process)
    return opened.pss / 1024 <= MOST_OPEN


def places_of(options):
    """The middles of what the picker is opened with, as a screen reader tells them. In the system's own Python."""
    import os

    from screens import Program, Screens
    from gi.repository import Atspi

    with Desktop(options.wm, SERVER) as desktop:
        desktop.environment.pop("NO_AT_BRIDGE", None)
        desktop.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        os.environ.update({name: desktop.environment[name] for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS")})
        os.environ.pop("NO_AT_BRIDGE", None)
        Atspi.init()
        program = Program(desktop, options.programs, settings={"language": "en"})
        program.start()
        screens = Screens(desktop, program)
        found = {"Profiles": screens.click("Profiles"), "Choose apps…": screens.find("Choose apps…", "push button")}
        places = {}
        for name, node in found.items():
            x, y, width, height = node.box
            places[name] = (x + width // 2, y + height // 2)
        program.stop()
        return places


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("programs", type=Path)
    parser.add_argument("--minutes", type=float, default=3)
    parser.add_argument("--applications", type=int, default=300)
    parser.add_argument("--wm", default="openbox", choices=WINDOW_MANAGERS)
    parser.add_argument("--places", action="store_true", help=argparse.SUPPRESS)
    options = parser.parse_args()
    if options.places:
        print(json.dumps(places_of(options)))
        return 0
    program = options.programs.resolve() / "Velmorin"
    found = subprocess.run(
        ["/usr/bin/python3", __file__, options.programs, "--places", "--wm", options.wm], capture_output=True, text=True,
        check=True,
    )
    places = json.loads(found.stdout)
    good = []
    with Desktop(options.wm, SERVER) as desktop:
        good.append(pick(desktop, program, options.applications, places))
        for name, backdrop in (("without backdrop", False), ("with backdrop", True)):
            good.append(lock(desktop, program, name, backdrop, options.minutes))
    print("all targets are met" if all(good) else "NOT MET")
    return 0 if all(good) else 1


if __name__ == "__main__":
    sys.exit(main())
