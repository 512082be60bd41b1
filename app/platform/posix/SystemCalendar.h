#pragma once

#include "core/foundation/Calendar.h"

#include <filesystem>

namespace velmorin {

/// The calendar of the zone that this system's clocks show: the one that the variable TZ names, else the one that
/// `localTime` leads to. UTC where neither leads to a zone of the database. Asked again, it notices that the user has
/// travelled.
Calendar systemCalendar(const std::filesystem::path& localTime = "/etc/localtime");

} // namespace velmorin
