#!/usr/bin/env python3
"""The rules of the house that no compiler checks: who may include whom, no real clock where time is an argument,
no system conditionals outside the platform folders, own header first, no toolkit in the core, no file that is
never built.

Usage: check_house.py ROOT

Prints one line "file:line: message" per finding and exits with 1; without findings it says how many files it read.
"""

import re
import sys
from pathlib import Path, PurePosixPath

# --- The rules, as data ---------------------------------------------------------------------------------------------

# Who may include whom. The key is a folder (or a file) with everything below it, the value the folders it may
# include besides itself. The longest key that fits a file is its place; a file of core/ or app/ without a place is
# a finding, so a new folder gets its line here before it gets its second file.
# tests/, bench/ and fuzz/ stand outside: they may include all of core/ and app/, tests/support/ and their own folder.
BELOW_ENGINE = ["core", "app/seams", "app/strings", "app/phone"]
PLACES = {
    "core/foundation": [],
    "core/store": ["core/foundation"],
    "core/language": ["core/foundation"],
    "core/geometry": ["core/foundation"],
    "core/session": ["core/foundation", "core/language"],
    "core/rules": ["core/foundation", "core/language", "core/session"],
    "core/phone": ["core/foundation", "core/session", "core/store", "core/language"],
    "app/seams": ["core"],
    "app/strings": ["core", "app/seams"],
    "app/phone": ["core", "app/seams", "app/strings"],
    "app/theme": ["core", "app/seams", "app/strings"],
    "app/engine": BELOW_ENGINE,
    "app/shell": [*BELOW_ENGINE, "app/engine", "app/theme"],
    "app/screens": [*BELOW_ENGINE, "app/engine", "app/theme", "app/shell"],
    # The compositions: the program, and the engine on the simulated desktop.
    "app/main.cpp": ["core", "app"],
    "app/simulate": [*BELOW_ENGINE, "app/engine", "app/platform/simulated"],
    "app/gallery": [*BELOW_ENGINE, "app/engine", "app/theme", "app/shell", "app/screens", "app/platform/simulated"],
    "app/composition": [*BELOW_ENGINE, "app/engine", "app/platform/linux", "app/platform/posix"],
    "app/lock": [*BELOW_ENGINE, "app/engine", "app/composition", "app/platform/linux", "app/platform/posix"],
    "app/program": ["core", "app"],
    # The platform folders see the seams they serve, never the engine and never each other.
    "app/platform/simulated": ["core", "app/seams", "app/strings"],
    "app/platform/posix": ["core", "app/seams", "app/strings"],
    "app/platform/qt": ["core", "app/seams", "app/strings"],
    "app/platform/linux": ["core", "app/seams", "app/strings"],
    "app/platform/macos": ["core", "app/seams", "app/strings"],
}

# Where sources live. Everything of ours is included from the root, so an included path begins with one of these.
TOP_FOLDERS = ["core", "app", "tests", "bench", "fuzz"]
SUFFIXES = {".h", ".cpp", ".mm"}

# Where time is an argument or a seam. The tests of these folders tell time themselves, or they would depend on when
# and how fast they run.
TIMELESS = [
    "core", "app/seams", "app/strings", "app/phone", "app/engine",
    "tests/core", "tests/seams", "tests/phone", "tests/engine", "tests/walk", "tests/simulated",
]

# What knows the time, waits for it, or has a timer of its own. Names of our own making that only contain such a
# word (startTime, localtime, SimulatedClock::now) are no findings.
TIME_SOURCES = [
    r"\b(?:system|steady|high_resolution|utc|tai|gps|file)_clock\b",
    r"\bclock::now\b",
    r"\bsleep_(?:for|until)\b",
    r"\b(?:gettimeofday|clock_gettime|clock_nanosleep|timespec_get|ftime)\s*\(",
    r"\b(?:usleep|nanosleep|setitimer|timer_create|timerfd_create)\s*\(",
    # The C functions with everyday names: as std:: or ::, or with what only they are called with.
    r"(?:\bstd\s*::|(?<![\w>])::)\s*(?:time|clock|sleep)\s*\(",
    r"(?<![\w.:>])time\s*\(\s*(?:nullptr|NULL|0|&\s*\w+)\s*\)",
    r"(?<![\w.:>])sleep\s*\(\s*\d+\s*\)",
    r"\b(?:ucal_)?getNow\s*\(",
    r"\bQ(?:Date|Time|DateTime)\s*::\s*current\w*",
    r"\bQThread\s*::\s*[mu]?sleep\b",
    r"\bQ(?:Basic|Chrono|Deadline|Elapsed)?Timer\b",
    r"\bQTest\s*::\s*q(?:Sleep|Wait)\w*",
    r"\bstartTimer\s*\(",
]

# The conditionals that tell systems apart belong to the folders that are chosen per system.
SYSTEM_CONDITIONALS_ALLOWED = ["app/platform"]
SYSTEM_MACROS = (
    r"\b(?:__linux(?:__)?|linux|__unix(?:__)?|unix|__gnu_linux__|__ANDROID__|__APPLE__|__MACH__|TARGET_OS_\w+"
    r"|_WIN32|_WIN64|WIN32|__CYGWIN__|__(?:Free|Net|Open)BSD__|Q_OS_\w+)\b"
)

# What must build where there is no toolkit.
TOOLKIT_FREE = [
    "core", "app/seams", "app/strings", "app/phone", "app/theme", "app/engine", "app/platform/linux",
    "app/platform/posix", "app/platform/simulated", "app/simulate", "app/composition", "app/lock",
]
TOOLKIT_HEADER = r"(?:Qt?[A-Z]\w*(?:/.+)?|q[a-z0-9_]+\.h)"

# --- Reading C++ ----------------------------------------------------------------------------------------------------

# What may hold any text, in the order in which it must be looked for. A quote inside a number (1'000) is no literal.
NOT_CODE = re.compile(
    r"""
      (?P<comment> //(?:\\\n|[^\n])* | /\*.*?(?:\*/|\Z) )
    | (?P<raw> \b(?:u8|[uUL])?R"(?P<mark>[^\s()\\]{0,16})\(.*?\)(?P=mark)" )
    | (?P<text> "(?:\\.|[^"\\\n])*" )
    | (?P<number> \b\d[\w.']* )
    | (?P<character> '(?:\\.|[^'\\\n])+' )
    """,
    re.VERBOSE | re.DOTALL,
)
INCLUDE = re.compile(
    r'^[ \t]*#[ \t]*(?:include|import)[ \t]*(?:"(?P<ours>[^"\n]*)"|<(?P<theirs>[^>\n]*)>)', re.MULTILINE
)
CONDITIONAL = re.compile(r"^[ \t]*#[ \t]*(?:el)?if(?:n?def)?\b(?:\\\n|[^\n])*", re.MULTILINE)


def without(kinds, text):
    """`text` with these kinds of NOT_CODE blanked out; what is left stays where it was."""

    def blanked(match):
        return re.sub(r"[^\n]", " ", match.group()) if match.lastgroup in kinds else match.group()

    return NOT_CODE.sub(blanked, text)


def is_within(path, folder):
    return path == folder or path.startswith(folder + "/")


def is_within_any(path, folders):
    return any(is_within(path, folder) for folder in folders)


class Source:
    """One file: its path from the root, and its text as the rules want to see it."""

    def __init__(self, root, path):
        self.root = root
        self.path = path
        # A source that is not UTF-8 is still read: only names of ASCII letters matter here.
        self.text = without({"comment"}, (root / path).read_text(encoding="utf-8", errors="replace"))
        self.code = without({"raw", "text", "character"}, self.text)

    def line(self, offset):
        return self.text.count("\n", 0, offset) + 1

    def includes(self):
        """(line, path, whether in quotes) of each include."""
        for match in INCLUDE.finditer(without({"raw"}, self.text)):
            ours = match["ours"] is not None
            yield self.line(match.start()), match["ours"] if ours else match["theirs"], ours


# --- The checks: each yields (line, message) ------------------------------------------------------------------------


def place_of(path):
    """The key of PLACES that `path` belongs to, or None."""
    fitting = [place for place in PLACES if is_within(path, place)]
    return max(fitting, key=len, default=None)


def check_place(source):
    if is_within_any(source.path, ["core", "app"]) and place_of(source.path) is None:
        folder = source.path.rpartition("/")[0]
        yield 1, f"{folder}/ has no place in the table of include directions (scripts/check_house.py)"


def check_include_directions(source):
    place = place_of(source.path)
    if place is not None:
        allowed = [place, *PLACES[place]]
    elif is_within_any(source.path, ["core", "app"]):
        return  # check_place has spoken
    else:
        parts = source.path.split("/")
        place = "/".join(parts[:-1][:2])
        allowed = ["core", "app", "tests/support", place]
    for line, included, ours in source.includes():
        if ours and is_within_any(included, TOP_FOLDERS) and not is_within_any(included, allowed):
            yield line, f'{place} may not include "{included}"'


def check_own_includes(source):
    for line, included, ours in source.includes():
        if not ours:
            if is_within_any(included, TOP_FOLDERS) and (source.root / included).is_file():
                yield line, f"<{included}> is a file of ours: include it in quotes"
        elif included.endswith(".moc"):
            pass  # what moc generates lies beside what is built
        elif included.startswith(".") or "/../" in included or not is_within_any(included, TOP_FOLDERS):
            if re.fullmatch(TOOLKIT_HEADER, included):
                yield line, f'"{included}" is not a file of ours: include it in angle brackets'
            else:
                yield line, f'"{included}" is not included from the root, as in "core/session/Schedule.h"'
        elif not (source.root / included).is_file():
            yield line, f'"{included}" does not exist'


def check_own_header_first(source):
    stem, _, suffix = source.path.rpartition(".")
    header = stem + ".h"
    if suffix == "h" or not (source.root / header).is_file():
        return
    line, first, _ = next(source.includes(), (1, None, True))
    if first != header:
        yield line, f'the first include must be the own header, "{header}"'


def check_time_sources(source):
    if not is_within_any(source.path, TIMELESS):
        return
    for pattern in TIME_SOURCES:
        for match in re.finditer(pattern, source.code):
            name = match.group().partition("(")[0].rstrip()
            yield source.line(match.start()), f"{name}: no real clock, timer or sleep here; take `now` or a seam"


def check_system_conditionals(source):
    if is_within_any(source.path, SYSTEM_CONDITIONALS_ALLOWED):
        return
    for conditional in CONDITIONAL.finditer(source.code):
        for macro in re.finditer(SYSTEM_MACROS, conditional.group()):
            line = source.line(conditional.start() + macro.start())
            yield line, f"{macro.group()}: systems are told apart under app/platform/ only"


def check_toolkit_free(source):
    if not is_within_any(source.path, TOOLKIT_FREE):
        return
    for line, included, _ in source.includes():
        if re.fullmatch(TOOLKIT_HEADER, included):
            yield line, f"{included}: this folder builds without the toolkit"


def check_is_built(source):
    """A source that no CMakeLists.txt names would never be compiled, and a test in it never run. Headers count where
    libraries list them; those of tests are found by who includes them."""
    path = PurePosixPath(source.path)
    if not (source.root / "CMakeLists.txt").is_file():
        return
    if path.suffix == ".h" and path.parts[0] not in ("core", "app"):
        return
    # bench/ and fuzz/ name their programs, not their files.
    short = re.sub(r"_(?:bench|fuzz)$", "", path.stem) if path.parts[0] == "fuzz" else path.stem
    for folder in path.parents:
        lists = source.root / folder / "CMakeLists.txt"
        names = [str(path.relative_to(folder)), *([short] if path.parts[0] in ("bench", "fuzz") else [])]
        words = re.split(r"[\s()]+", lists.read_text(encoding="utf-8")) if lists.is_file() else []
        if any(name in words for name in names):
            return
    yield 1, "no CMakeLists.txt names this file, so that it is never built"


CHECKS = [
    check_place,
    check_include_directions,
    check_own_includes,
    check_own_header_first,
    check_time_sources,
    check_system_conditionals,
    check_toolkit_free,
    check_is_built,
]


def source_paths(root):
    for top in TOP_FOLDERS:
        for file in sorted((root / top).rglob("*")):
            if file.suffix in SUFFIXES and file.is_file():
                yield file.relative_to(root).as_posix()


def conflict_marks(root):
    """(path, line, message) of each mark of a merge that was left in a file, of whatever kind."""
    for top in [*TOP_FOLDERS, "scripts", "docs", "cmake", "browser-extension", "resources"]:
        for file in sorted((root / top).rglob("*")):
            if not file.is_file() or file.suffix in (".wav", ".png", ".pyc"):
                continue
            text = file.read_text(encoding="utf-8", errors="replace")
            for match in re.finditer(r"^(?:<{7}|>{7}) ", text, re.MULTILINE):
                yield file.relative_to(root).as_posix(), text.count("\n", 0, match.start()) + 1, "the mark of a conflict"


def main(arguments):
    if len(arguments) != 1:
        print("Usage: check_house.py ROOT", file=sys.stderr)
        return 2
    root = Path(arguments[0])
    paths = list(source_paths(root))
    if not paths:
        print(f"{root}: no source file at all; is this the root of the project?", file=sys.stderr)
        return 1
    findings = set(conflict_marks(root))
    for path in paths:
        source = Source(root, path)
        findings.update((path, line, message) for check in CHECKS for line, message in check(source))
    for path, line, message in sorted(findings):
        print(f"{path}:{line}: {message}")
    if not findings:
        print(f"{len(paths)} files, no findings")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
