"""A played browser with a played extension, around the real host and the real script tool."""

import json
import os
import shutil
import signal
import socket
import struct
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

HERE = Path(__file__).resolve().parent
CHROMIUM_ORIGIN = "chrome-extension://cjoplcghhhecbifmooggfhblnfgmeopm/"
PATIENCE = 30.0
IDENTITIES = {
    "brave": "com.brave.Browser",
    "msedge": "com.microsoft.edgemac",
    "opera": "com.operasoftware.Opera",
    "vivaldi-bin": "com.vivaldi.Vivaldi",
}


def eventually(condition, what="it"):
    """Asks until it holds, and gives what it then is."""
    deadline = time.monotonic() + PATIENCE
    while time.monotonic() < deadline:
        value = condition()
        if value:
            return value
        time.sleep(0.005)
    raise AssertionError(f"{what} did not happen in good time")


def list_script(identity):
    return (
        'set sep to "|||"\n'
        "set nl to linefeed\n"
        f'tell application id "{identity}"\n'
        '    set out to ""\n'
        "    repeat with w in windows\n"
        "        try\n"
        "            set out to out & (id of w as text) & sep & (URL of active tab of w) & nl\n"
        "        end try\n"
        "    end repeat\n"
        "    return out\n"
        "end tell"
    )


def blank_script(identity, window):
    return (
        f'tell application id "{identity}"\n'
        "    repeat with w in windows\n"
        f'        if (id of w as text) is "{window}" then\n'
        '            set URL of active tab of w to "about:blank"\n'
        "        end if\n"
        "    end repeat\n"
        "end tell"
    )


def frame(message):
    data = message if isinstance(message, bytes) else json.dumps(message).encode()
    return struct.pack("=I", len(data)) + data


class World:
    """The programs that are tested, and folders of their own for them."""

    def __init__(self, programs):
        self.host = str(Path(programs) / "velmorin-browser-host")
        self.script = str(Path(programs) / "velmorin-browser-script")
        self.folder = Path(tempfile.mkdtemp(prefix="velmorin-browsers-"))
        self.runtime = self.folder / "runtime"
        self.runtime.mkdir(mode=0o700)
        self.environment = dict(os.environ, XDG_RUNTIME_DIR=str(self.runtime), HOME=str(self.folder))
        self.browsers = []

    @property
    def sockets(self):
        return self.runtime / "velmorin" / "browsers"

    def close(self):
        for browser in self.browsers:
            browser.kill()
        shutil.rmtree(self.folder, ignore_errors=True)

    def browser(self, name):
        self.browsers.append(Browser(self, name))
        return self.browsers[-1]

    def start_script(self, script):
        return subprocess.Popen(
            [self.script, "-e", script], env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True
        )

    def run_script(self, script, timeout=PATIENCE):
        """(exit status, output, error output, seconds) of the script tool."""
        start = time.monotonic()
        done = subprocess.run(
            [self.script, "-e", script], env=self.environment, capture_output=True, text=True, timeout=timeout
        )
        return done.returncode, done.stdout, done.stderr, time.monotonic() - start


class Browser:
    """A process that looks like a browser's main one."""

    def __init__(self, world, name, arguments=()):
        self.world = world
        self.identity = IDENTITIES[name]
        executable = world.folder / name
        if not executable.exists():
            shutil.copy(os.path.realpath(sys.executable), executable)
        self.control, theirs = socket.socketpair()
        self.process = subprocess.Popen(
            [str(executable), str(HERE / "fake_browser.py"), str(theirs.fileno()), *arguments],
            pass_fds=[theirs.fileno()],
            env=dict(os.environ, PYTHONHOME=sys.base_prefix),
            start_new_session=True,
        )
        theirs.close()
        self.started = time.monotonic()
        self.hosts = []
        # It answers once it runs; until then its name is still that of this program.
        eventually(lambda: os.path.basename(os.readlink(f"/proc/{self.pid}/exe")) == name, "the start of a browser")

    @property
    def pid(self):
        return self.process.pid

    def ask(self, request, descriptors=()):
        socket.send_fds(self.control, [json.dumps(request).encode()], list(descriptors))
        return json.loads(self.control.recv(65536))

    def start_host(self, **more):
        self.hosts.append(Host(self, **more))
        return self.hosts[-1]

    def part(self, *arguments):
        return self.ask({"do": "part", "arguments": list(arguments)})

    def grow_old(self):
        """Returns when it is no longer a browser that is coming up."""
        time.sleep(max(0.0, self.started + 10.3 - time.monotonic()))

    def stop(self):
        self.process.send_signal(signal.SIGSTOP)

    def go_on(self):
        self.process.send_signal(signal.SIGCONT)

    def kill(self):
        """It is gone, with all that it has started and its ends of all pipes."""
        if self.process.poll() is None:
            os.killpg(self.pid, signal.SIGKILL)
        self.process.wait()
        self.control.close()
        for host in self.hosts:
            host.close()


class Host:
    """The real host, with what the browser's side of it sees and says."""

    def __init__(self, browser, command=None, environment=None):
        self.browser = browser
        self.requests = []
        self.tabs = []
        self.answers = True
        given, self.to_host = os.pipe()
        self.from_host, taken = os.pipe()
        self.errors, errors = os.pipe()
        request = {
            "do": "start",
            "command": command or [browser.world.host, CHROMIUM_ORIGIN],
            "environment": environment or browser.world.environment,
        }
        self.pid = browser.ask(request, [given, taken, errors])
        for descriptor in (given, taken, errors):
            os.close(descriptor)
        self.lock = threading.Lock()
        self.reader = threading.Thread(target=self.read, daemon=True)
        self.reader.start()

    @property
    def socket_path(self):
        return self.browser.world.sockets / f"{self.browser.identity}.{self.browser.pid}.{self.pid}"

    def ready(self):
        eventually(self.socket_path.exists, "the host's socket")
        return self

    def read(self):
        """The extension: notes each request, and answers it where it is meant to."""
        with os.fdopen(self.from_host, "rb") as stream:
            while len(length := stream.read(4)) == 4:
                request = json.loads(stream.read(struct.unpack("=I", length)[0]))
                self.requests.append(request)
                if self.answers:
                    self.answer(request)

    def answer(self, request):
        more = {"tabs": self.tabs} if request["do"] == "list" else {"done": True}
        self.send(frame({"id": request["id"], **more}))

    def send(self, data):
        with self.lock:
            try:
                while data:
                    data = data[os.write(self.to_host, data) :]
            except OSError:
                pass  # the host has gone; a test sees that otherwise

    def shows(self, *addresses, window=1):
        self.tabs = [{"window": window + place, "place": 0, "url": url} for place, url in enumerate(addresses)]
        return self

    def window(self, number, place=0):
        return f"{self.pid}{number:016}{place}"

    def connect(self):
        """A connection; one that is refused because too many are waiting is tried again."""
        client = socket.socket(socket.AF_UNIX)
        client.setblocking(False)
        eventually(lambda: client.connect_ex(str(self.socket_path)) == 0, "a connection")
        client.settimeout(PATIENCE)
        return client

    def ask(self, line):
        """What a client gets for a line."""
        with self.connect() as client:
            client.sendall(line)
            return read_all(client)

    def is_alive(self):
        """Also what only waits to be reaped has gone."""
        try:
            state = Path(f"/proc/{self.pid}/stat").read_text().rpartition(")")[2].split()[0]
        except OSError:
            return False
        return state != "Z"

    def kill(self, number=signal.SIGKILL):
        os.kill(self.pid, number)

    def leave(self):
        """The extension closes the connection."""
        if self.to_host is not None:
            os.close(self.to_host)
            self.to_host = None

    def end(self):
        """(exit status, what it said) once it has ended."""
        eventually(lambda: not self.is_alive(), "the end of the host")
        status = self.browser.ask({"do": "wait", "process": self.pid})
        with os.fdopen(os.dup(self.errors), "rb") as stream:
            return status, stream.read().decode()

    def close(self):
        self.leave()
        if self.is_alive():
            try:
                os.kill(self.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass

    def growth_allowed(self, kilobytes):
        """Under the address sanitizer what was freed is kept for a while, and every allocation is larger."""
        return kilobytes * (16 if "libasan" in Path(f"/proc/{self.pid}/maps").read_text() else 1)

    def private_kilobytes(self):
        lines = Path(f"/proc/{self.pid}/smaps_rollup").read_text().splitlines()
        return sum(int(line.split()[1]) for line in lines if line.startswith("Private_"))


def read_all(client):
    data = b""
    while True:
        try:
            piece = client.recv(65536)
        except ConnectionResetError:
            return data
        if not piece:
            return data
        data += piece
