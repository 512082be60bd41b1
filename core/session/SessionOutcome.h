#pragma once

#include <array>
#include <string_view>

namespace velmorin {

/// How a session ended.
enum class SessionOutcome {
    completed, ///< the plan ran out, or the user left when only break time remained
    aborted,   ///< ended before its work was done
};

constexpr std::array<std::string_view, 2> rawValues(SessionOutcome) {
    return {"completed", "aborted"};
}

} // namespace velmorin
