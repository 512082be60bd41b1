#include "core/phone/PhoneStatus.h"

#include "core/foundation/JSONMembers.h"

#include <utility>

namespace velmorin::PhoneStatus {

namespace {

template <class Case>
std::optional<Status> withID(const std::optional<UUID>& id) {
    return id ? std::optional<Status>{Case{*id}} : std::nullopt;
}

} // namespace

std::optional<Status> decode(std::string text) {
    const auto object = JSONMembers::parse(std::move(text));
    if (!object) return std::nullopt;
    const auto type = object->get<std::string>("type");
    const auto id = object->get<UUID>("id");
    if (type == "thought") return PhoneThought::fromObject(*object);
    if (type == "hello") return Hello{};
    if (type == "locked") return withID<Locked>(id);
    if (type == "released") return withID<Released>(id);
    if (type == "notReady") return withID<NotReady>(id);
    return std::nullopt;
}

} // namespace velmorin::PhoneStatus
