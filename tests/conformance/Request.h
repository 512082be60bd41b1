#pragma once

#include "core/foundation/JSONMembers.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace velmorin::conformance {

/// What is wrong with a request, in words for its sender.
class MalformedRequest : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// One line of input: the name of an operation and its arguments, each kept as JSON until it is asked for.
class Request {
public:
    /// Throws MalformedRequest when the line is not one object, without repeated keys, with a text "op".
    explicit Request(std::string line);

    const std::string& operation() const { return m_operation; }

    /// An argument that must be there. Throws MalformedRequest when it is missing or of another type.
    template <class Value>
    Value get(const std::string& name) const {
        auto value = find<Value>(name);
        if (!value) throw MalformedRequest{"the argument \"" + name + "\" is missing"};
        return std::move(*value);
    }

    /// An argument that may be missing or null. Throws MalformedRequest when it is of another type.
    template <class Value>
    std::optional<Value> find(const std::string& name) const {
        auto value = m_arguments.get<Value>(name);
        if (!value && m_arguments.hasValue(name)) throw MalformedRequest{"the argument \"" + name + "\" is malformed"};
        return value;
    }

    /// An argument's own JSON. Throws MalformedRequest when it is missing.
    std::string raw(const std::string& name) const;

private:
    std::string m_operation;
    JSONMembers m_arguments;
};

} // namespace velmorin::conformance
