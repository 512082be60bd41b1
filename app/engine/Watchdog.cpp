#include "app/engine/Watchdog.h"

#include "core/foundation/Text.h"

#include <algorithm>

namespace velmorin::Watchdog {

namespace {

/// Whether XML can hold a text: UTF-8 without control characters but tab, line feed and carriage return, and without
/// the two code points that are none.
bool isXMLText(std::string_view text) {
    const auto isForbidden = [](char character) {
        const auto code = static_cast<unsigned char>(character);
        return code < 0x20 && character != '\t' && character != '\n' && character != '\r';
    };
    return isUTF8(text) && std::ranges::none_of(text, isForbidden) && text.find("\uFFFE") == std::string_view::npos &&
           text.find("\uFFFF") == std::string_view::npos;
}

std::string escaped(std::string_view text) {
    std::string xml;
    for (const char character : text) {
        switch (character) {
        case '&': xml += "&amp;"; break;
        case '<': xml += "&lt;"; break;
        case '>': xml += "&gt;"; break;
        // As it stands, a reader would take it for the end of a line.
        case '\r': xml += "&#13;"; break;
        default: xml += character;
        }
    }
    return xml;
}

} // namespace

std::vector<std::string> launchArguments(std::span<const std::string> extraArguments) {
    std::vector<std::string> arguments{std::string{launchArgument}};
    arguments.insert(arguments.end(), extraArguments.begin(), extraArguments.end());
    return arguments;
}

std::string quoted(std::string_view text) {
    std::string word = "'";
    for (const char character : text) {
        if (character == '\'') {
            word += "'\\''";
        } else {
            word += character;
        }
    }
    return word + "'";
}

std::string shellLine(std::string_view bundlePath, std::span<const std::string> launchArguments) {
    std::string line = "/usr/bin/pgrep -xq ";
    line.append(processName).append(" || /usr/bin/open -g ").append(quoted(bundlePath)).append(" --args");
    for (const auto& argument : launchArguments)
        line += " " + quoted(argument);
    return line;
}

std::optional<std::string> propertyList(std::string_view bundlePath, std::span<const std::string> launchArguments) {
    const std::string check = shellLine(bundlePath, launchArguments);
    if (!isXMLText(check)) return std::nullopt;
    std::string text = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
	<key>Label</key>
	<string>)";
    text.append(label).append(R"(</string>
	<key>LimitLoadToSessionType</key>
	<string>Aqua</string>
	<key>ProgramArguments</key>
	<array>
		<string>/bin/sh</string>
		<string>-c</string>
		<string>)");
    text.append(escaped(check)).append(R"(</string>
	</array>
	<key>RunAtLoad</key>
	<true/>
	<key>StartInterval</key>
	<integer>3</integer>
	<key>ThrottleInterval</key>
	<integer>1</integer>
</dict>
</plist>
)");
    return text;
}

} // namespace velmorin::Watchdog
