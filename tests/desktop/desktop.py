#!/usr/bin/env python3
"""A desktop of its own for whatever needs one: an X server, a window manager, a session bus and a home folder, all
gone again at the end.

Usage: desktop.py [--wm NAME] [--size WxH] [--no-bus] -- COMMAND [ARGUMENT...]

Runs COMMAND on it and ends with its status. NAME is openbox (the default), xfwm4, kwin, mutter or none.
"""

import argparse
import contextlib
import os
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

PATIENCE = 30.0  # seconds; only what fails waits this long

WINDOW_MANAGERS = {
    "openbox": ["openbox", "--sm-disable"],
    "xfwm4": ["xfwm4", "--compositor=off", "--sm-client-disable"],
    "kwin": ["kwin_x11", "--no-kactivities"],
    "mutter": ["mutter", "--x11", "--sm-disable"],
    "none": None,
}

# What of the caller's session must not reach into this one.
FOREIGN = [
    "DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY", "DBUS_SESSION_BUS_ADDRESS", "DESKTOP_STARTUP_ID", "XDG_CURRENT_DESKTOP",
    "SESSION_MANAGER", "XDG_SESSION_ID", "PULSE_SERVER", "NOTIFY_SOCKET", "INVOCATION_ID",
]


def wait_until(condition, patience=PATIENCE, step=0.02):
    """The first true value that `condition` gives, or a TimeoutError."""
    deadline = time.monotonic() + patience
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise TimeoutError(f"{getattr(condition, '__name__', condition)} did not come true in {patience} s")
        time.sleep(step)


class Desktop:
    """A context: the desktop stands inside it. `environment` is that of its programs, `home` their home folder."""

    def __init__(self, wm="openbox", size="1280x800", bus=True):
        self.wm, self.size, self.bus = wm, size, bus
        self.processes = []
        self.environment = {}

    def __enter__(self):
        # Whoever is told to stop takes its desktop along.
        signal.signal(signal.SIGTERM, lambda number, _: sys.exit(128 + number))
        self.folder = Path(tempfile.mkdtemp(prefix="velmorin-desktop-"))
        self.home = self.folder / "home"
        self.runtime = self.folder / "run"
        for folder in (self.home, self.runtime):
            folder.mkdir(mode=0o700)
        self.environment = {name: value for name, value in os.environ.items() if name not in FOREIGN}
        self.environment.update(
            HOME=str(self.home),
            XDG_RUNTIME_DIR=str(self.runtime),
            XDG_DATA_HOME=str(self.home / ".local/share"),
            XDG_CONFIG_HOME=str(self.home / ".config"),
            XDG_CACHE_HOME=str(self.home / ".cache"),
            XDG_STATE_HOME=str(self.home / ".local/state"),
            XDG_SESSION_TYPE="x11",
            NO_AT_BRIDGE="1",
            LANG="C.UTF-8",
        )
        try:
            self._start_server()
            if self.bus:
                self._start_bus()
            self._start_window_manager()
        except BaseException:
            self.__exit__(None, None, None)
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            self.stop(process)
        shutil.rmtree(self.folder, ignore_errors=True)

    # --- Programs -----------------------------------------------------------------------------------------------

    def start(self, *command, environment=None, log=None, **options):
        """Starts a program that is stopped with the desktop at the latest."""
        log = open(self.folder / f"{log or Path(command[0]).name}-{len(self.processes)}.log", "wb")
        with log:
            options = {"stdin": subprocess.DEVNULL, "stdout": log, "stderr": subprocess.STDOUT, **options}
            process = subprocess.Popen(
                [str(word) for word in command],
                env={**self.environment, **(environment or {})},
                start_new_session=True,
                **options,
            )
        self.processes.append(process)
        return process

    def stop(self, process):
        """Ends a program with all that it started, if it is still there."""
        for number in (signal.SIGTERM, signal.SIGKILL):
            try:
                os.killpg(process.pid, signal.SIGCONT)
                os.killpg(process.pid, number)
            except ProcessLookupError:
                break
            try:
                process.wait(3)
            except subprocess.TimeoutExpired:
                continue
        process.wait()
        for stream in (process.stdin, process.stdout):
            if stream:
                with contextlib.suppress(BrokenPipeError):
                    stream.close()

    def run(self, *command, check=True, **options):
        """Runs a program to its end and gives what it printed."""
        done = subprocess.run(
            [str(word) for word in command], env=self.environment, capture_output=True, text=True, timeout=PATIENCE,
            **options,
        )
        if check and done.returncode != 0:
            raise RuntimeError(f"{command}: status {done.returncode}: {done.stderr.strip()}")
        return done.stdout.strip()

    # --- What it is made of -------------------------------------------------------------------------------------

    def _start_server(self):
        reading, writing = os.pipe()
        # The server looks for a free number itself, and says which when it is ready.
        self.server = self.start(
            "Xvfb", "-displayfd", writing, "-screen", "0", f"{self.size}x24", "-nolisten", "tcp", "-noreset",
            pass_fds=[writing],
        )
        os.close(writing)
        with os.fdopen(reading) as lines:
            if not select.select([lines], [], [], PATIENCE)[0]:
                raise TimeoutError("Xvfb does not start")
            number = lines.readline().strip()
        if not number:
            raise RuntimeError("Xvfb did not start")
        self.environment["DISPLAY"] = f":{number}"

    def _start_bus(self):
        reading, writing = os.pipe()
        self.start("dbus-daemon", "--session", "--nofork", f"--print-address={writing}", pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as lines:
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = lines.readline().strip()

    def _start_window_manager(self):
        command = WINDOW_MANAGERS[self.wm]
        if command is None:
            return
        self.start(*command)
        wait_until(self._is_managed)

    def _is_managed(self):
        # A manager announces itself before it is ready: a window that comes in between may never be managed.
        words = ["_NET_SUPPORTING_WM_CHECK", "_NET_ACTIVE_WINDOW", "_NET_CLIENT_LIST"]
        told = self.run("xprop", "-root", *words, check=False)
        return "CHECK(WINDOW)" in told and ("_ACTIVE_WINDOW(WINDOW)" in told or "_CLIENT_LIST(WINDOW)" in told)


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("--wm", default="openbox", choices=WINDOW_MANAGERS)
    parser.add_argument("--size", default="1280x800")
    parser.add_argument("--no-bus", action="store_true")
    parser.add_argument("command", nargs="+")
    arguments = parser.parse_args()
    with Desktop(arguments.wm, arguments.size, not arguments.no_bus) as desktop:
        return subprocess.run(arguments.command, env=desktop.environment).returncode


if __name__ == "__main__":
    sys.exit(main())
