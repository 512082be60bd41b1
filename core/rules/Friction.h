#pragma once

#include "core/foundation/Date.h"

#include <cstdint>
#include <string_view>

/// What makes leaving a session cost something. Pure; any thread.
namespace velmorin::Friction {

/// In user-perceived characters.
inline constexpr std::int64_t minimumExitReasonLength = 10;

/// The pause in seconds that the given attempt of a session brings, from 5 for the first to 60 from the sixth on.
double warningPauseSeconds(std::int64_t attempt);

/// Whether a session may be ended early: the wait is over, and the reason is long enough without the white space
/// around it.
bool canConfirmExit(std::string_view reason, Date waitedUntil, Date now);

} // namespace velmorin::Friction
