#pragma once

#include "app/platform/linux/loop/GLibPointers.h"

#include <array>
#include <gio/gio.h>
#include <string>

namespace velmorin {

/// The variables that speak of this program's own start or its own service, and would mislead another one. What a
/// session manager has called it is not among them: the program still needs that.
inline constexpr std::array ownVariables{"XDG_ACTIVATION_TOKEN", "NOTIFY_SOCKET",    "WATCHDOG_PID",   "WATCHDOG_USEC",
                                         "LISTEN_PID",           "LISTEN_FDS",       "LISTEN_FDNAMES", "INVOCATION_ID",
                                         "JOURNAL_STREAM",       "SYSTEMD_EXEC_PID", "MANAGERPID"};

/// What GIO asks while it launches an application: the display, and the id by which the window manager and the
/// application's toolkit know of the launch.
GOwned<GAppLaunchContext> startupContext(const std::string& display, const std::string& startupID);

} // namespace velmorin
