#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The agent that starts the program again when it has died during a session. Pure; any thread.
namespace velmorin::Watchdog {

inline constexpr std::string_view label = "com.kestrava.velmorin.watchdog";
inline constexpr std::string_view launchArgument = "--watchdog";
inline constexpr std::string_view processName = "Velmorin";

/// The arguments of the process that the watchdog starts: the launch argument, then the extra ones.
std::vector<std::string> launchArguments(std::span<const std::string> extraArguments);

/// A text as one word of a POSIX shell.
std::string quoted(std::string_view text);

/// The agent's check: where no process of the program lives, its bundle is opened in the background with these
/// arguments.
std::string shellLine(std::string_view bundlePath, std::span<const std::string> launchArguments);

/// The agent file: an XML property list (version 1.0) with the check, which runs every 3 seconds. Absent when the path
/// or an argument holds a character that XML cannot (production 2 of XML 1.0), or is not UTF-8.
std::optional<std::string> propertyList(std::string_view bundlePath, std::span<const std::string> launchArguments);

} // namespace velmorin::Watchdog
