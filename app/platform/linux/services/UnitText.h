#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The watchdog's units for the service manager of a user. Pure; any thread.
namespace velmorin::UnitText {

inline constexpr std::string_view timer = "com.kestrava.velmorin.watchdog.timer";
inline constexpr std::string_view service = "com.kestrava.velmorin.watchdog.service";

/// A text as one word of a command line in a unit, whatever it holds but a zero byte: no variable, no specifier and no
/// escape is seen in it.
std::string quoted(std::string_view text);

/// A whole command line. The executable, its first word, may be called anything too.
std::string commandLine(const std::vector<std::string>& words);

/// The unit that runs this check once.
std::string serviceUnit(const std::vector<std::string>& check);
/// The unit that has it run at once, every 3 seconds from then on, and from the next login on.
std::string timerUnit();

} // namespace velmorin::UnitText
