#pragma once

#include <cstdint>
#include <string>

/// The service manager's unit around an application that this program started.
namespace velmorin::ApplicationScope {

/// The unit's name for an application of this id.
std::string name(const std::string& id, std::int32_t processID);

/// Has the user's service manager put a process into a unit of its own, so that it does not end with ours. Where there
/// is no such manager there is nothing to do, and nothing happens. Main thread; does not wait.
void start(const std::string& id, std::int32_t processID);

} // namespace velmorin::ApplicationScope
