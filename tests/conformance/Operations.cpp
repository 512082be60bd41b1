#include "tests/conformance/Operations.h"

#include <utility>

namespace velmorin::conformance {

Calendar calendarOf(const Request& request) {
    auto calendar = Calendar::inTimeZone(request.get<std::string>("timeZone"));
    if (!calendar) throw MalformedInput{"the argument \"timeZone\" names no time zone"};
    return std::move(*calendar);
}

} // namespace velmorin::conformance
