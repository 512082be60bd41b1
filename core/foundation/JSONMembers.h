#pragma once

#include "core/foundation/JSONCoding.h"

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace velmorin {

/// The members of one JSON object whose types are not known beforehand, each kept as JSON until it is asked for.
class JSONMembers {
public:
    /// Absent unless the whole text is one well-formed object without a repeated key of its own.
    static std::optional<JSONMembers> parse(std::string text);

    /// A member's own JSON; absent when it is missing.
    std::optional<std::string> raw(const std::string& key) const;

    /// The value of a member; absent when it is missing or of another type.
    template <class Value>
    std::optional<Value> get(const std::string& key) const {
        const auto found = m_members.find(key);
        return found == m_members.end() ? std::nullopt : decodeJSON<Value>(found->second);
    }

    /// Whether there is such a member and it is not null.
    bool hasValue(const std::string& key) const;

    /// The names of all members, in the order of their bytes.
    std::vector<std::string> keys() const;

private:
    std::map<std::string, std::string> m_members;
};

} // namespace velmorin
