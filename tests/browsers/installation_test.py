#!/usr/bin/env python3
"""How the host is made known to browsers, and that it and the extension know each other.

Usage: installation_test.py FOLDER_OF_PROGRAMS FOLDER_OF_THE_EXTENSION
"""

import base64
import hashlib
import json
import os
import subprocess
import sys
import tempfile
import unittest
import zipfile
from pathlib import Path

PROGRAMS = None
EXTENSION = None
NAME = "com.kestrava.velmorin.json"


def chromium_identifier(key):
    """How a Chromium names an extension with this key."""
    digest = hashlib.sha256(base64.b64decode(key)).hexdigest()[:32]
    return "".join(chr(ord("a") + int(digit, 16)) for digit in digest)


class InstallationTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="velmorin-installation-")
        self.addCleanup(folder.cleanup)
        self.home = Path(folder.name)
        self.host = PROGRAMS / "velmorin-browser-host"

    def run_host(self, *arguments, **environment):
        variables = {name: value for name, value in os.environ.items() if name not in ("HOME", "XDG_CONFIG_HOME")}
        variables.update({"HOME": str(self.home), **environment})
        variables = {name: value for name, value in variables.items() if value is not None}
        return subprocess.run(
            [self.host, *arguments], env=variables, cwd=self.home, capture_output=True, text=True, timeout=30
        )

    def files(self):
        return sorted(str(path.relative_to(self.home)) for path in self.home.rglob("*") if path.is_file())

    def test_the_browsers_of_a_user_are_told_and_untold(self):
        self.assertEqual(self.run_host("--install").returncode, 0)
        self.assertEqual(
            self.files(),
            [
                f".config/chromium/NativeMessagingHosts/{NAME}",
                f".config/google-chrome/NativeMessagingHosts/{NAME}",
                f".mozilla/native-messaging-hosts/{NAME}",
            ],
        )
        for file in self.files():
            manifest = json.loads((self.home / file).read_text())
            self.assertEqual(manifest["path"], str(self.host.resolve()))
            self.assertEqual(manifest["name"] + ".json", NAME)
        self.assertEqual(self.run_host("--uninstall").returncode, 0)
        self.assertEqual(self.files(), [])
        self.assertEqual(self.run_host("--uninstall").returncode, 0, "a second time")

    def test_another_configuration_folder_is_used_where_it_is_named(self):
        self.run_host("--install", XDG_CONFIG_HOME=str(self.home / "elsewhere"))
        self.assertIn(f"elsewhere/chromium/NativeMessagingHosts/{NAME}", self.files())
        self.assertNotIn(f".config/chromium/NativeMessagingHosts/{NAME}", self.files())

    def test_a_folder_of_profiles_can_be_named(self):
        self.assertEqual(self.run_host("--install", "profiles").returncode, 0)
        self.assertEqual(self.files(), [f"profiles/NativeMessagingHosts/{NAME}"])
        self.assertEqual(self.run_host("--uninstall", str(self.home / "profiles")).returncode, 0)
        self.assertEqual(self.files(), [])

    def test_one_place_that_fails_is_told_and_keeps_no_other_back(self):
        (self.home / ".mozilla").write_text("a file where a folder should be")
        done = self.run_host("--install")
        self.assertEqual(done.returncode, 1)
        self.assertIn(".mozilla", done.stderr)
        self.assertIn(f".config/google-chrome/NativeMessagingHosts/{NAME}", self.files())

    def test_without_a_home_nothing_is_done(self):
        done = self.run_host("--install", HOME=None)
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertIn("HOME", done.stderr)

    def test_wrong_use_is_told(self):
        for arguments in ([], ["--instal"], ["--install", "a", "b"], ["--manifest"], ["--manifest", "opera", "/x"],
                          ["--manifest", "firefox", "relative"]):
            done = self.run_host(*arguments)
            self.assertEqual((done.returncode, done.stdout), (1, ""), arguments)
            self.assertTrue(done.stderr)
        self.assertEqual(self.files(), [])

    def test_the_help_names_every_option(self):
        done = self.run_host("--help")
        self.assertEqual(done.returncode, 0)
        for word in ("--install", "--uninstall", "--manifest", "XDG_RUNTIME_DIR", NAME):
            self.assertIn(word, done.stdout)

    def test_host_and_extension_know_each_other(self):
        chromium = json.loads((EXTENSION / "chromium" / "manifest.json").read_text())
        host = json.loads(self.run_host("--manifest", "chromium", "/opt/host").stdout)
        self.assertEqual(host["allowed_origins"], [f"chrome-extension://{chromium_identifier(chromium['key'])}/"])
        firefox = json.loads((EXTENSION / "firefox" / "manifest.json").read_text())
        host = json.loads(self.run_host("--manifest", "firefox", "/opt/host").stdout)
        self.assertEqual(host["allowed_extensions"], [firefox["browser_specific_settings"]["gecko"]["id"]])
        self.assertIn(f'"{host["name"]}"', (EXTENSION / "chromium" / "bridge.mjs").read_text())

    def test_both_extensions_are_of_one_source(self):
        names = ["background.mjs", "bridge.mjs"]
        for name in names:
            self.assertEqual((EXTENSION / "chromium" / name).read_bytes(), (EXTENSION / "firefox" / name).read_bytes())
        with zipfile.ZipFile(EXTENSION / "velmorin.xpi") as archive:
            self.assertEqual(archive.namelist(), [*names, "manifest.json"])
            for name in archive.namelist():
                self.assertEqual(archive.read(name), (EXTENSION / "firefox" / name).read_bytes())


if __name__ == "__main__":
    PROGRAMS, EXTENSION = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
