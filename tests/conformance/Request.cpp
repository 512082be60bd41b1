#include "tests/conformance/Request.h"

#include <utility>

namespace velmorin::conformance {

Request::Request(std::string line) {
    const bool isObject = JSONInput::read(std::move(line), [this](JSONInput& input) {
        return input.forEachMember(
            [this](std::string_view key, JSONInput& value) { return value.readRaw(m_arguments[std::string{key}]); });
    });
    if (!isObject) throw MalformedRequest{"the line is not a JSON object"};
    m_operation = get<std::string>("op");
}

} // namespace velmorin::conformance
