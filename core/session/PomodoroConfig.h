#pragma once

#include "core/foundation/Fields.h"

#include <cstdint>
#include <tuple>
#include <type_traits>

namespace velmorin {

/// The timings of a pomodoro plan as the user set them. They are stored as they are; the bounds are applied each time
/// a plan is built.
struct PomodoroConfig {
    std::int64_t workMinutes = 25;
    std::int64_t shortBreakMinutes = 5;
    std::int64_t longBreakMinutes = 15;
    std::int64_t cyclesBeforeLongBreak = 4; ///< work blocks
    std::int64_t totalCycles = 4;           ///< work blocks

    bool operator==(const PomodoroConfig&) const = default;
};

constexpr auto fields(std::type_identity<PomodoroConfig>) {
    return std::tuple{
        field("workMinutes", &PomodoroConfig::workMinutes),
        field("shortBreakMinutes", &PomodoroConfig::shortBreakMinutes),
        field("longBreakMinutes", &PomodoroConfig::longBreakMinutes),
        field("cyclesBeforeLongBreak", &PomodoroConfig::cyclesBeforeLongBreak),
        field("totalCycles", &PomodoroConfig::totalCycles),
    };
}

} // namespace velmorin
