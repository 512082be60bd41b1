#include "app/platform/posix/SystemCalendar.h"

#include <cstdlib>
#include <string>
#include <string_view>
#include <system_error>

namespace velmorin {

namespace {

/// The zone's name, or the file with its rules.
std::string zoneName(const std::filesystem::path& localTime) {
    if (const char* variable = std::getenv("TZ")) {
        std::string_view name{variable};
        if (name.starts_with(':')) name.remove_prefix(1);
        return std::string{name};
    }
    // Not the link itself: what has been read once under a name is not read again.
    std::error_code missing;
    return std::filesystem::canonical(localTime, missing).string();
}

} // namespace

Calendar systemCalendar(const std::filesystem::path& localTime) {
    if (const auto found = Calendar::inTimeZone(zoneName(localTime))) return *found;
    return *Calendar::inTimeZone("UTC");
}

} // namespace velmorin
