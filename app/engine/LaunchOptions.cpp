#include "app/engine/LaunchOptions.h"

#include "app/engine/Watchdog.h"

#include <algorithm>

namespace velmorin {

LaunchOptions LaunchOptions::parse(std::span<const std::string> arguments) {
    LaunchOptions options;
    options.launchedByWatchdog = std::ranges::find(arguments, Watchdog::launchArgument) != arguments.end();
    return options;
}

} // namespace velmorin
