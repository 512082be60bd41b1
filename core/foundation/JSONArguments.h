#pragma once

#include "core/foundation/JSONCoding.h"
#include "core/foundation/JSONMembers.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace velmorin {

/// What is wrong with an input, in words for its author.
class MalformedInput : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// An object that somebody wrote by hand, as a request or a step: each member is kept as JSON until it is asked for,
/// and what is wrong is said in words. For tools; what the program stores is read by `decodeJSON`.
class JSONArguments {
public:
    /// Throws MalformedInput when the text is not one object without repeated keys.
    explicit JSONArguments(std::string text);

    /// A member that must be there. Throws MalformedInput when it is missing or of another type.
    template <class Value>
    Value get(const std::string& name) const {
        auto value = find<Value>(name);
        if (!value) throw MalformedInput{"the argument \"" + name + "\" is missing"};
        return std::move(*value);
    }

    /// A member that may be missing or null. Throws MalformedInput when it is of another type.
    template <class Value>
    std::optional<Value> find(const std::string& name) const {
        auto value = m_members.get<Value>(name);
        if (!value && m_members.hasValue(name)) throw MalformedInput{"the argument \"" + name + "\" is malformed"};
        return value;
    }

    /// A member's own JSON. Throws MalformedInput when it is missing.
    std::string raw(const std::string& name) const;

    /// A member that is an object itself. Throws MalformedInput when it is missing or no object.
    JSONArguments object(const std::string& name) const;
    /// A member that is a list of objects; empty when it is missing. Throws MalformedInput when it is something else.
    std::vector<JSONArguments> objects(const std::string& name) const;

    /// Whether there is such a member and it is not null.
    bool hasValue(const std::string& name) const { return m_members.hasValue(name); }
    /// Whether there is such a member at all.
    bool has(const std::string& name) const { return m_members.raw(name).has_value(); }
    /// The names of all members.
    std::vector<std::string> keys() const { return m_members.keys(); }

private:
    JSONMembers m_members;
};

/// An object with the members of another put over its own, member by member where both are objects; `over` itself where
/// one of them is none.
std::string overlaid(const std::string& base, const std::string& over);

/// A value of which somebody wrote only what differs from `base`. Throws MalformedInput when no value comes of it;
/// `what` says what it should have been.
template <class Value>
Value readOver(const Value& base, const std::string& json, const char* what) {
    auto value = decodeJSON<Value>(overlaid(encodeJSON(base).value_or("{}"), json));
    if (!value) throw MalformedInput{std::string{"this is not a "} + what};
    return std::move(*value);
}

} // namespace velmorin
