#include "core/rules/Friction.h"

#include "core/foundation/Text.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace velmorin::Friction {

double warningPauseSeconds(std::int64_t attempt) {
    constexpr std::array pauses{5.0, 10.0, 20.0, 30.0, 45.0, 60.0};
    const auto row = std::clamp<std::int64_t>(attempt, 1, static_cast<std::int64_t>(pauses.size())) - 1;
    return pauses[static_cast<std::size_t>(row)];
}

bool canConfirmExit(std::string_view reason, Date waitedUntil, Date now) {
    if (now < waitedUntil) return false;
    return characterCount(trimmed(reason)) >= minimumExitReasonLength;
}

} // namespace velmorin::Friction
