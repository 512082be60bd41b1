#pragma once

#include "core/foundation/Date.h"
#include "core/store/JSONStore.h"

#include <string_view>

namespace velmorin::EventLog {

/// A plain text file with one event a line, read by nothing in the program.
inline constexpr std::string_view fileName = "events.log";

/// At start a log above this size in bytes is deleted; no older generation is kept. A log of just this size stays.
inline constexpr std::uint64_t maximumBytes = 1'000'000;

/// To be called once, when the program starts.
void rotateIfLarge(const JSONStore& store);

/// Adds a line of the moment, one blank and `message`, a short English phrase. A line that cannot be written is lost.
void log(const JSONStore& store, Date now, std::string_view message);

} // namespace velmorin::EventLog
