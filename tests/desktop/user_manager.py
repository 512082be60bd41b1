"""The service manager of a user, systemd, on a desktop of the tests."""

import fcntl
import os
import signal
import subprocess
from pathlib import Path

from desktop import PATIENCE, wait_until

EXECUTABLE = Path("/lib/systemd/systemd")
# It refuses to run where this is missing, as in a container; it looks only when it starts.
BOOT_MARK = Path("/run/systemd/system")


class Unavailable(Exception):
    """No such manager can run here; says why."""


class BootMark:
    """A context: the mark is there, one at a time on a machine; gone again at the end if it was not there before."""

    def __enter__(self):
        self.lock = os.open("/run", os.O_RDONLY | os.O_DIRECTORY)
        fcntl.flock(self.lock, fcntl.LOCK_EX)
        self.is_ours = False
        try:
            BOOT_MARK.mkdir(parents=True)
            self.is_ours = True
        except FileExistsError:
            pass
        except OSError as failure:
            os.close(self.lock)
            raise Unavailable(f"{BOOT_MARK} is missing and cannot be made: {failure.strerror}") from failure
        return self

    def __exit__(self, *_):
        if self.is_ours:
            BOOT_MARK.rmdir()
        os.close(self.lock)


class UserManager:
    """A context: it runs, with the desktop's home folder and runtime directory, and knows nothing else of it."""

    def __init__(self, desktop):
        self.desktop = desktop
        self.environment = {
            "HOME": str(desktop.home), "XDG_RUNTIME_DIR": str(desktop.runtime), "PATH": "/usr/local/bin:/usr/bin:/bin",
        }

    def __enter__(self):
        if not EXECUTABLE.exists():
            raise Unavailable("there is no systemd here")
        socket = self.desktop.runtime / "systemd" / "private"
        with BootMark():
            with open(self.desktop.folder / "systemd.log", "wb") as log:
                self.process = subprocess.Popen(
                    [EXECUTABLE, "--user"], env={**self.environment, "SYSTEMD_LOG_TARGET": "console"},
                    stdin=subprocess.DEVNULL, stdout=log, stderr=log, start_new_session=True)
            wait_until(lambda: socket.exists() or self.process.poll() is not None)
        if self.process.poll() is not None:
            raise Unavailable("the service manager of a user does not start here; it cannot have control groups?")
        return self

    def __exit__(self, *_):
        # It stops what it has started, and ends.
        self.process.send_signal(signal.SIGTERM)
        try:
            self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()

    def ask(self, *words):
        """What systemctl prints."""
        done = subprocess.run(
            ["systemctl", "--user", "--no-pager", *words], env=self.environment, capture_output=True, text=True,
            timeout=PATIENCE)
        return done.stdout.strip()

    def units(self, text):
        """The units that it knows, also failed and inactive ones, with this in their names."""
        lines = self.ask("list-units", "--all", "--plain", "--no-legend").splitlines()
        return [line.split()[0] for line in lines if line and text in line.split()[0]]

    def variables(self):
        """The names of what its programs find in their environment."""
        return {line.split("=", 1)[0] for line in self.ask("show-environment").splitlines()}
