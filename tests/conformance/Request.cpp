#include "tests/conformance/Request.h"

#include <utility>

namespace velmorin::conformance {

Request::Request(std::string line) : JSONArguments{std::move(line)}, m_operation{get<std::string>("op")} {}

} // namespace velmorin::conformance
