"""The program with its windows on a desktop of the tests."""

import os
import re
import signal
import uuid
from pathlib import Path

from desktop import wait_until
from session import Store, install

IDENTIFIER = "com.kestrava.velmorin"
RESOURCES = Path(__file__).resolve().parents[2] / "resources"


class Program(Store):
    """Velmorin, started by its user or by its watchdog, and its store."""

    def __init__(self, desktop, programs, *, environment=None):
        self.desktop = desktop
        self.environment = environment or {}
        data = Path(self.environment.get("XDG_DATA_HOME", desktop.home / ".local/share"))
        self.home = data / "Velmorin"
        # The watchdog goes by the name of the program, so each desktop has a name of its own.
        self.program = install(desktop, programs, "Velmorin", f"Vel-{uuid.uuid4().hex[:8]}")
        # Fonts, icons and sounds lie where an installation has them.
        (desktop.folder / "share").mkdir()
        (desktop.folder / "share" / "velmorin").symlink_to(RESOURCES)
        self.process = None

    # --- Its life -----------------------------------------------------------------------------------------------

    def start(self, *arguments):
        self.process = self.another(*arguments)
        return self

    def another(self, *arguments):
        """One more start of it."""
        return self.desktop.start(self.program, *arguments, environment=self.environment)

    def another_that_prints(self, *arguments):
        """One more start of it, whose words are to be read."""
        return self.desktop.start(self.program, *arguments, environment=self.environment, stdout=-1, text=True)

    def pids(self):
        """The processes of this name that run, whoever has started them."""
        found = self.desktop.run("pgrep", "-r", "RSDT", "-x", self.program.name, check=False).split()
        return [int(pid) for pid in found]

    def has_ended(self):
        return self.process.poll() is not None

    def end_everything(self):
        """Nothing of it comes back."""
        for name in ("watchdog.job", "com.kestrava.velmorin.watchdog.desktop"):
            for path in (self.desktop.home / ".config").rglob(name):
                path.unlink(missing_ok=True)
        wait_until(lambda: not self.desktop.run("pgrep", "-f", f"keep {self.program.name}", check=False).split())
        for pid in self.pids():
            os.kill(pid, signal.SIGKILL)

    # --- Its main window ----------------------------------------------------------------------------------------

    def windows(self):
        """Those that a window manager frames."""
        lines = self.desktop.run("wmctrl", "-lx", check=False).splitlines()
        return [line.split()[0] for line in lines if f" {IDENTIFIER}.{IDENTIFIER} " in line]

    def await_window(self):
        return wait_until(self.windows)[0]

    def state(self, window):
        return self.desktop.run("xprop", "-id", window, "_NET_WM_STATE", check=False)

    def is_in_taskbar(self, window):
        return "_NET_WM_STATE_SKIP_TASKBAR" not in self.state(window)

    def has_keyboard(self, window):
        found = re.search(r"0x[0-9a-f]+", self.desktop.run("xprop", "-root", "_NET_ACTIVE_WINDOW", check=False))
        return found is not None and int(found.group(), 16) == int(window, 16)

    def is_painted(self):
        """Whether the screen shows a window with something in it: what is empty makes a small picture."""
        picture = self.desktop.folder / "screen.png"
        self.desktop.run("scrot", "--overwrite", picture)
        return picture.stat().st_size > 40_000

    def press(self, window, key):
        self.desktop.run("xdotool", "windowactivate", "--sync", window, check=False)
        wait_until(lambda: self.has_keyboard(window))
        self.desktop.run("xdotool", "key", key)
