"""./run, ./test and scripts/install-packages, in a copy of their own and with every tool they call replaced by a
fake that writes down how it was called: nothing is installed, built or tested here."""

import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
COMMANDS = ["run", "test", ".ci/run", "scripts/install-packages", "scripts/steps.sh"]

# Stands for scripts/packages, with the same sections.
PACKAGES = """
# A comment.
[build]
g++         g++     # why
cmake       cmake
git         git
ninja-build ninja
tzdata

[test]
clang-format clang-format
clang        clang++
~a-browser   a-browser

[demonstration]
scrot        scrot

[by-hand]
clang        clang++
libclang-rt-dev
"""

# What the commands need of the system besides what is faked.
REAL_TOOLS = "awk bash cat cmp cp cut dirname env git grep mkdir mktemp nproc rm sed tail".split()

# What ./run builds.
PROGRAMS = "Velmorin velmorin-lock velmorin-watchdog velmorin-browser-host velmorin-browser-script browser-extension"

FAKES = {
    # Knows of every package but those in the file `missing`.
    "dpkg-query": """
        for name in "${@:3}"; do
            if grep -qxF "$name" "$fakes/missing"; then status=1; else echo "installed $name"; fi
        done
        exit "${status:-0}"
    """,
    "apt-get": "",
    # Has every package but those in the file `unknown`: $* ends in ^NAME$.
    "apt-cache": """
        name=${*: -1}
        name=${name#^}
        if ! grep -qxF "${name%?}" "$fakes/unknown"; then echo "${name%?}"; fi
    """,
    "id": 'cat "$fakes/user"',
    "sudo": '"$@"',
    "cmake": "",
    "ctest": """
        case "$*" in
        *--print-labels*) printf 'Test project /x\\n\\nAll Labels:\\n  conformance\\n  core\\n  house\\n' ;;
        *) echo "100% tests passed, 0 tests failed out of 3" ;;
        esac
    """,
}


class CommandTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name).resolve()
        self.root = self.folder / "a clone"
        self.fakes = self.folder / "fakes"
        self.fakes.mkdir()
        for command in COMMANDS:
            (self.root / command).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / command, self.root / command)
        (self.root / "scripts/packages").write_text(PACKAGES)
        (self.root / "build/tidy").mkdir(parents=True)
        (self.root / ".clang-tidy").write_text("Checks: '*'\n")
        (self.fakes / "missing").write_text("")
        (self.fakes / "unknown").write_text("")
        (self.fakes / "user").write_text("0\n")
        for tool in REAL_TOOLS:
            os.symlink(shutil.which(tool), self.fakes / tool)
        for tool, body in FAKES.items():
            self.fake(tool, body)

    def fake(self, tool, body):
        """Puts a program on the PATH that notes its call and then does `body`."""
        file = self.fakes / tool
        file.unlink(missing_ok=True)
        bash = shutil.which("bash")
        file.write_text(f'#!{bash}\nfakes=${{0%/*}}\necho "{tool} $*" >>"$fakes/calls"\n{body}\n')
        file.chmod(0o755)

    def program(self, name, body):
        """Puts a program into the tree that `./run` believes to have built."""
        file = self.root / "build/release/bin" / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(f"#!{shutil.which('bash')}\n{body}\n")
        file.chmod(0o755)

    def user(self, number):
        (self.fakes / "user").write_text(f"{number}\n")

    def missing(self, *packages):
        (self.fakes / "missing").write_text("".join(f"{package}\n" for package in packages))

    def call(self, command, *arguments, cwd=None, **variables):
        environment = {"PATH": str(self.fakes), "HOME": str(self.folder), **variables}
        return subprocess.run(
            [self.root / command, *arguments],
            cwd=cwd or self.folder,
            env=environment,
            text=True,
            capture_output=True,
            timeout=60,
        )

    def calls(self, *tools):
        """How the fakes were called, in order; those of `tools`, or all."""
        file = self.fakes / "calls"
        lines = file.read_text().splitlines() if file.exists() else []
        return [line for line in lines if not tools or line.split()[0] in tools]


class InstallPackagesTest(CommandTest):
    def test_nothing_missing_is_quick_and_quiet(self):
        done = self.call("scripts/install-packages")
        self.assertEqual((0, "", ""), (done.returncode, done.stdout, done.stderr))
        self.assertEqual(1, len(self.calls("dpkg-query")))
        self.assertEqual([], self.calls("apt-get", "sudo"))

    def test_a_package_that_not_every_system_has_is_installed_where_there_is_one(self):
        self.missing("a-browser")
        self.call("scripts/install-packages", "test")
        self.assertIn("a-browser", self.calls("apt-get")[-1])

    def test_a_package_that_the_system_does_not_have_is_passed_over_in_silence(self):
        self.missing("a-browser")
        (self.fakes / "unknown").write_text("a-browser\n")
        done = self.call("scripts/install-packages", "test")
        self.assertEqual((0, "", []), (done.returncode, done.stdout, self.calls("apt-get")))
        self.missing("a-browser", "clang")
        self.assertEqual(0, self.call("scripts/install-packages", "test").returncode)
        self.assertNotIn("a-browser", self.calls("apt-get")[-1])

    def test_what_is_missing_is_named_and_installed(self):
        self.missing("tzdata", "cmake")
        done = self.call("scripts/install-packages", "build")
        self.assertEqual(0, done.returncode, done.stderr)
        self.assertIn("Installing 2 packages: cmake tzdata", done.stdout)
        self.assertEqual(
            ["apt-get -qq update", "apt-get -qq install -y --no-install-recommends cmake tzdata"],
            self.calls("apt-get"),
        )
        self.assertEqual([], self.calls("sudo"))

    def test_nobody_is_asked_anything(self):
        self.missing("tzdata")
        self.fake("apt-get", 'echo "frontend: $DEBIAN_FRONTEND" >>"$fakes/calls"')
        self.call("scripts/install-packages")
        self.assertEqual("frontend: noninteractive", self.calls()[-1])

    def test_only_the_sections_asked_for_are_installed(self):
        self.missing("clang-format")
        self.call("scripts/install-packages", "build")
        self.assertEqual([], self.calls("apt-get"))
        self.call("scripts/install-packages", "build", "test")
        self.assertIn("clang-format", self.calls("apt-get")[-1])

    def test_a_package_of_two_sections_is_installed_once(self):
        self.missing("clang")
        self.call("scripts/install-packages")
        self.assertEqual(1, self.calls("apt-get")[-1].split().count("clang"))

    def test_the_real_list_has_the_sections_that_the_commands_ask_for(self):
        lines = (ROOT / "scripts/packages").read_text().splitlines()
        self.assertEqual(["[build]", "[demonstration]", "[test]", "[nightly]", "[by-hand]"], [line for line in lines if line.startswith("[")])

    def test_an_unknown_section_is_an_error(self):
        done = self.call("scripts/install-packages", "tests")
        self.assertEqual(2, done.returncode)
        self.assertIn("No section 'tests'", done.stderr)

    def test_who_is_not_root_uses_sudo(self):
        self.user(1000)
        self.missing("cmake")
        self.assertEqual(0, self.call("scripts/install-packages").returncode)
        self.assertEqual("sudo apt-get -qq update", self.calls("sudo")[0])
        self.assertIn("apt-get -qq install", self.calls("sudo")[1])

    def test_who_is_not_root_and_has_no_sudo_is_told_the_command(self):
        self.user(1000)
        self.missing("cmake", "g++")
        (self.fakes / "sudo").unlink()
        done = self.call("scripts/install-packages")
        self.assertEqual(1, done.returncode)
        self.assertIn("apt-get update && apt-get install -y --no-install-recommends g++ cmake", done.stderr)
        self.assertEqual([], self.calls("apt-get"))

    def test_a_failing_installation_is_told_with_its_output(self):
        self.missing("cmake")
        self.fake("apt-get", 'if [[ $* == *install* ]]; then echo "E: no such package"; exit 100; fi')
        done = self.call("scripts/install-packages")
        self.assertEqual(1, done.returncode)
        self.assertIn("E: no such package", done.stderr)
        self.assertIn("apt-get install -y --no-install-recommends cmake", done.stderr)

    def test_a_source_of_packages_that_fails_to_update_is_no_reason_to_stop(self):
        self.missing("cmake")
        self.fake("apt-get", "[[ $* != *update* ]]")
        self.assertEqual(0, self.call("scripts/install-packages").returncode)

    def test_without_apt_get_the_absent_commands_are_named(self):
        (self.fakes / "apt-get").unlink()
        done = self.call("scripts/install-packages", "build")
        self.assertEqual(1, done.returncode)
        self.assertIn("no apt-get", done.stderr)
        # cmake and git are there, as fake and as link.
        self.assertIn("cannot be installed for you: g++ ninja\n", done.stderr)

    def test_without_apt_get_it_goes_on_when_all_commands_are_there(self):
        (self.fakes / "apt-get").unlink()
        for command in ["g++", "ninja"]:
            self.fake(command, "")
        done = self.call("scripts/install-packages", "build")
        self.assertEqual((0, ""), (done.returncode, done.stderr))


class TestCommandTest(CommandTest):
    def steps(self):
        """The calls that build and test, in short."""
        short = []
        for line in self.calls("cmake", "ctest"):
            words = line.split()
            if words[0] == "ctest":
                tree = words[words.index("--test-dir") + 1]
                short.append(f"test {tree.removeprefix('build/')}")
            elif "--preset" in words:
                short.append(" ".join(["configure", *words[2:]]))
            elif "clean" not in words:
                short.append(" ".join(["build", *words[2:]]).replace("build/", "").replace("--target ", ""))
        return short

    def test_everything_in_its_order(self):
        done = self.call("test")
        self.assertEqual(0, done.returncode, done.stderr)
        self.assertEqual(
            [
                "configure asan",
                "build asan all",
                "configure core-only",
                "build core-only velmorin-conformance velmorin-simulate benchmarks",
                "configure release",
                "build release " + PROGRAMS,
                "configure dev",
                "build dev all_verify_interface_header_sets",
                "test asan",
            ],
            self.steps(),
        )

    def test_the_last_words_are_those_of_the_test_runner(self):
        done = self.call("test")
        self.assertTrue(done.stdout.endswith("100% tests passed, 0 tests failed out of 3\n"), done.stdout)
        self.assertEqual(1, done.stdout.count("100%"))

    def test_each_step_tells_its_time(self):
        self.assertRegex(self.call("test").stdout, r"asan: building \.\.\. +\d+ s\n")

    def test_no_tests_found_is_an_error_everywhere(self):
        self.call("test")
        self.call("test", "core")
        for line in self.calls("ctest"):
            self.assertTrue("--no-tests=error" in line or "--print-labels" in line, line)

    def test_the_first_step_that_fails_ends_the_run_with_its_log(self):
        self.fake("cmake", 'if [[ $* == "--build build/core-only"* ]]; then echo "A.cpp: a finding"; exit 3; fi')
        done = self.call("test")
        self.assertEqual(3, done.returncode)
        self.assertIn("A.cpp: a finding", done.stderr)
        self.assertIn("build/logs/core-only--building.log", done.stderr)
        self.assertTrue(self.steps()[-1].startswith("build core-only"))

    def test_a_tree_that_cannot_be_configured_is_not_built(self):
        self.fake("cmake", "[[ $* != *--preset* ]]")
        self.assertNotEqual(0, self.call("test").returncode)
        self.assertEqual(["configure asan"], self.steps())

    def test_failing_tests_fail_the_run(self):
        self.fake("ctest", 'if [[ $* == *build/asan* ]]; then echo "50% tests passed"; exit 8; fi')
        done = self.call("test")
        self.assertEqual(8, done.returncode)
        self.assertIn("50% tests passed", done.stdout + done.stderr)

    def test_a_label_is_tested_in_the_daily_build_alone(self):
        done = self.call("test", "core")
        self.assertEqual(0, done.returncode, done.stderr)
        self.assertEqual(["configure dev", "build dev all", "test dev", "test dev"], self.steps())
        self.assertIn(" -L ^core$", self.calls("ctest")[-1])

    def test_a_label_in_another_preset(self):
        for arguments in [["core", "--preset", "asan"], ["--preset=asan", "core"]]:
            with self.subTest(arguments):
                self.assertEqual(0, self.call("test", *arguments).returncode)
                self.assertIn("--test-dir build/asan", self.calls("ctest")[-1])
                self.assertIn(" -L ^core$", self.calls("ctest")[-1])

    def test_a_preset_without_a_label_is_all_its_tests(self):
        self.call("test", "--preset", "release")
        self.assertEqual(["configure release", "build release all", "test release"], self.steps())
        self.assertNotIn(" -L", self.calls("ctest")[-1])

    def test_an_unknown_label_is_an_error_that_lists_the_labels(self):
        done = self.call("test", "nosuchlabel")
        self.assertEqual(2, done.returncode)
        self.assertIn("'nosuchlabel'", done.stderr)
        self.assertTrue(done.stderr.endswith("conformance\ncore\nhouse\n"), done.stderr)

    def test_a_part_of_a_label_is_no_label(self):
        self.assertEqual(2, self.call("test", "hous").returncode)

    def test_what_it_does_not_understand_is_an_error(self):
        for arguments in [["--no-such-option"], ["core", "house"], ["--preset"]]:
            with self.subTest(arguments):
                self.assertNotEqual(0, self.call("test", *arguments).returncode)
                self.assertEqual([], self.calls())

    def test_help_does_nothing_else(self):
        done = self.call("test", "--help")
        self.assertEqual(0, done.returncode)
        self.assertIn("Usage: ./test", done.stdout)
        self.assertEqual([], self.calls())

    def test_it_works_from_any_folder(self):
        for folder in [self.root, self.root / "scripts", Path("/")]:
            with self.subTest(folder):
                self.assertEqual(0, self.call("test", "core", cwd=folder).returncode)

    def test_a_tree_of_another_folder_is_configured_afresh(self):
        cache = self.root / "build/dev/CMakeCache.txt"
        cache.parent.mkdir(parents=True)
        cache.write_text("CMAKE_HOME_DIRECTORY:INTERNAL=/somewhere/else\n")
        dependencies = cache.parent / ".ninja_deps"
        dependencies.write_text("/somewhere/else/core/session/Schedule.h")
        self.call("test", "core")
        self.assertEqual("configure dev --fresh", self.steps()[0])
        self.assertFalse(dependencies.exists())

    def test_a_tree_of_this_folder_is_kept(self):
        cache = self.root / "build/dev/CMakeCache.txt"
        cache.parent.mkdir(parents=True)
        cache.write_text(f"CMAKE_HOME_DIRECTORY:INTERNAL={self.root}\n")
        dependencies = cache.parent / ".ninja_deps"
        dependencies.write_text("")
        self.call("test", "core")
        self.assertEqual("configure dev", self.steps()[0])
        self.assertTrue(dependencies.exists())

    def test_other_checks_of_clang_tidy_check_everything_again(self):
        def cleaned():
            return "cmake --build build/tidy --target clean" in self.calls("cmake")

        self.call("test", "--preset", "tidy")
        self.assertTrue(cleaned())
        (self.fakes / "calls").unlink()
        self.call("test", "--preset", "tidy")
        self.assertFalse(cleaned())
        (self.root / ".clang-tidy").write_text("Checks: '-*'\n")
        self.call("test", "--preset", "tidy")
        self.assertTrue(cleaned())

    def test_missing_packages_are_installed_first(self):
        self.missing("clang-format")
        self.assertEqual(0, self.call("test", "house").returncode)
        self.assertIn("clang-format", self.calls("apt-get")[-1])

    def test_the_sanitizers_of_clang_are_installed_for_the_presets_that_need_them(self):
        self.missing("libclang-rt-dev")
        self.call("test")
        self.assertEqual([], self.calls("apt-get"))
        self.call("test", "--preset", "tsan")
        self.assertIn("libclang-rt-dev", self.calls("apt-get")[-1])

    def test_continuous_integration_runs_the_same(self):
        self.assertEqual(0, self.call(".ci/run").returncode)
        self.assertEqual("test asan", self.steps()[-1])


class RunCommandTest(CommandTest):
    PLAYED = "<scripts/demonstration.py><build/release/bin><build/pictures>"

    def test_with_a_display_it_opens_the_program(self):
        self.missing("scrot")
        self.program("velmorin-lock", "exit 0")
        self.program("Velmorin", 'printf "opened<%s>" "$*"')
        done = self.call("run", DISPLAY=":0")
        self.assertEqual(0, done.returncode, done.stderr)
        self.assertTrue(done.stdout.endswith("opened<>"), done.stdout)
        self.assertEqual([], self.calls("apt-get"), "it takes no pictures")

    def test_without_a_display_it_plays_the_demonstration(self):
        self.missing("scrot")
        self.fake("python3", 'printf "<%s>" "$@"')
        done = self.call("run")
        self.assertIn("scrot", self.calls("apt-get")[-1])
        self.assertTrue(done.stdout.endswith(self.PLAYED), done.stdout)

    def test_with_a_display_that_is_not_there_it_plays_the_demonstration(self):
        self.missing("scrot")
        self.program("velmorin-lock", "exit 2")
        self.program("Velmorin", "echo opened")
        self.fake("python3", 'printf "<%s>" "$@"')
        done = self.call("run", DISPLAY=":4711")
        self.assertIn("scrot", self.calls("apt-get")[-1])
        self.assertIn(":4711", done.stderr)
        self.assertTrue(done.stdout.endswith(self.PLAYED), done.stdout)

    def test_the_demonstration_can_be_asked_for(self):
        self.fake("python3", 'printf "<%s>" "$@"')
        done = self.call("run", "--demonstration", DISPLAY=":0")
        self.assertTrue(done.stdout.endswith(self.PLAYED), done.stdout)

    def test_it_builds_and_starts_the_windowless_program_where_it_was_called(self):
        self.program("velmorin-lock", 'pwd; printf "<%s>" "$@"')
        done = self.call("run", "--lock", "one", "two words")
        self.assertEqual(0, done.returncode, done.stderr)
        self.assertTrue(done.stdout.endswith(f"{self.folder}\n<one><two words>"), done.stdout)
        self.assertEqual("cmake --preset release", self.calls("cmake")[0])

    def test_the_windowless_program_is_handed_even_help(self):
        self.program("velmorin-lock", 'printf "<%s>" "$@"')
        self.assertTrue(self.call("run", "--lock", "--help").stdout.endswith("<--help>"))

    def test_the_status_is_that_of_the_program(self):
        self.program("velmorin-lock", "exit 7")
        self.assertEqual(7, self.call("run", "--lock", "profile.json").returncode)

    def test_a_failing_build_starts_nothing(self):
        self.program("velmorin-lock", "echo started")
        self.fake("cmake", 'if [[ $* == *--build* ]]; then echo "error: no"; exit 1; fi')
        done = self.call("run", "--lock", "profile.json")
        self.assertEqual(1, done.returncode)
        self.assertIn("error: no", done.stderr)
        self.assertNotIn("started", done.stdout)

    def test_what_only_tests_need_is_not_installed(self):
        self.program("velmorin-lock", "")
        self.missing("clang", "clang-format", "scrot")
        self.call("run", "--lock", "profile.json")
        self.assertEqual([], self.calls("apt-get"))

    def test_what_it_does_not_understand_is_an_error(self):
        done = self.call("run", "profile.json")
        self.assertEqual(2, done.returncode)
        self.assertIn("Usage: ./run", done.stderr)
        self.assertEqual([], self.calls())

    def test_help_does_nothing_else(self):
        done = self.call("run", "--help")
        self.assertEqual(0, done.returncode)
        self.assertIn("Usage: ./run", done.stdout)
        self.assertEqual([], self.calls())


if __name__ == "__main__":
    unittest.main()
