#pragma once

#include "core/foundation/Date.h"
#include "core/foundation/UUID.h"
#include "core/session/Segment.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

/// What the desktop tells the phone. Written only, never read here.
namespace velmorin::PhoneCommand {

/// Lock for a session.
struct Start {
    UUID id; ///< of the session
    Date startedAt;
    std::vector<Segment> segments;
    std::int64_t sequence = 0; ///< time of creation in whole milliseconds since 1970
};

/// Release.
struct End {
    UUID id; ///< of the session
    std::int64_t sequence = 0;
};

using Command = std::variant<Start, End>;

/// The message as JSON with sorted keys; absent when a number has no JSON form.
std::optional<std::string> encoded(const Command& command);

} // namespace velmorin::PhoneCommand
