"""The real program on a desktop of the tests: what a screen reader finds on its screens, and the hands that use them.

Needs the system's own Python, which has the bindings of AT-SPI. One desktop for each process: the bindings keep the bus
that they have found first.
"""

import argparse
import contextlib
import json
import os
import shutil
import sys
import unittest
import uuid
from pathlib import Path

try:
    import gi

    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, GLib
except (ImportError, ValueError) as error:
    print(f"Skipped: there is no way to read the screens ({error})")
    sys.exit(77)

from desktop import WINDOW_MANAGERS, Desktop, wait_until  # noqa: E402
from session import COMPANIONS, Windows, now  # noqa: E402

# The three monitors, side by side on one screen of the server.
MONITORS = {"*A": "1280/339x800/212+0+0", "B": "1024/271x768/203+1280+0", "C": "640/170x480/127+2304+0"}
SERVER_SIZE = "2944x800"

# What a user can act on: each of these needs a name.
CONTROLS = {
    "push button", "toggle button", "check box", "radio button", "slider", "text", "entry", "list item", "page tab",
    "link", "menu item", "combo box", "spin button",
}

# What holds other things, or calls for attention: these need one too.
CONTAINERS = {"panel", "grouping", "dialog", "alert", "notification", "list"}

ENGLISH = {"language": "en", "colorTheme": "dusk", "showFloatingTimer": False, "lockPhoneToo": False}


def on_three_monitors(wm="openbox"):
    """A desktop with three monitors and an accessibility bus."""
    desktop = Desktop(wm, SERVER_SIZE)
    desktop.__enter__()
    desktop.environment.pop("NO_AT_BRIDGE", None)
    desktop.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
    # The bindings look for their bus by the environment of this process.
    for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR", "HOME"):
        os.environ[name] = desktop.environment[name]
    os.environ.pop("NO_AT_BRIDGE", None)
    add_monitors(desktop)
    Atspi.init()
    return desktop


def add_monitors(desktop, names=MONITORS):
    for name in names:
        desktop.run("xrandr", "--setmonitor", name, MONITORS[name], "screen" if name == "*A" else "none")


def add_missing_monitors(desktop):
    present = desktop.run("xrandr", "--listactivemonitors")
    add_monitors(desktop, [name for name in MONITORS if f"{name.lstrip('*')} " not in present])


def remove_monitor(desktop, name):
    desktop.run("xrandr", "--delmonitor", name)


class Program:
    """Velmorin with a store of its own, in the usual place below the desktop's home folder."""

    def __init__(self, desktop, programs, *, settings=None, profiles=None, session=None, history=None):
        self.desktop = desktop
        self.store = desktop.home / ".local/share/Velmorin"
        shutil.rmtree(self.store, ignore_errors=True)
        self.store.mkdir(parents=True)
        for name, value in {
            "settings": settings, "profiles": profiles, "active-session": session, "history": history,
        }.items():
            if value is not None:
                (self.store / f"{name}.json").write_text(json.dumps(value))
        # The watchdog goes by the name of the program, so that each test has one of its own.
        self.folder = desktop.folder / f"bin-{uuid.uuid4().hex[:6]}"
        self.folder.mkdir()
        self.path = self.folder / f"Velm-{uuid.uuid4().hex[:8]}"
        for name in COMPANIONS:
            if (Path(programs) / name).exists():
                shutil.copy(Path(programs) / name, self.folder / name)
        shutil.copy(Path(programs) / "Velmorin", self.path)
        # What comes with the program is looked for beside the tree that it was built in.
        self.resources = self.folder.parent / "share" / "velmorin"
        if not self.resources.exists():
            self.resources.parent.mkdir(exist_ok=True)
            self.resources.symlink_to(Path(__file__).resolve().parents[2] / "resources")
        self.process = None

    def start(self, *arguments):
        """Starts it, and gives the process."""
        self.process = self.desktop.start(self.path, *arguments, log="program")
        return self.process

    def stop(self):
        """As by a kill, with whatever would bring it back."""
        for word in ("watchdog", self.path.name):
            self.desktop.run("pkill", "-KILL", "-f", f"{self.folder}/.*{word}", check=False)
        if self.process is not None:
            self.process.wait()

    def pids(self):
        found = self.desktop.run("pgrep", "-r", "RSDT", "-x", self.path.name, check=False).split()
        return [int(pid) for pid in found]

    def stored(self, name):
        """What a file of the store holds; None where there is none."""
        path = self.store / f"{name}.json"
        return json.loads(path.read_text()) if path.exists() else None

    def log(self):
        path = self.store / "events.log"
        return path.read_text() if path.exists() else ""


class Node:
    """Something on a screen, as a screen reader is told of it."""

    def __init__(self, accessible):
        self.accessible = accessible
        self.name = accessible.get_name() or ""
        self.role = accessible.get_role_name()

    @property
    def box(self):
        extents = Atspi.Component.get_extents(self.accessible, Atspi.CoordType.SCREEN)
        return extents.x, extents.y, extents.width, extents.height

    def has(self, state):
        self.accessible.clear_cache()  # not every change is announced
        return self.accessible.get_state_set().contains(getattr(Atspi.StateType, state.upper()))

    @property
    def is_enabled(self):
        return self.has("enabled")

    @property
    def is_focused(self):
        return self.has("focused")

    @property
    def is_checked(self):
        return self.has("checked")

    @property
    def text(self):
        count = Atspi.Text.get_character_count(self.accessible)
        return Atspi.Text.get_text(self.accessible, 0, count)

    @property
    def value(self):
        return Atspi.Value.get_current_value(self.accessible)

    def children(self):
        for index in range(self.accessible.get_child_count()):
            child = self.accessible.get_child_at_index(index)
            if child is not None:
                yield Node(child)

    def walk(self, depth=0):
        """This and everything below it, with how deep it lies."""
        yield depth, self
        for child in self.children():
            yield from child.walk(depth + 1)

    def __repr__(self):
        return f"{self.role} {self.name!r}"


class Screens:
    """The windows of one program, found and used as its user would."""

    def __init__(self, desktop, program):
        self.desktop = desktop
        self.program = program

    # --- Finding ------------------------------------------------------------------------------------------------

    def applications(self):
        desk = Atspi.get_desktop(0)
        for index in range(desk.get_child_count()):
            child = desk.get_child_at_index(index)
            if child is not None and child.get_process_id() in self.program.pids():
                yield Node(child)

    def windows(self):
        return [window for application in self.applications() for window in application.children()]

    def nodes(self):
        for window in self.windows():
            for _, node in window.walk():
                yield node

    def all(self, name=None, role=None):
        """Everything on the screen with this name (a text, or a condition for it) and this role."""

        def fits(node):
            named = name is None or (name(node.name) if callable(name) else node.name == name)
            return named and (role is None or node.role == role) and node.has("showing")

        found = []
        try:
            found = [node for node in self.nodes() if fits(node)]
        except GLib.Error:
            pass  # what was looked at has just gone
        return found

    def find(self, name=None, role=None):
        """The first of these; waits for it."""
        try:
            return wait_until(lambda: self.all(name, role))[0]
        except TimeoutError:
            raise AssertionError(f"There is no {role or 'thing'} {name!r} among:\n{self.tree()}") from None

    def is_there(self, name=None, role=None):
        return bool(self.all(name, role))

    def await_gone(self, name=None, role=None):
        wait_until(lambda: not self.is_there(name, role))

    def focused(self):
        """The innermost thing that has the keyboard: what it lies in may say so, too."""
        try:
            focused = [node for node in self.nodes() if node.is_focused and node.role != "frame"]
        except GLib.Error:
            return None  # what was looked at has just gone
        return focused[-1] if focused else None

    def tree(self):
        """All of it as text, for eyes."""
        lines = []
        for window in self.windows():
            for depth, node in window.walk():
                lines.append("  " * depth + repr(node))
        return "\n".join(lines)

    def nameless(self):
        """What is on the screen that a screen reader could only call by its kind."""
        return [
            node for node in self.nodes()
            if node.role in CONTROLS | CONTAINERS and not node.name.strip() and node.has("showing")
        ]

    def of_no_kind(self):
        """What is on the screen that a screen reader does not know what to do with."""
        return [node for node in self.nodes() if node.role in ("unknown", "invalid", "") and node.has("showing")]

    # --- Using --------------------------------------------------------------------------------------------------

    def click(self, what, role=None):
        node = what if isinstance(what, Node) else self.find(what, role)
        x, y, width, height = node.box
        self.click_at(x + width // 2, y + height // 2)
        return node

    def click_at(self, x, y):
        self.desktop.run("xdotool", "mousemove", str(x), str(y), "click", "1")

    def key(self, *keys):
        self.desktop.run("xdotool", "key", "--delay", "30", *keys)

    def type(self, text):
        self.desktop.run("xdotool", "type", "--delay", "15", text)

    def tab_to(self, name, role=None, most=80, key="Tab"):
        """Moves the focus by Tab alone until it is on what has this name."""
        for _ in range(most):
            node = self.focused()
            if node is not None and node.name == name and (role is None or node.role == role):
                return node
            before = (node.role, node.name, node.box) if node else None
            self.key(key)

            def moved():
                now = self.focused()
                return now is not None and (now.role, now.name, now.box) != before

            try:
                wait_until(moved, 1)
            except TimeoutError:
                pass
        raise AssertionError(f"Tab never comes to {name!r}:\n{self.tree()}")

    def picture(self, path):
        self.desktop.run("scrot", "--overwrite", str(path))


def profile(name="Work", allowed=("word", "sheet"), domains=(), mode="pomodoro"):
    return {
        "id": str(uuid.uuid4()).upper(), "name": name, "mode": mode, "allowedDomains": list(domains),
        "allowedApps": [{"bundleID": identifier, "name": identifier.capitalize()} for identifier in allowed],
        "pomodoro": {
            "workMinutes": 25, "shortBreakMinutes": 5, "longBreakMinutes": 15, "cyclesBeforeLongBreak": 4,
            "totalCycles": 4,
        },
        "deep": {"totalMinutes": 180, "breakEveryMinutes": 60, "breakMinutes": 5},
    }


def session(segments, elapsed=0.0, intent="Write the report", allowed=("word", "sheet")):
    """A session as a process leaves it that has died."""
    return {
        "id": str(uuid.uuid4()).upper(), "profileName": "Work", "mode": "pomodoro", "intent": intent,
        "startedAt": now() - elapsed, "segments": [{"kind": kind, "duration": length} for kind, length in segments],
        "allowedBundleIDs": list(allowed), "allowedDomains": [], "attempts": 0, "returns": 0, "hiddenBundleIDs": [],
    }


class ScreensTest(unittest.TestCase):
    """A test of the real program. All tests of a file share one desktop; each starts a program of its own."""

    desktop = None
    programs = None  # the folder of what was built
    pictures = None  # the folder that pictures go to, if they are wanted

    def setUp(self):
        self.windows = Windows(self.desktop)
        self.others = []
        self.program = None
        self.addCleanup(self.tidy)

    def tidy(self):
        if self.program:
            if self._outcome_is_bad():
                print(self.screens.tree(), self.program.log(), sep="\n", file=sys.stderr)
            self.program.stop()
        for process in self.others:
            self.desktop.stop(process)

    def _outcome_is_bad(self):
        return any(error for _, error in getattr(self._outcome, "errors", []) if error) or any(
            True for failed, _ in self._outcome.result.failures + self._outcome.result.errors if failed is self
        )

    def open(self, *arguments, **stored):
        stored.setdefault("settings", ENGLISH)
        stored.setdefault("profiles", [profile()])
        self.program = Program(self.desktop, self.programs, **stored)
        self.program.start(*arguments)
        self.screens = Screens(self.desktop, self.program)
        return self.screens

    def show_window(self, name, *options):
        """Another program's window, with an application of that name behind it."""
        process = self.desktop.start(
            self.programs / "velmorin-test-window", "--class", name, "--title", name.capitalize(), *options
        )
        self.others.append(process)
        wait_until(lambda: self.windows.of(process.pid))
        return process

    def await_main_window(self):
        """Until it stands where the window manager wants it, and has the keyboard."""
        process = self.program.process
        wait_until(lambda: self.windows.active() in [int(each, 16) for each in self.windows.of(process.pid)])

    def activate(self, process):
        self.windows.activate(self.windows.of(process.pid)[0])

    def picture(self, name):
        if self.pictures:
            self.screens.picture(self.pictures / f"{name}.png")

    def program_again(self):
        """A second start, which shows the main window of the first."""
        self.desktop.start(self.program.path)

    def install(self, name, shown_name=None, folder=None, **keys):
        """An application in the user's folder of them, or in another."""
        folder = folder or self.desktop.home / ".local/share/applications"
        folder.mkdir(parents=True, exist_ok=True)
        entry = folder / f"{name}.desktop"
        keys = {
            "Type": "Application", "Name": shown_name or f"Tidy {name.capitalize()}", "StartupWMClass": name,
            "Exec": f"{self.programs}/velmorin-test-window --class {name}", **keys,
        }
        entry.write_text("[Desktop Entry]\n" + "".join(f"{key}={value}\n" for key, value in keys.items()))
        self.addCleanup(entry.unlink)


def main(usage):
    """Runs the tests of the file that was started, as its arguments say."""
    parser = argparse.ArgumentParser(usage=usage)
    parser.add_argument("--wm", default="openbox", choices=WINDOW_MANAGERS)
    parser.add_argument("--programs", required=True, type=lambda path: Path(path).resolve())
    parser.add_argument("--pictures", type=Path)
    options, rest = parser.parse_known_args()
    ScreensTest.programs, ScreensTest.pictures = options.programs, options.pictures
    with contextlib.ExitStack() as stack:
        ScreensTest.desktop = on_three_monitors(options.wm)
        stack.callback(ScreensTest.desktop.__exit__, None, None, None)
        program = unittest.main(argv=[sys.argv[0], *rest], exit=False, verbosity=2)
    return 0 if program.result.wasSuccessful() else 1
