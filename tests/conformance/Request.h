#pragma once

#include "core/foundation/JSONArguments.h"

#include <string>

namespace velmorin::conformance {

/// One line of input: the name of an operation, and its arguments.
class Request : public JSONArguments {
public:
    /// Throws MalformedInput when the line is not one object, without repeated keys, with a text "op".
    explicit Request(std::string line);

    const std::string& operation() const { return m_operation; }

private:
    std::string m_operation;
};

} // namespace velmorin::conformance
