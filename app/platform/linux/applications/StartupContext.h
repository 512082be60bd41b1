#pragma once

#include "app/platform/linux/loop/GLibPointers.h"

#include <gio/gio.h>
#include <string>

namespace velmorin {

/// What GIO asks while it launches an application: the display, and the id by which the window manager and the
/// application's toolkit know of the launch.
GOwned<GAppLaunchContext> startupContext(const std::string& display, const std::string& startupID);

} // namespace velmorin
