#include "app/phone/RelayLine.h"

#include "core/foundation/JSONMembers.h"

#include <utility>

namespace velmorin {

std::optional<RelayLine> RelayLine::parse(std::string line) {
    const auto object = JSONMembers::parse(std::move(line));
    if (!object || object->get<std::string>("event") != "message") return std::nullopt;
    auto id = object->get<std::string>("id");
    auto text = object->get<std::string>("message");
    if (!id || !text) return std::nullopt;
    return RelayLine{std::move(*id), std::move(*text)};
}

} // namespace velmorin
