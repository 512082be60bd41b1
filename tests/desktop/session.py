"""A session of velmorin-lock on a desktop of the tests, and the windows of the programs that it meets."""

import json
import queue
import re
import shutil
import threading
import time
import uuid
from pathlib import Path

from desktop import PATIENCE, wait_until

SINCE_2001 = 978307200.0  # seconds from 1970 to 2001, where the stored dates begin

# What velmorin-lock starts itself.
COMPANIONS = ["velmorin-watchdog", "velmorin-browser-script", "velmorin-browser-host"]


def now():
    return time.time() - SINCE_2001


class Windows:
    """What stands on the screen, seen with the eyes of the window manager's own tools."""

    def __init__(self, desktop):
        self.desktop = desktop

    def of(self, pid):
        """The windows of a process, with their numbers as texts."""
        lines = self.desktop.run("wmctrl", "-lp", check=False).splitlines()
        return [line.split()[0] for line in lines if len(line.split()) > 2 and line.split()[2] == str(pid)]

    def named(self, text):
        """Those whose class or title holds a text."""
        lines = self.desktop.run("wmctrl", "-lx", check=False).splitlines()
        return [line.split()[0] for line in lines if text in line]

    def is_iconic(self, window):
        # To some managers windows on other desktops are iconified as well; all of ours tell what is really hidden.
        return "_NET_WM_STATE_HIDDEN" in self.desktop.run("xprop", "-id", window, "_NET_WM_STATE", check=False)

    def desktop_of(self, window):
        return self.desktop.run("xprop", "-id", window, "-notype", "_NET_WM_DESKTOP").split()[-1]

    def are_iconic(self, windows):
        return bool(windows) and all(map(self.is_iconic, windows))

    def active(self):
        found = re.search(r"0x[0-9a-f]+", self.desktop.run("xprop", "-root", "_NET_ACTIVE_WINDOW", check=False))
        return int(found.group(), 16) if found else 0

    def activate(self, window):
        self.desktop.run("wmctrl", "-i", "-a", window)

    def appear(self, text):
        return wait_until(lambda: self.named(text))


def install(desktop, programs, name, own_name):
    """Copies a program and its companions to a desktop, and gives where the copy lies."""
    folder = desktop.folder / "bin"
    folder.mkdir()
    for companion in COMPANIONS:
        if (Path(programs) / companion).exists():
            shutil.copy(Path(programs) / companion, folder / companion)
    return Path(shutil.copy(Path(programs) / name, folder / own_name))


class Store:
    """What a program of ours keeps in the folder `home`."""

    def log(self):
        path = self.home / "events.log"
        return path.read_text() if path.exists() else ""

    @property
    def session_file(self):
        return self.home / "active-session.json"

    def stored(self):
        return json.loads(self.session_file.read_text())

    def history(self):
        path = self.home / "history.json"
        return json.loads(path.read_text()) if path.exists() else []

    def leave_session(self, seconds, allowed, domains=()):
        """Leaves a session behind, as a process that was killed does; it has so many seconds to go."""
        self.home.mkdir(parents=True, exist_ok=True)
        self.session_file.write_text(json.dumps({
            "id": str(uuid.uuid4()).upper(), "profileName": "Left", "mode": "deep", "intent": "", "startedAt": now(),
            "segments": [{"kind": "work", "duration": seconds}], "allowedBundleIDs": list(allowed),
            "allowedDomains": list(domains), "attempts": 0, "returns": 0, "hiddenBundleIDs": [],
        }))

    def shorten(self, seconds):
        """Lets the session that a killed process left behind end so soon."""
        session = self.stored()
        session["segments"] = [{"kind": "work", "duration": now() - session["startedAt"] + seconds}]
        self.session_file.write_text(json.dumps(session))


class Lock(Store):
    """A running velmorin-lock, its events and its store."""

    def __init__(self, desktop, programs, *, environment=None):
        self.desktop = desktop
        self.home = desktop.home / "store"
        # The watchdog goes by the name of the program, so each desktop has a name of its own.
        self.program = install(desktop, programs, "velmorin-lock", f"lock-{uuid.uuid4().hex[:8]}")
        self.environment = environment or {}
        self.events = []
        self._fresh = queue.Queue()
        self.process = None

    # --- Its life -----------------------------------------------------------------------------------------------

    def start(self, profile=None, *options):
        arguments = ["--home", self.home, *options]
        if profile is not None:
            path = self.desktop.folder / "profile.json"
            path.write_text(json.dumps(profile))
            arguments.append(path)
        self.process = self.desktop.start(
            self.program, *arguments, environment=self.environment, stdin=-1, stdout=-1,
            stderr=None, text=True, bufsize=1,
        )
        threading.Thread(target=self._read, args=[self.process], daemon=True).start()
        return self

    def command(self, line):
        self.process.stdin.write(line + "\n")

    def kill(self):
        self.process.kill()
        self.process.wait()

    def pids(self):
        """The processes of this name that run, whoever has started them; not one that has ended and waits for whoever
        did."""
        found = self.desktop.run("pgrep", "-r", "RSDT", "-x", self.program.name, check=False).split()
        return [int(pid) for pid in found]

    def keepers(self):
        """What the watchdog has running in the background, by its command line."""
        return self.desktop.run("pgrep", "-f", f"keep {self.program.name}", check=False).split()

    def _read(self, process):
        for line in process.stdout:
            self._fresh.put(json.loads(line))

    # --- What it tells ------------------------------------------------------------------------------------------

    def collect(self):
        while not self._fresh.empty():
            self.events.append(self._fresh.get())
        return self.events

    def await_event(self, name, patience=PATIENCE, **members):
        """The next event with this name and these members that nobody has waited for yet."""

        def found():
            for event in self.collect():
                if event["event"] == name and all(event.get(key) == value for key, value in members.items()):
                    return event
            return None

        event = wait_until(found, patience)
        self.events.remove(event)
        return event

    def seen(self, name, **members):
        return [
            event for event in self.collect()
            if event["event"] == name and all(event.get(key) == value for key, value in members.items())
        ]


def profile(allowed, domains=(), minutes=10):
    return {
        "name": "Work", "mode": "deep",
        "deep": {"totalMinutes": minutes, "breakEveryMinutes": 60, "breakMinutes": 5},
        "allowedApps": [{"bundleID": identifier, "name": identifier} for identifier in allowed],
        "allowedDomains": list(domains),
    }
