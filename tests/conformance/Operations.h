#pragma once

#include "core/foundation/JSONOutput.h"
#include "tests/conformance/Request.h"

#include <functional>
#include <map>
#include <string>

namespace velmorin::conformance {

/// Answers one request by writing exactly one value. Throws MalformedRequest.
using Operation = std::function<void(const Request&, JSONOutput&)>;
using Operations = std::map<std::string, Operation, std::less<>>;

// Each adds the operations of one folder of the core.
void addSessionOperations(Operations& operations);
void addStatisticsOperations(Operations& operations);
void addStoreOperations(Operations& operations);

} // namespace velmorin::conformance
