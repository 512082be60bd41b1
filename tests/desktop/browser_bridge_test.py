#!/usr/bin/env python3
"""Real browsers with the real extension, host and script tool, on a desktop of their own.

Usage: browser_bridge_test.py chromium|firefox FOLDER_OF_PROGRAMS FOLDER_OF_THE_EXTENSION [TEST...]

As root, everything runs as a user who has no other process, and Firefox is told to take the extension unsigned by a
policy in /etc/firefox/policies, which is put back as it was. As another user, Firefox is skipped, and so is a browser
that this user runs anyway. Ends with 77 where everything is skipped. VELMORIN_LONG=1 adds what takes minutes.
"""

import contextlib
import fcntl
import html
import http.server
import json
import os
import pwd
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
import unittest
import urllib.parse
from pathlib import Path

HERE = Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "browsers")]

from desktop import Desktop, wait_until  # noqa: E402
from playing import blank_script, list_script  # noqa: E402

POLICIES = Path("/etc/firefox/policies/policies.json")
CHROMIUM_EXTENSION = "cjoplcghhhecbifmooggfhblnfgmeopm"
FIREFOX_EXTENSION = "velmorin@kestrava.com"
SKIPPED = 77
PROGRAMS = ["velmorin-browser-host", "velmorin-browser-script", "velmorin-lock", "velmorin-watchdog"]
REFUSED = "-1743"


class Pages(http.server.BaseHTTPRequestHandler):
    """Any path is a page; its query may hold a script, and a title."""

    def do_GET(self):
        query = urllib.parse.parse_qs(urllib.parse.urlsplit(self.path).query)
        title = html.escape(query.get("title", ["a page"])[0])
        script = query.get("script", [""])[0]
        self.send_response(200)
        self.send_header("Content-Type", "text/html; charset=utf-8")
        self.end_headers()
        self.wfile.write(f"<title>{title}</title>{title}<script>{script}</script>".encode())

    def log_message(self, *_):
        pass


class Chromium:
    identity = "com.google.Chrome"
    program = "chromium"
    private = "--incognito"
    window = "--new-window"

    def __init__(self, world, has_extension=True):
        self.world = world
        self.profile = world.desktop.home / f"profile-{len(world.desktop.processes)}"
        flags = [
            "--disable-gpu", "--disable-background-networking", "--disable-component-update", "--disable-sync",
            "--no-first-run", "--no-default-browser-check", "--disable-quic", "--password-store=basic",
            "--disable-popup-blocking", f"--user-data-dir={self.profile}",
        ]
        if not world.has_sandbox:
            flags.append("--no-sandbox")
        if has_extension:
            flags.append(f"--load-extension={world.extension}/chromium")
        self.command = [self.program, *flags]
        world.desktop.run(world.host, "--install", self.profile)

    def let_in_private_windows(self):
        # Without the developer mode, an extension from a folder does not survive a change.
        self.click(
            "chrome.developerPrivate.updateProfileConfiguration({inDeveloperMode: true}).then(() =>"
            " chrome.developerPrivate.updateExtensionConfiguration("
            f"{{extensionId: '{CHROMIUM_EXTENSION}', incognitoAccess: true}}))"
        )

    def switch_extension_off(self):
        self.click(f"chrome.management.setEnabled('{CHROMIUM_EXTENSION}', false)")

    def click(self, script):
        """What a user clicks on the extension's page, asked over the browser's own debugging pipe. The page stands in
        the background and is closed again."""
        target = self.debug("Target.createTarget", url="chrome://extensions/", background=True)["targetId"]
        session = self.debug("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        wait_until(
            lambda: "exceptionDetails"
            not in self.debug("Runtime.evaluate", session, awaitPromise=True, expression=script)
        )
        self.debug("Target.closeTarget", targetId=target)

    def start(self, *addresses, debugging=False):
        if not debugging:
            self.process = self.world.desktop.start(*self.command, *addresses, log="browser")
            return self
        theirs_in, self.to_browser = os.pipe()
        self.from_browser, theirs_out = os.pipe()
        shell = f'exec 3<&{theirs_in} 4>&{theirs_out}; exec "$@"'
        self.process = self.world.desktop.start(
            "sh", "-c", shell, "sh", *self.command, "--remote-debugging-pipe", *addresses,
            log="browser", pass_fds=[theirs_in, theirs_out],
        )
        self.replies = os.fdopen(self.from_browser, "rb")
        self.world.stack.callback(self.replies.close)
        self.asked = 0
        for descriptor in (theirs_in, theirs_out):
            os.close(descriptor)
        return self

    def debug(self, method, session=None, **parameters):
        self.asked += 1
        message = {"id": self.asked, "method": method, "params": parameters}
        if session:
            message["sessionId"] = session
        os.write(self.to_browser, json.dumps(message).encode() + b"\0")
        while True:
            text = b""
            while (byte := self.replies.read(1)) not in (b"\0", b""):
                text += byte
            reply = json.loads(text)
            if reply.get("id") == self.asked:
                return reply["result"]

    def open(self, *arguments):
        """Asks the running browser, as a second start of it does."""
        self.world.desktop.run(*self.command, *arguments)


class Firefox:
    identity = "org.mozilla.firefox"
    program = "firefox-esr"
    private = "--private-window"
    window = "--new-window"

    def __init__(self, world, has_extension=True):
        self.world = world
        profile = world.desktop.home / f"profile-{len(world.desktop.processes)}"
        profile.mkdir()
        (profile / "user.js").write_text(
            'user_pref("dom.disable_open_during_load", false);\n'
            'user_pref("browser.sessionstore.resume_from_crash", false);\n'
            'user_pref("browser.tabs.warnOnClose", false);\n'
            'user_pref("browser.warnOnQuit", false);\n'
            'user_pref("datareporting.policy.dataSubmissionEnabled", false);\n'
        )
        self.command = [self.program, "--profile", str(profile)]
        world.desktop.run(world.host, "--install" if has_extension else "--uninstall")

    def start(self, *addresses, debugging=False):
        self.process = self.world.desktop.start(*self.command, *addresses, log="browser")
        return self

    def let_in_private_windows(self):
        pass  # the policy has done it

    def open(self, *arguments):
        # A browser that has just come up does not listen yet; the second start then only says that there is another one.
        for _ in range(5):
            asked = self.world.desktop.start(*self.command, *arguments, log="second")
            try:
                return asked.wait(6)
            except subprocess.TimeoutExpired:
                self.world.desktop.stop(asked)
        raise TimeoutError("the browser opens nothing")


class World:
    """What all tests of a run share: the programs, the pages, the desktop."""

    def __init__(self, programs, extension):
        self.host, self.script = f"{programs}/velmorin-browser-host", f"{programs}/velmorin-browser-script"
        self.extension = extension
        self.has_sandbox = os.geteuid() != 0 and subprocess.run(["unshare", "-U", "true"], stderr=-3).returncode == 0
        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Pages)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        self.origin = f"http://127.0.0.1:{self.server.server_port}"


WORLD = None
BROWSER = None


class BridgeTest(unittest.TestCase):
    def setUp(self):
        self.stack = WORLD.stack = contextlib.ExitStack()
        self.addCleanup(self.stack.close)
        self.desktop = WORLD.desktop = self.stack.enter_context(Desktop())
        # What browsers leave in the temporary folder goes with the desktop.
        temporary = self.desktop.folder / "tmp"
        temporary.mkdir()
        self.desktop.environment["TMPDIR"] = str(temporary)

    def address(self, path, **query):
        return f"{WORLD.origin}/{path}" + (f"?{urllib.parse.urlencode(query)}" if query else "")

    def start(self, *addresses, **options):
        self.browser = BROWSER(WORLD).start(*addresses, **options)
        return self.browser

    def run_script(self, script, timeout=60):
        return subprocess.run(
            [WORLD.script, "-e", script], env=self.desktop.environment, capture_output=True, text=True, timeout=timeout
        )

    def start_script(self):
        return subprocess.Popen(
            [WORLD.script, "-e", list_script(BROWSER.identity)],
            env=self.desktop.environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
        )

    def windows(self):
        """{window: address} as the script tool prints them; it must succeed, unless no browser runs yet."""
        done = self.run_script(list_script(BROWSER.identity))
        if "not running" in done.stderr:
            return {}
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        lines = [line.split("|||", 1) for line in done.stdout.split("\n")[:-1]]
        self.assertTrue(all(window.isdigit() for window, _ in lines), done.stdout)
        return dict(lines)

    def await_addresses(self, *expected):
        """Waits until exactly these are shown, and gives {address: window}."""
        found = {}

        def are_shown():
            found.clear()
            found.update({address: window for window, address in self.windows().items()})
            return sorted(found) == sorted(expected)

        try:
            wait_until(are_shown, patience=30, step=0.1)
        except TimeoutError:
            self.assertEqual(sorted(found), sorted(expected))
        return dict(found)

    def hosts(self):
        """[(browser, host)] of the sockets that are there."""
        folder = self.desktop.runtime / "velmorin" / "browsers"
        names = [path.name.split(".") for path in folder.iterdir()] if folder.exists() else []
        return [(int(name[-2]), int(name[-1])) for name in names]

    def assert_refused(self, at_most):
        start = time.monotonic()
        done = self.run_script(list_script(BROWSER.identity))
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertIn(REFUSED, done.stderr)
        self.assertLess(time.monotonic() - start, at_most)

    # --- The tests ------------------------------------------------------------------------------------------------

    def test_every_window_is_listed_and_blanked_for_itself(self):
        first, second = self.address("first"), self.address("second")
        browser = self.start(first)
        self.await_addresses(first)
        browser.open(BROWSER.window, second)
        windows = self.await_addresses(first, second)
        self.assertEqual(self.run_script(blank_script(BROWSER.identity, windows[second])).returncode, 0)
        self.assertEqual(self.await_addresses(first, "about:blank")["about:blank"], windows[second])
        self.run_script(blank_script(BROWSER.identity, windows[first]))
        wait_until(lambda: set(self.windows().values()) == {"about:blank"})
        self.assertEqual(len(self.windows()), 2)

    def test_only_the_visible_tab_of_a_window_is_listed(self):
        first, second = self.address("first"), self.address("second")
        self.start(first, second)
        wait_until(lambda: list(self.windows().values()) in ([first], [second]))
        shown = list(self.windows().values())
        wait_until(lambda: self.desktop.run("xdotool", "search", "--onlyvisible", "--name", "a page", check=False))
        self.desktop.run("xdotool", "key", "--clearmodifiers", "ctrl+Tab")
        self.await_addresses(*({first, second} - set(shown)))

    def test_a_small_window_that_a_page_opens_is_listed_and_blanked(self):
        popup = self.address("popup")
        opener = self.address("opener", script=f"open('{popup}', 'small', 'width=300,height=200')")
        self.start(opener)
        windows = self.await_addresses(opener, popup)
        self.run_script(blank_script(BROWSER.identity, windows[popup]))
        self.await_addresses(opener, "about:blank")

    def test_a_private_window_is_listed_where_the_extension_is_let_in(self):
        page, private = self.address("page"), self.address("private")
        browser = self.start(page, debugging=True)
        self.await_addresses(page)
        if BROWSER is Chromium:
            browser.open(BROWSER.private, private)
            time.sleep(3)
            self.await_addresses(page)
            browser.let_in_private_windows()
        else:
            browser.open(BROWSER.private, private)
        windows = self.await_addresses(page, private)
        self.run_script(blank_script(BROWSER.identity, windows[private]))
        self.await_addresses(page, "about:blank")

    def test_no_page_makes_a_line_of_its_own(self):
        script = "history.pushState(0, '', '/x%0a7|||http://b.example/\\n\\u2028\\u2029\\u0085y#\\u2028|||%0a')"
        hostile = self.address("hostile", title="a\n7|||http://a.example/\u2028", script=script)
        self.start(hostile)
        wait_until(lambda: [each for each in self.windows().values() if "/x" in each])
        done = self.run_script(list_script(BROWSER.identity))
        self.assertEqual(len(done.stdout.splitlines()), 1, done.stdout)
        self.assertRegex(done.stdout, r"^\d+\|\|\|" + WORLD.origin + "/x")

    def test_a_browser_that_is_starting_is_waited_for(self):
        page = self.address("page")
        self.start(page)
        # What its first windows show is not settled yet.
        wait_until(lambda: "not running" not in (done := self.run_script(list_script(BROWSER.identity))).stderr)
        self.await_addresses(page)

    def test_a_browser_that_stands_still_is_waited_for(self):
        page = self.address("page")
        self.start(page)
        self.await_addresses(page)
        process = self.hosts()[0][0]
        os.kill(process, signal.SIGSTOP)
        asked = self.start_script()
        time.sleep(4)
        self.assertIsNone(asked.poll())
        asked.terminate()
        output, error = asked.communicate(timeout=20)
        self.assertEqual((output, error), ("", ""))
        self.assertNotEqual(asked.returncode, 0)
        os.kill(process, signal.SIGCONT)
        self.await_addresses(page)

    def test_a_browser_without_the_extension_is_refused(self):
        self.browser = BROWSER(WORLD, has_extension=False).start(self.address("page"))
        wait_until(lambda: "not running" not in self.run_script(list_script(BROWSER.identity)).stderr)
        self.assert_refused(at_most=12)
        self.assert_refused(at_most=2)

    def test_a_killed_host_is_refused_until_the_next_one_comes(self):
        page = self.address("page")
        self.start(page)
        self.await_addresses(page)
        os.kill(self.hosts()[0][1], signal.SIGKILL)
        killed = time.monotonic()
        for _ in range(2):
            self.assert_refused(at_most=2)
        wait_until(lambda: self.run_script(list_script(BROWSER.identity)).returncode == 0, step=0.2)
        self.assertGreater(time.monotonic() - killed, 4)
        self.assertLess(time.monotonic() - killed, 9)
        self.await_addresses(page)
        self.assertEqual(len(self.hosts()), 1, "what the killed one has left is gone")

    def test_a_stopped_host_is_refused(self):
        page = self.address("page")
        self.start(page)
        self.await_addresses(page)
        host = self.hosts()[0][1]
        os.kill(host, signal.SIGSTOP)
        self.assert_refused(at_most=4)
        os.kill(host, signal.SIGCONT)
        self.await_addresses(page)

    def test_an_extension_that_was_stopped_is_refused(self):
        page = self.address("page")
        self.start(page)
        self.await_addresses(page)
        stopped = []
        for entry in Path("/proc").iterdir():
            with contextlib.suppress(OSError):
                words = (entry / "cmdline").read_bytes().replace(b"\0", b" ")
                is_extension = b"--extension-process" in words or (b"-contentproc" in words and b"-isForBrowser" in words)
                if entry.name.isdigit() and entry.stat().st_uid == os.geteuid() and is_extension:
                    stopped.append(int(entry.name))
        self.assertTrue(stopped)
        for process in stopped:
            os.kill(process, signal.SIGSTOP)
        self.assert_refused(at_most=4)
        for process in stopped:
            os.kill(process, signal.SIGCONT)
        self.await_addresses(page)

    def test_a_browser_that_quits_is_never_refused(self):
        page = self.address("page")
        self.start(page)
        self.await_addresses(page)
        process = self.hosts()[0][0]
        window = wait_until(
            lambda: self.desktop.run("xdotool", "search", "--onlyvisible", "--name", "a page", check=False)
        ).split()[0]
        self.desktop.run("xdotool", "windowfocus", "--sync", window, "key", "--clearmodifiers", "ctrl+shift+w")
        answers = []
        while Path(f"/proc/{process}").exists():
            answers.append(self.run_script(list_script(BROWSER.identity)))
            self.assertNotIn(REFUSED, answers[-1].stderr)
            self.browser.process.poll()
        done = self.run_script(list_script(BROWSER.identity))
        self.assertIn("not running", done.stderr)
        wait_until(lambda: self.hosts() == [])

    def test_two_profiles_are_both_listed(self):
        first, second = self.address("first"), self.address("second")
        browser = self.start(first)
        self.await_addresses(first)
        if BROWSER is Chromium:
            browser.open("--profile-directory=Other", second)
        else:
            BROWSER(WORLD).start(second)
        windows = self.await_addresses(first, second)
        self.assertEqual(len(self.hosts()), 2)
        self.run_script(blank_script(BROWSER.identity, windows[second]))
        self.await_addresses(first, "about:blank")

    def test_the_window_of_an_application_is_listed(self):
        if BROWSER is not Chromium:
            self.skipTest("this browser has no such windows")
        first, application = self.address("first"), self.address("application")
        browser = self.start(first)
        self.await_addresses(first)
        browser.open(f"--app={application}")
        windows = self.await_addresses(first, application)
        self.run_script(blank_script(BROWSER.identity, windows[application]))
        self.await_addresses(first, "about:blank")

    def test_an_idle_extension_stays_awake(self):
        if not os.environ.get("VELMORIN_LONG"):
            self.skipTest("takes two minutes; VELMORIN_LONG=1 runs it")
        page = self.address("page")
        self.start(page)
        self.await_addresses(page)
        before = self.hosts()
        time.sleep(120)
        self.assertEqual(self.hosts(), before)
        self.await_addresses(page)


# --- As root: another user, and a policy for Firefox ----------------------------------------------------------------


def policy(archive):
    return {
        "policies": {
            "Preferences": {"xpinstall.signatures.required": {"Value": False, "Status": "locked"}},
            "ExtensionSettings": {
                FIREFOX_EXTENSION: {
                    "installation_mode": "force_installed",
                    "install_url": f"file://{archive}",
                    "private_browsing": True,
                }
            },
            "DisableAppUpdate": True,
            "DisableTelemetry": True,
            "DontCheckDefaultBrowser": True,
            "OverrideFirstRunPage": "",
            "OverridePostUpdatePage": "",
        }
    }


@contextlib.contextmanager
def unsigned_extension(archive):
    """Firefox takes the extension while this lasts; what was there before is put back afterwards."""
    lock = os.open("/etc", os.O_RDONLY)  # one test at a time
    fcntl.flock(lock, fcntl.LOCK_EX)
    missing = [folder for folder in POLICIES.parents if not folder.exists()]
    before = POLICIES.read_bytes() if POLICIES.exists() else None
    try:
        POLICIES.parent.mkdir(parents=True, exist_ok=True)
        POLICIES.write_text(json.dumps(policy(archive)))
        yield
    finally:
        if before is not None:
            POLICIES.write_bytes(before)
        else:
            POLICIES.unlink(missing_ok=True)
        for folder in missing:
            folder.rmdir()
        os.close(lock)


def idle_user():
    """Somebody whom the system knows, as a session bus wants it, but who runs nothing."""
    busy = {0}
    for entry in Path("/proc").iterdir():
        with contextlib.suppress(FileNotFoundError, ProcessLookupError):  # it has just ended
            if entry.name.isdigit():
                busy.add(entry.stat().st_uid)
    return next(user for user in pwd.getpwall() if user.pw_uid not in busy)


def run_as_another(browser, programs, extension, tests, test):
    """Runs this test as a user with no other process, who can read copies of all that it needs."""
    user = idle_user()
    with tempfile.TemporaryDirectory(prefix="velmorin-bridge-") as folder:
        os.chmod(folder, 0o755)
        for name in PROGRAMS:
            shutil.copy(programs / name, folder)
        shutil.copytree(extension, f"{folder}/extension")
        shutil.copytree(HERE, f"{folder}/tests/desktop")
        shutil.copytree(HERE.parent / "browsers", f"{folder}/tests/browsers")
        os.makedirs("/tmp/.X11-unix", mode=0o1777, exist_ok=True)
        command = [
            "setpriv", f"--reuid={user.pw_uid}", f"--regid={user.pw_gid}", "--clear-groups", sys.executable,
            f"{folder}/tests/desktop/{Path(test).name}", browser, folder, f"{folder}/extension", *tests,
        ]
        needs_policy = browser == "firefox"
        with unsigned_extension(f"{folder}/extension/velmorin.xpi") if needs_policy else contextlib.nullcontext():
            names = {"USER": user.pw_name, "LOGNAME": user.pw_name, "VELMORIN_FIREFOX_POLICY": "1"}
            return subprocess.run(command, env={**os.environ, **names}, cwd=folder).returncode


def reason_to_skip(browser):
    for program in (BROWSER.program, "Xvfb", "xdotool", "openbox", "dbus-daemon", "setpriv"):
        if not shutil.which(program):
            return f"{program} is not installed"
    if browser == "firefox" and os.geteuid() != 0 and not os.environ.get("VELMORIN_FIREFOX_POLICY"):
        return "Firefox takes an unsigned extension only by a policy, which only root can write"
    return None


def is_running(script):
    with tempfile.TemporaryDirectory(prefix="velmorin-bridge-") as runtime:
        done = subprocess.run(
            [script, "-e", list_script(BROWSER.identity)], env={**os.environ, "XDG_RUNTIME_DIR": runtime},
            capture_output=True, text=True, timeout=60,
        )
    return "not running" not in done.stderr


def main(browser, programs, extension, *tests, test=__file__):
    global WORLD, BROWSER
    BROWSER = {"chromium": Chromium, "firefox": Firefox}[browser]
    programs, extension = Path(programs).resolve(), Path(extension).resolve()
    reason = reason_to_skip(browser)
    if not reason and os.geteuid() == 0:
        return run_as_another(browser, programs, extension, tests, test)
    if not reason and is_running(programs / "velmorin-browser-script"):
        reason = "this user runs this browser"
    if reason:
        print(f"skipped: {reason}")
        return SKIPPED
    WORLD = World(programs, extension)
    program = unittest.main(argv=[sys.argv[0], *tests], verbosity=2, exit=False)
    return 0 if program.result.wasSuccessful() else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
