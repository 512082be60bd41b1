#include "app/platform/linux/applications/CommandLine.h"

#include <algorithm>
#include <array>
#include <span>

namespace velmorin::CommandLine {

namespace {

using Words = std::span<const std::string>;

/// What runs a script that is named first, or right behind options of these kinds. Other options may take the next word
/// for themselves, so that nothing behind them is sure to be the script.
struct Interpreter {
    std::string_view name; ///< without the version
    std::string_view options;
};

constexpr std::string_view shellOptions = "-e -u -x -eu -l";
constexpr std::array<Interpreter, 22> interpreters{{
    {"python", "-u -s -E -I -B -O -OO -S -P"},
    {"pypy", "-u -s -E -B -O -OO -S"},
    {"perl", "-w -T"},
    {"ruby", "-w"},
    {"gjs", "-m"},
    {"gjs-console", "-m"},
    {"cjs", "-m"},
    {"cjs-console", "-m"},
    {"node", ""},
    {"lua", ""},
    {"luajit", ""},
    {"php", ""},
    {"tclsh", ""},
    {"wish", ""},
    {"guile", ""},
    {"sh", shellOptions},
    {"bash", shellOptions},
    {"dash", shellOptions},
    {"zsh", shellOptions},
    {"ksh", shellOptions},
    {"mksh", shellOptions},
    {"fish", ""},
}};

/// What runs something whose place on the command line differs from case to case, or in a sandbox.
constexpr std::array<std::string_view, 24> launchers{
    "electron",   "java",    "mono",           "mono-sgen",
    "dotnet",     "wine",    "wine-preloader", "wine64-preloader",
    "flatpak",    "snap",    "bwrap",          "firejail",
    "sudo",       "pkexec",  "xdg-open",       "gio",
    "gtk-launch", "busybox", "systemd-run",    "dbus-run-session",
    "nohup",      "setsid",  "nice",           "exo-open",
};

/// A name without a version at its end: python3.11 is python.
std::string_view withoutVersion(std::string_view name) {
    const auto last = name.find_last_not_of("0123456789.-");
    return last == std::string_view::npos ? name : name.substr(0, last + 1);
}

const Interpreter* interpreter(std::string_view name) {
    const auto found = std::ranges::find(interpreters, withoutVersion(name), &Interpreter::name);
    return found == interpreters.end() ? nullptr : &*found;
}

bool isLauncher(std::string_view name) {
    return std::ranges::find(launchers, name) != launchers.end() ||
           std::ranges::find(launchers, withoutVersion(name)) != launchers.end();
}

bool isListed(std::string_view options, std::string_view word) {
    while (!options.empty()) {
        const auto end = std::min(options.find(' '), options.size());
        if (options.substr(0, end) == word) return true;
        options.remove_prefix(std::min(end + 1, options.size()));
    }
    return false;
}

std::string script(Words words, const Interpreter& interpreter) {
    while (!words.empty() && isListed(interpreter.options, words.front()))
        words = words.subspan(1);
    return words.empty() || words.front().starts_with('-') ? std::string{} : words.front();
}

/// What `env` runs in the end; none when its options leave that open.
Words behindEnv(Words words) {
    words = words.subspan(1);
    while (!words.empty()) {
        const std::string_view word = words.front();
        if (word.starts_with("-S") || word.starts_with("--split-string")) return {};
        const bool takesNext = word == "-u" || word == "--unset" || word == "-C" || word == "--chdir";
        if (!word.starts_with('-') && word.find('=') == std::string_view::npos) break;
        words = words.subspan(std::min<std::size_t>(takesNext ? 2 : 1, words.size()));
    }
    return words;
}

} // namespace

bool isRuntime(std::string_view fileName) {
    return fileName == "env" || interpreter(fileName) != nullptr || isLauncher(fileName);
}

std::string program(const Arguments& arguments) {
    Words words = arguments;
    while (!words.empty() && fileName(words.front()) == "env")
        words = behindEnv(words);
    if (words.empty()) return {};
    const auto name = fileName(words.front());
    if (const auto* found = interpreter(name)) return script(words.subspan(1), *found);
    return isLauncher(name) ? std::string{} : words.front();
}

std::string_view fileName(std::string_view path) {
    const auto slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

} // namespace velmorin::CommandLine
