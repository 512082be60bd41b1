"""Each rule of scripts/check_house.py on a small tree that breaks it, and one tree that keeps them all."""

import contextlib
import io
import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
import check_house

GOOD_TREE = {
    "core/foundation/Date.h": "#pragma once\n#include <compare>\n",
    "core/foundation/Date.cpp": '#include "core/foundation/Date.h"\n\n#include <cmath>\n',
    "core/language/AppLanguage.h": '#include "core/foundation/Date.h"\n',
    "core/session/Schedule.h": '#include "core/foundation/Date.h"\n#include "core/language/AppLanguage.h"\n',
    "core/session/Schedule.cpp": '// Why.\n#include "core/session/Schedule.h"\n',
    "core/phone/PhoneWire.h": '#include "core/session/Schedule.h"\n',
    "app/seams/Clock.h": '#include "core/foundation/Date.h"\n',
    "app/strings/AppStrings.h": '#include "app/seams/Clock.h"\n',
    "app/phone/PhoneLink.h": '#include "app/strings/AppStrings.h"\n#include "core/phone/PhoneWire.h"\n',
    "app/engine/SessionController.h": '#include "app/phone/PhoneLink.h"\n',
    "app/platform/linux/SystemClock.h": '#include "app/seams/Clock.h"\n',
    "app/platform/linux/SystemClock.cpp": (
        '#include "app/platform/linux/SystemClock.h"\n#ifdef __linux__\n'
        "auto now() { return std::chrono::system_clock::now(); }\n#endif\n"
    ),
    "app/platform/qt/QtTimers.cpp": '#include "app/platform/qt/QtTimers.h"\n\n#include <QTimer>\n',
    "app/shell/AppDelegate.cpp": '#include <QtGui/QWindow>\n#include "app/engine/SessionController.h"\n',
    "app/screens/StartScreen.h": '#include "app/shell/Shell.h"\n',
    "app/shell/Shell.h": "",
    "app/main.cpp": '#include "app/platform/qt/QtTimers.h"\n#include "app/screens/StartScreen.h"\n',
    "app/platform/qt/QtTimers.h": "",
    "tests/support/Plans.h": '#include "core/session/Schedule.h"\n',
    "tests/core/Samples.h": "",
    "tests/core/session/Schedule_test.cpp": (
        '#include "core/session/Schedule.h"\n#include "tests/core/Samples.h"\n#include "tests/support/Plans.h"\n'
    ),
    "bench/schedule_bench.cpp": '#include "core/session/Schedule.h"\n#include "tests/support/Plans.h"\n',
    "fuzz/wire_fuzz.cpp": '#include "core/phone/PhoneWire.h"\n',
}


def findings(tree):
    """What the lint says of a tree, as (status, list of lines)."""
    with tempfile.TemporaryDirectory() as folder:
        for path, text in tree.items():
            file = Path(folder) / path
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text, encoding="utf-8")
        said = io.StringIO()
        with contextlib.redirect_stdout(said), contextlib.redirect_stderr(said):
            status = check_house.main([folder])
        return status, said.getvalue().splitlines()


class CheckHouseTest(unittest.TestCase):
    def test_the_marks_of_a_conflict_are_found_in_files_of_every_kind(self):
        for mark in ("<" * 7 + " HEAD", ">" * 7 + " theirs"):
            status, said = findings({**GOOD_TREE, "docs/page.md": f"text\n{mark}\n"})
            self.assertEqual((1, ["docs/page.md:2: the mark of a conflict"]), (status, said))

    def assert_clean(self, tree):
        status, lines = findings(tree)
        self.assertEqual([], [line for line in lines if "no findings" not in line])
        self.assertEqual(0, status)

    def assert_finding(self, tree, path, line, *words):
        """Exactly one finding, at this place, with these words in its message."""
        status, lines = findings(tree)
        self.assertEqual(1, status)
        self.assertEqual(1, len(lines), lines)
        self.assertTrue(lines[0].startswith(f"{path}:{line}: "), lines[0])
        for word in words:
            self.assertIn(word, lines[0])

    def assert_finding_in(self, path, text, line, *words):
        self.assert_finding({path: text}, path, line, *words)


class TreeTest(CheckHouseTest):
    def test_a_tree_that_keeps_the_rules_has_no_findings(self):
        self.assert_clean(GOOD_TREE)

    def test_the_number_of_files_is_told(self):
        self.assertEqual((0, ["1 files, no findings"]), findings({"core/foundation/Date.h": ""}))

    def test_a_tree_without_sources_is_an_error(self):
        status, lines = findings({"core/foundation/CMakeLists.txt": ""})
        self.assertEqual(1, status)
        self.assertIn("no source file at all", lines[0])

    def test_every_finding_is_told(self):
        status, lines = findings({"core/foundation/A.h": "#include <QString>\n#ifdef __linux__\n#endif\n"})
        self.assertEqual(1, status)
        self.assertEqual(2, len(lines), lines)
        self.assertIn("A.h:1: QString", lines[0])
        self.assertIn("A.h:2: __linux__", lines[1])


class BuiltTest(CheckHouseTest):
    ROOT = {"CMakeLists.txt": "add_subdirectory(core)\n"}

    def test_a_file_that_is_named_from_its_list_is_built(self):
        self.assert_clean({**self.ROOT, "core/CMakeLists.txt": "f(SOURCES\n    foundation/A.cpp\n)\n",
                           "core/foundation/A.cpp": ""})
        self.assert_clean({**self.ROOT, "fuzz/CMakeLists.txt": "velmorin_fuzz(store)\n", "fuzz/store_fuzz.cpp": ""})
        self.assert_clean({**self.ROOT, "tests/support/Plans.h": ""})

    def test_a_file_that_no_list_names_is_a_finding(self):
        built = {**self.ROOT, "core/CMakeLists.txt": "f(SOURCES\n    foundation/A.cpp\n)\n"}
        self.assert_finding({**built, "core/foundation/B.cpp": ""}, "core/foundation/B.cpp", 1, "never built")
        self.assert_finding({**built, "core/foundation/A.h": ""}, "core/foundation/A.h", 1, "never built")
        self.assert_finding({**built, "core/session/A.cpp": ""}, "core/session/A.cpp", 1, "never built")
        self.assert_finding({**self.ROOT, "tests/core/A_test.cpp": ""}, "tests/core/A_test.cpp", 1, "never built")


class PlaceTest(CheckHouseTest):
    def test_an_unknown_folder_below_core_is_a_finding(self):
        self.assert_finding_in("core/misc/A.h", "", 1, "core/misc/", "no place")

    def test_an_unknown_folder_below_app_is_a_finding(self):
        self.assert_finding_in("app/tools/A.h", "", 1, "app/tools/", "no place")

    def test_an_unknown_platform_is_a_finding(self):
        self.assert_finding_in("app/platform/amiga/A.h", "", 1, "no place")

    def test_a_file_between_the_folders_is_a_finding(self):
        self.assert_finding_in("core/Everything.h", "", 1, "no place")

    def test_a_folder_within_a_known_one_belongs_to_it(self):
        self.assert_clean({"app/screens/components/A.h": ""})


class IncludeDirectionTest(CheckHouseTest):
    def assert_may_not(self, path, included):
        tree = {path: f'\n#include "{included}"\n', included: ""}
        self.assert_finding(tree, path, 2, "may not include", included)

    def test_the_core_points_downwards(self):
        self.assert_may_not("core/foundation/A.h", "core/session/B.h")
        self.assert_may_not("core/store/A.h", "core/session/B.h")
        self.assert_may_not("core/language/A.h", "core/session/B.h")
        self.assert_may_not("core/geometry/A.h", "core/session/B.h")
        self.assert_may_not("core/session/A.h", "core/rules/B.h")
        self.assert_may_not("core/rules/A.h", "core/store/B.h")
        self.assert_may_not("core/phone/A.h", "core/rules/B.h")

    def test_the_core_does_not_know_the_application(self):
        self.assert_may_not("core/session/A.h", "app/seams/Clock.h")

    def test_the_application_points_downwards(self):
        self.assert_may_not("app/seams/A.h", "app/strings/B.h")
        self.assert_may_not("app/strings/A.h", "app/phone/B.h")
        self.assert_may_not("app/phone/A.h", "app/engine/B.h")
        self.assert_may_not("app/engine/A.h", "app/shell/B.h")
        self.assert_may_not("app/shell/A.h", "app/screens/B.h")

    def test_only_main_names_platforms(self):
        self.assert_may_not("app/engine/A.cpp", "app/platform/linux/B.h")
        self.assert_may_not("app/shell/A.cpp", "app/platform/qt/B.h")
        self.assert_may_not("app/screens/A.cpp", "app/platform/simulated/B.h")

    def test_platforms_know_neither_the_engine_nor_each_other(self):
        self.assert_may_not("app/platform/linux/A.h", "app/engine/B.h")
        self.assert_may_not("app/platform/linux/A.h", "app/phone/B.h")
        self.assert_may_not("app/platform/linux/A.h", "app/platform/qt/B.h")
        self.assert_may_not("app/platform/macos/A.h", "app/platform/linux/B.h")
        self.assert_may_not("app/platform/macos/A.mm", "app/platform/simulated/B.h")

    def test_the_product_does_not_know_its_tests(self):
        self.assert_may_not("core/store/A.cpp", "tests/support/B.h")
        self.assert_may_not("app/main.cpp", "tests/support/B.h")
        self.assert_may_not("core/store/A.cpp", "bench/B.h")

    def test_tests_share_only_their_support(self):
        self.assert_may_not("tests/engine/A_test.cpp", "tests/core/B.h")
        self.assert_may_not("bench/a_bench.cpp", "tests/core/B.h")
        self.assert_may_not("tests/support/A.h", "tests/core/B.h")

    def test_a_name_that_only_begins_like_a_folder_is_not_within_it(self):
        status, lines = findings({"core/session/A.h": '#include "core/foundations/B.h"\n', "core/foundations/B.h": ""})
        self.assertEqual(1, status)
        self.assertTrue(any("core/session may not include" in line for line in lines), lines)


class OwnIncludeTest(CheckHouseTest):
    def test_relative_includes_are_findings(self):
        for included in ["Date.h", "./Date.h", "../foundation/Date.h", "foundation/Date.h"]:
            with self.subTest(included):
                tree = {"core/foundation/Date.h": "", "core/foundation/A.h": f'#include "{included}"\n'}
                self.assert_finding(tree, "core/foundation/A.h", 1, included, "from the root")

    def test_a_way_back_within_the_path_is_a_finding(self):
        tree = {"core/foundation/Date.h": "", "core/session/A.h": '#include "core/session/../foundation/Date.h"\n'}
        self.assert_finding(tree, "core/session/A.h", 1, "from the root")

    def test_an_included_file_of_ours_must_exist(self):
        self.assert_finding_in("core/session/A.h", '#include "core/session/B.h"\n', 1, "does not exist")

    def test_a_file_of_ours_in_angle_brackets_is_a_finding(self):
        tree = {"core/foundation/Date.h": "", "core/foundation/A.h": "#include <core/foundation/Date.h>\n"}
        self.assert_finding(tree, "core/foundation/A.h", 1, "in quotes")

    def test_a_toolkit_header_in_quotes_is_a_finding(self):
        self.assert_finding_in("app/shell/A.h", '#include "QWindow"\n', 1, "angle brackets")

    def test_what_moc_generates_is_no_finding(self):
        self.assert_clean({"app/shell/A.cpp": '#include "A.moc"\n'})

    def test_an_include_in_a_comment_or_a_raw_string_is_no_include(self):
        self.assert_clean({"core/foundation/A.h": '/*\n#include "B.h"\n*/\nauto text = R"x(\n#include "B.h"\n)x";\n'})


class OwnHeaderTest(CheckHouseTest):
    def test_the_own_header_comes_first(self):
        tree = {
            "core/foundation/Date.h": "",
            "core/foundation/Date.cpp": '// Why.\n#include <cmath>\n#include "core/foundation/Date.h"\n',
        }
        self.assert_finding(tree, "core/foundation/Date.cpp", 2, "core/foundation/Date.h")

    def test_the_own_header_must_be_included_at_all(self):
        tree = {"core/foundation/Date.h": "", "core/foundation/Date.cpp": "int x;\n"}
        self.assert_finding(tree, "core/foundation/Date.cpp", 1, "core/foundation/Date.h")

    def test_objective_cxx_is_no_exception(self):
        tree = {"app/platform/macos/A.h": "", "app/platform/macos/A.mm": "#import <Cocoa/Cocoa.h>\n"}
        self.assert_finding(tree, "app/platform/macos/A.mm", 1, "app/platform/macos/A.h")

    def test_a_source_without_a_header_begins_as_it_likes(self):
        self.assert_clean({"core/foundation/Date.cpp": "#include <cmath>\n"})


class TimeTest(CheckHouseTest):
    SOURCES_OF_TIME = [
        "std::chrono::system_clock::now()",
        "std::chrono::steady_clock::time_point start;",
        "using Clock = std::chrono::high_resolution_clock;",
        "file_time_type::clock::now()",
        "time(nullptr)",
        "return time( NULL );",
        "time(0)",
        "time(&seconds)",
        "std::time(out)",
        "x = ::time(out)",
        "std::clock()",
        "gettimeofday(&t, nullptr)",
        "clock_gettime(CLOCK_REALTIME, &t)",
        "std::this_thread::sleep_for(1s)",
        "std::this_thread::sleep_until(then)",
        "usleep(10)",
        "nanosleep(&t, nullptr)",
        "sleep(1)",
        "::sleep(seconds)",
        "icu::Calendar::getNow()",
        "ucal_getNow()",
        "QThread::sleep(1)",
        "QThread::msleep(1)",
        "QTimer timer;",
        "QTimer::singleShot(0, f)",
        "QElapsedTimer timer;",
        "QDateTime::currentDateTime()",
        "QDateTime::currentMSecsSinceEpoch()",
        "QDate::currentDate()",
        "QTime::currentTime()",
        "QTest::qSleep(10)",
        "QTest::qWait(10)",
        "QTest::qWaitFor(f)",
    ]
    NO_SOURCES_OF_TIME = [
        "auto x = startTime(segment);",
        "auto x = localtime(zone);",
        "auto x = record.time(nullptr);",
        "auto x = record->time(0);",
        "auto x = Record::time(0);",
        "Record(Date date) : time(date) {}",
        "Date time(const Record& record);",
        "Date FixedClock::now() const { return m_now; }",
        "fixture.clock().now();",
        "desktop.sleep(3600);",
        "void sleep(Seconds length);",
        "auto mySystem_clock_name = 0;",
        "// std::chrono::system_clock::now() is not for us",
        "/* time(nullptr)\n   sleep(1) */",
        'auto text = "time(nullptr)";',
        'auto text = R"(usleep(10) " time(0))";',
        "auto quote = '\"'; // \" time(0)",
        "auto large = 1'000'000; // '",
    ]

    def test_sources_of_time_are_findings(self):
        for code in self.SOURCES_OF_TIME:
            with self.subTest(code):
                self.assert_finding_in("core/session/A.cpp", f"\n{{ {code}; }}\n", 2, "no real clock")

    def test_names_of_our_own_comments_and_texts_are_none(self):
        for code in self.NO_SOURCES_OF_TIME:
            with self.subTest(code):
                self.assert_clean({"core/session/A.cpp": f"{code}\n"})

    def test_a_finding_below_comments_and_texts_keeps_its_line(self):
        text = '/* one\n two */\nauto text = R"(three\nfour)"; // five \\\n five\nauto now = time(nullptr);\n'
        self.assert_finding_in("core/session/A.cpp", text, 6, "time")

    def test_the_rule_holds_where_time_is_an_argument_and_in_the_tests_of_it(self):
        tests = ["tests/core", "tests/engine", "tests/phone", "tests/seams"]
        for folder in ["core/session", "app/engine", "app/phone", *tests]:
            with self.subTest(folder):
                self.assert_finding_in(f"{folder}/A.cpp", "auto now = time(nullptr);\n", 1, "no real clock")

    def test_other_folders_may_know_the_time(self):
        for folder in ["app/platform/linux", "app/shell", "tests/desktop", "tests/support", "bench", "fuzz"]:
            with self.subTest(folder):
                self.assert_clean({f"{folder}/A.cpp": "auto now = time(nullptr);\n"})


class SystemConditionalTest(CheckHouseTest):
    def test_conditionals_on_the_system_are_findings(self):
        for condition in [
            "#ifdef __linux__",
            "#ifndef _WIN32",
            "#if defined(__APPLE__) && X",
            "# if defined Q_OS_LINUX",
            "#if X\n#elif defined(Q_OS_MACOS)",
            "#if TARGET_OS_OSX",
        ]:
            for path in ["core/store/A.cpp", "app/engine/A.h", "app/main.cpp", "tests/core/A.cpp", "bench/A.cpp"]:
                with self.subTest(condition, path=path):
                    line = 1 + condition.count("\n")
                    self.assert_finding_in(path, f"{condition}\n#endif\n", line, "app/platform/")

    def test_a_conditional_over_several_lines_is_read_to_its_end(self):
        self.assert_finding_in("core/store/A.cpp", "#if defined(X) || \\\n    defined(_WIN32)\n#endif\n", 2, "_WIN32")

    def test_the_platform_folders_may(self):
        self.assert_clean({"app/platform/qt/A.cpp": "#ifdef Q_OS_LINUX\n#endif\n"})

    def test_other_conditionals_are_no_findings(self):
        self.assert_clean({"core/store/A.cpp": "#ifndef NDEBUG\n#endif\n#if MY__linux__X // __linux__\n#endif\n"})


class ToolkitTest(CheckHouseTest):
    def test_the_toolkit_stays_out_of_what_builds_without_it(self):
        for included in ["QString", "QtCore/QString", "QtQml", "qglobal.h"]:
            for folder in check_house.TOOLKIT_FREE:
                place = folder + "/foundation" if folder == "core" else folder
                with self.subTest(included, folder=folder):
                    self.assert_finding_in(f"{place}/A.h", f"#include <{included}>\n", 1, "without the toolkit")

    def test_headers_that_only_look_similar_are_none(self):
        self.assert_clean({"core/foundation/A.h": "#include <queue>\n#include <quadmath/q.h>\n"})


if __name__ == "__main__":
    unittest.main()
