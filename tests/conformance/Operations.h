#pragma once

#include "core/foundation/Calendar.h"
#include "core/foundation/JSONCoding.h"
#include "tests/conformance/Request.h"

#include <functional>
#include <map>
#include <optional>
#include <string>

namespace velmorin::conformance {

/// Answers one request by writing exactly one value. Throws MalformedInput.
using Operation = std::function<void(const Request&, JSONOutput&)>;
using Operations = std::map<std::string, Operation, std::less<>>;

/// The calendar in the zone of the argument "timeZone". Throws MalformedInput when there is no such zone.
Calendar calendarOf(const Request& request);

/// Writes a value, or null where it is absent.
template <class Value>
void writeOptional(JSONOutput& output, const std::optional<Value>& value) {
    if (value) {
        encode(output, *value);
    } else {
        output.writeNull();
    }
}

// Each adds the operations of one folder of the core.
void addLanguageOperations(Operations& operations);
void addPhoneOperations(Operations& operations);
void addRulesOperations(Operations& operations);
void addSessionOperations(Operations& operations);
void addStatisticsOperations(Operations& operations);
void addStoreOperations(Operations& operations);
void addStringsOperations(Operations& operations);

} // namespace velmorin::conformance
