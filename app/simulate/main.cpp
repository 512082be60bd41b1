// velmorin-simulate: plays a scenario with the real engine on a simulated desktop and prints what happens.

#include "app/simulate/Scenario.h"
#include "core/store/PosixFiles.h"

#include <charconv>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>

namespace velmorin {

namespace {

constexpr int malformed = 2;
constexpr const char* usage =
    R"(Usage: velmorin-simulate [--ticks] [--speed N] [SCENARIO]

Plays a session of Velmorin on a simulated desktop: the program's own engine, with a virtual clock, applications,
browsers, a relay and a disk that exist only in memory and in a temporary folder. Three hours take milliseconds.

SCENARIO is a file with one JSON object a line; without it, or with "-", standard input is read. The first line sets the
scene, each other one is a step. Everything that happens is printed as one JSON object a line, with the virtual time "t"
in seconds since the start.

    {"setup":{"front":10,"applications":[{"pid":10,"bundleID":"org.example.editor","name":"Editor"}]}}
    {"do":"start","profile":{"name":"Work","allowedApps":[{"bundleID":"org.example.editor","name":"Editor"}]}}
    {"do":"advance","seconds":7200}
    {"do":"show"}

  --ticks      prints the tick of every second, too
  --speed N    plays N times as fast as life instead of at once
  --help       this text

A malformed line ends the run with status 2 and a message that names the line. The manual page velmorin-simulate(1) has
all steps and events; docs/scenarios/ has examples.
)";

struct CommandLine {
    bool tellsTicks = false;
    bool asksForHelp = false;
    std::optional<double> speed;
    std::optional<std::string> file;
};

std::optional<double> parseSpeed(std::string_view text) {
    double speed = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), speed);
    const bool isSpeed = error == std::errc{} && end == text.data() + text.size() && speed > 0;
    return isSpeed ? std::optional{speed} : std::nullopt;
}

/// Absent when the arguments make no sense.
std::optional<CommandLine> parse(int count, char** arguments) {
    CommandLine line;
    for (int index = 1; index < count; ++index) {
        const std::string argument = arguments[index];
        if (argument == "--ticks") {
            line.tellsTicks = true;
        } else if (argument == "--help" || argument == "-h") {
            line.asksForHelp = true;
        } else if (argument == "--speed" && index + 1 < count) {
            line.speed = parseSpeed(arguments[++index]);
            if (!line.speed) return std::nullopt;
        } else if ((argument == "-" || !argument.starts_with('-')) && !line.file) {
            line.file = argument;
        } else {
            return std::nullopt;
        }
    }
    return line;
}

/// A new folder that goes with this.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "velmorin-simulate-XXXXXX").string();
        if (!mkdtemp(pattern.data())) throw std::system_error{errno, std::generic_category(), pattern};
        path = pattern;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

    std::filesystem::path path;
};

int play(std::istream& input, const CommandLine& line) {
    const TemporaryFolder folder;
    PosixFiles files;
    Scenario::Options options{folder.path / "Velmorin", line.tellsTicks, {}};
    if (line.speed) {
        options.pace = [speed = *line.speed](double seconds) {
            std::cout.flush();
            std::this_thread::sleep_for(std::chrono::duration<double>{seconds / speed});
        };
    }
    Scenario scenario{files, options, [](const SimulatedEvent& event) { std::cout << event.line() << '\n'; }};
    std::size_t number = 0;
    for (std::string text; std::getline(input, text);) {
        ++number;
        if (text.find_first_not_of(" \t\r") == std::string::npos) continue;
        try {
            scenario.play(text);
        } catch (const std::exception& failure) {
            std::cout.flush();
            std::cerr << "velmorin-simulate: line " << number << ": " << failure.what() << '\n';
            return malformed;
        }
    }
    std::cout.flush();
    if (scenario.scene()) return std::cout ? EXIT_SUCCESS : EXIT_FAILURE;
    std::cerr << "velmorin-simulate: line " << number + 1 << ": the scenario ends before it has set the scene\n";
    return malformed;
}

int run(int count, char** arguments) {
    const auto line = parse(count, arguments);
    if (!line) {
        std::cerr << usage;
        return malformed;
    }
    if (line->asksForHelp) {
        std::cout << usage;
        return EXIT_SUCCESS;
    }
    if (!line->file || *line->file == "-") return play(std::cin, *line);
    std::ifstream file{*line->file};
    if (!file || std::filesystem::is_directory(*line->file)) {
        std::cerr << "velmorin-simulate: " << *line->file << " cannot be read\n";
        return malformed;
    }
    return play(file, *line);
}

} // namespace

} // namespace velmorin

int main(int count, char** arguments) {
    try {
        return velmorin::run(count, arguments);
    } catch (const std::exception& failure) {
        std::cerr << "velmorin-simulate: " << failure.what() << '\n';
        return EXIT_FAILURE;
    }
}
