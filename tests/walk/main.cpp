// velmorin-walk: plays random walks on the simulated desktop and checks after each step what must always hold.

#include "tests/walk/WalkSearch.h"

#include <charconv>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string_view>

namespace velmorin {

namespace {

constexpr int malformed = 2;
constexpr const char* usage = R"(Usage: velmorin-walk [--sequences N] [--steps N] [--seed S]

Plays N random walks of the engine (default 1000, of 40 steps each) and checks after each step what docs/invariants.md
says. The same seed plays the same walks. A walk that fails is made as small as possible and printed as a scenario for
velmorin-simulate; the status is then 1, as it is when the walks have not come past everything they should.
)";

/// From how many walks on all that can happen should have happened.
constexpr std::size_t enoughWalks = 500;

bool read(std::string_view text, auto& value) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc{} && end == text.data() + text.size();
}

bool parse(int count, char** arguments, SearchOptions& options) {
    for (int index = 1; index + 1 < count; index += 2) {
        const std::string_view name = arguments[index];
        const std::string_view value = arguments[index + 1];
        const bool isRead = name == "--sequences" ? read(value, options.walks)
                            : name == "--steps"   ? read(value, options.stepsEach)
                            : name == "--seed"    ? read(value, options.seed)
                                                  : false;
        if (!isRead) return false;
    }
    return count % 2 == 1;
}

int run(int count, char** arguments) {
    SearchOptions options;
    options.walks = 1000;
    if (!parse(count, arguments, options)) {
        std::cerr << usage;
        return malformed;
    }
    std::cout << "seed " << options.seed << std::endl;
    WalkStatistics statistics;
    const auto finding = search(options, statistics);
    std::cout << statistics.text();
    if (finding) {
        std::cout << finding->text();
        return EXIT_FAILURE;
    }
    const auto missing = statistics.missing();
    if (options.walks < enoughWalks || missing.empty()) return EXIT_SUCCESS;
    std::cout << "never reached:";
    for (const auto& name : missing)
        std::cout << " " << name;
    std::cout << "\n";
    return EXIT_FAILURE;
}

} // namespace

} // namespace velmorin

int main(int count, char** arguments) {
    try {
        return velmorin::run(count, arguments);
    } catch (const std::exception& failure) {
        std::cerr << "velmorin-walk: " << failure.what() << '\n';
        return EXIT_FAILURE;
    }
}
