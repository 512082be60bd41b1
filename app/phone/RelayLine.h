#pragma once

#include <optional>
#include <string>

namespace velmorin {

/// One line of the relay's stream that carries a message. Pure; any thread.
struct RelayLine {
    std::string id;   ///< the relay's own name of the message
    std::string text; ///< what was sealed

    /// Absent for every other line: the relay's own events, and text that is not such an object.
    static std::optional<RelayLine> parse(std::string line);

    bool operator==(const RelayLine&) const = default;
};

} // namespace velmorin
