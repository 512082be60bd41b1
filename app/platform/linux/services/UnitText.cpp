#include "app/platform/linux/services/UnitText.h"

#include <algorithm>

namespace velmorin::UnitText {

namespace {

bool isControl(char character) {
    const auto code = static_cast<unsigned char>(character);
    return code < 0x20 || code == 0x7F;
}

std::string escaped(char character) {
    constexpr std::string_view digits = "0123456789abcdef";
    const auto code = static_cast<unsigned char>(character);
    return {'\\', 'x', digits[code >> 4U], digits[code & 0xFU]};
}

/// The service manager refuses an executable whose path holds one of these, and looks for no variable in the others'.
bool isRefused(char character) {
    constexpr std::string_view special = "\"'\\$";
    return isControl(character) || special.find(character) != std::string_view::npos;
}

} // namespace

std::string quoted(std::string_view text) {
    std::string word = "\"";
    for (const char character : text) {
        switch (character) {
        case '"': word += "\\\""; break;
        case '\\': word += "\\\\"; break;
        case '%': word += "%%"; break;
        case '$': word += "$$"; break;
        default: word += isControl(character) ? escaped(character) : std::string(1, character);
        }
    }
    return word + "\"";
}

std::string commandLine(const std::vector<std::string>& words) {
    std::string line;
    // The shell becomes that executable, so that there is still one process only.
    if (std::ranges::any_of(words.front(), isRefused)) line = R"(/bin/sh -c "exec \"$$0\" \"$$@\"" )";
    for (const auto& word : words)
        line += quoted(word) + " ";
    line.pop_back();
    return line;
}

std::string serviceUnit(const std::vector<std::string>& check) {
    return "[Unit]\n"
           "Description=Brings Velmorin back while a session runs\n"
           "StartLimitIntervalSec=0\n"
           "# A service manager that could not be told of the end still has the timer run.\n"
           "ConditionPathExists=%E/systemd/user/" +
           std::string{timer} +
           "\n"
           "\n"
           "[Service]\n"
           "Type=oneshot\n"
           "ExecStart=" +
           commandLine(check) +
           "\n"
           "# What has been started goes its own way, into a scope of its own.\n"
           "KillMode=process\n"
           "TimeoutStartSec=30\n"
           "# One line for each look would bury all others.\n"
           "LogLevelMax=notice\n"
           "\n"
           "[Install]\n"
           "WantedBy=graphical-session.target\n";
}

std::string timerUnit() {
    return "[Unit]\n"
           "Description=Looks every 3 seconds whether Velmorin lives while a session runs\n"
           "\n"
           "[Timer]\n"
           "OnActiveSec=0\n"
           "OnUnitActiveSec=3\n"
           "AccuracySec=50ms\n"
           "\n"
           "[Install]\n"
           "WantedBy=default.target\n";
}

} // namespace velmorin::UnitText
