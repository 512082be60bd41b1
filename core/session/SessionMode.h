#pragma once

#include <array>
#include <string_view>

namespace velmorin {

/// The two kinds of session.
enum class SessionMode {
    pomodoro, ///< short rounds with open breaks
    deep,     ///< one long block with locked breaks
};

constexpr std::array<std::string_view, 2> rawValues(SessionMode) {
    return {"pomodoro", "deep"};
}

/// The length in seconds of the wait that ending a session early imposes.
constexpr double exitWaitSeconds(SessionMode mode) {
    return mode == SessionMode::deep ? 180.0 : 60.0;
}

} // namespace velmorin
