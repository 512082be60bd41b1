#pragma once

#include "app/engine/OverlayState.h"
#include "core/foundation/JSONCoding.h"
#include "core/foundation/JSONOutput.h"
#include "core/session/ScheduleStatus.h"

#include <optional>
#include <string_view>

/// The engine's values as the events of its tools show them.
namespace velmorin {

template <class Value>
void writeMember(JSONOutput& output, std::string_view key, const Value& value) {
    output.key(key);
    encode(output, value);
}

/// An absent value is null.
template <class Value>
void writeMember(JSONOutput& output, std::string_view key, const std::optional<Value>& value) {
    output.key(key);
    if (value) {
        encode(output, *value);
    } else {
        output.writeNull();
    }
}

/// Writes the members of an overlay: the state's name and its payload's fields.
void writeOverlay(JSONOutput& output, const OverlayState& state);
/// Writes a position in a plan as an object.
void writeStatus(JSONOutput& output, const ScheduleStatus& status);

} // namespace velmorin
