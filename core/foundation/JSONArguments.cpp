#include "core/foundation/JSONArguments.h"

namespace velmorin {

namespace {

JSONMembers membersOf(std::string text) {
    auto members = JSONMembers::parse(std::move(text));
    if (!members) throw MalformedInput{"this is not a JSON object"};
    return std::move(*members);
}

} // namespace

JSONArguments::JSONArguments(std::string text) : m_members{membersOf(std::move(text))} {}

std::string JSONArguments::raw(const std::string& name) const {
    const auto json = m_members.raw(name);
    if (!json) throw MalformedInput{"the argument \"" + name + "\" is missing"};
    return *json;
}

JSONArguments JSONArguments::object(const std::string& name) const {
    const std::string json = raw(name);
    if (!JSONMembers::parse(json)) throw MalformedInput{"the argument \"" + name + "\" is not an object"};
    return JSONArguments{json};
}

std::vector<JSONArguments> JSONArguments::objects(const std::string& name) const {
    std::vector<JSONArguments> list;
    if (!hasValue(name)) return list;
    const bool isList = JSONInput::read("[" + raw(name) + "]", [&list](JSONInput& outer) {
        return outer.forEachElement([&list](JSONInput& array) {
            return array.forEachElement([&list](JSONInput& element) {
                std::string json;
                const bool isObject = element.kind() == JSONInput::Kind::object && element.readRaw(json);
                if (isObject) list.emplace_back(std::move(json));
                return isObject;
            });
        });
    });
    if (!isList) throw MalformedInput{"the argument \"" + name + "\" is not a list of objects"};
    return list;
}

std::string overlaid(const std::string& base, const std::string& over) {
    const auto below = JSONMembers::parse(base);
    const auto above = JSONMembers::parse(over);
    if (!below || !above) return over;
    JSONOutput output;
    output.beginObject();
    for (const auto& key : below->keys()) {
        output.key(key);
        const auto replacement = above->raw(key);
        output.writeJSON(replacement ? overlaid(*below->raw(key), *replacement) : *below->raw(key));
    }
    for (const auto& key : above->keys()) {
        if (below->raw(key)) continue;
        output.key(key);
        output.writeJSON(*above->raw(key));
    }
    output.endObject();
    return output.take().value_or(over);
}

} // namespace velmorin
