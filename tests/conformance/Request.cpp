#include "tests/conformance/Request.h"

#include <utility>

namespace velmorin::conformance {

namespace {

JSONMembers membersOf(std::string line) {
    auto members = JSONMembers::parse(std::move(line));
    if (!members) throw MalformedRequest{"the line is not a JSON object"};
    return std::move(*members);
}

} // namespace

Request::Request(std::string line) : m_arguments{membersOf(std::move(line))} {
    m_operation = get<std::string>("op");
}

std::string Request::raw(const std::string& name) const {
    const auto json = m_arguments.raw(name);
    if (!json) throw MalformedRequest{"the argument \"" + name + "\" is missing"};
    return *json;
}

} // namespace velmorin::conformance
