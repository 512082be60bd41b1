#include "app/platform/linux/browsers/HostManifest.h"

#include <algorithm>

namespace velmorin::HostManifest {

namespace {

std::string originOf(std::string_view extension) {
    return "chrome-extension://" + std::string{extension} + "/";
}

std::string quoted(std::string_view text) {
    std::string result{'"'};
    for (const char character : text) {
        if (character == '"' || character == '\\') result += '\\';
        result += character;
    }
    return result += '"';
}

bool isControl(char character) {
    return static_cast<unsigned char>(character) < 0x20;
}

} // namespace

std::string content(KnownBrowser::Family family, std::string_view program) {
    if (!program.starts_with('/') || std::ranges::any_of(program, isControl)) return {};
    const bool isFirefox = family == KnownBrowser::Family::firefox;
    const auto extension = isFirefox ? std::string{firefoxExtension} : originOf(chromiumExtension);
    return "{\n  \"name\": " + quoted(name) + ",\n  \"description\": \"Tells Dravoni which pages are open\",\n" +
           "  \"path\": " + quoted(program) + ",\n  \"type\": \"stdio\",\n  " +
           (isFirefox ? "\"allowed_extensions\"" : "\"allowed_origins\"") + ": [" + quoted(extension) + "]\n}\n";
}

bool isStartedFor(std::string_view firstArgument, std::string_view secondArgument) {
    // Firefox gives the path of the manifest first.
    return firstArgument == originOf(chromiumExtension) || secondArgument == firefoxExtension;
}

} // namespace velmorin::HostManifest
