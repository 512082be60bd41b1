#include "core/foundation/JSONMembers.h"

namespace velmorin {

std::optional<JSONMembers> JSONMembers::parse(std::string text) {
    JSONMembers object;
    const bool isObject = JSONInput::read(std::move(text), [&object](JSONInput& input) {
        return input.forEachMember([&object](std::string_view key, JSONInput& value) {
            const auto [place, isNew] = object.m_members.try_emplace(std::string{key});
            return isNew && value.readRaw(place->second);
        });
    });
    if (!isObject) return std::nullopt;
    return object;
}

std::optional<std::string> JSONMembers::raw(const std::string& key) const {
    const auto found = m_members.find(key);
    return found == m_members.end() ? std::nullopt : std::optional{found->second};
}

bool JSONMembers::hasValue(const std::string& key) const {
    const auto found = m_members.find(key);
    return found != m_members.end() && found->second != "null";
}

std::vector<std::string> JSONMembers::keys() const {
    std::vector<std::string> names;
    for (const auto& member : m_members)
        names.push_back(member.first);
    return names;
}

} // namespace velmorin
