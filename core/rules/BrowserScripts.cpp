#include "core/rules/BrowserScripts.h"

#include "core/foundation/Text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace velmorin::BrowserScripts {

namespace {

constexpr std::string_view separator = "|||";

std::string_view tabPhrase(BrowserKind kind) {
    return kind == BrowserKind::chrome ? "active tab" : "current tab";
}

std::string tellApplication(BrowserKind kind) {
    return "tell application id \"" + std::string{bundleID(kind)} + "\"\n";
}

/// Every character that ends a line; carriage return and line feed together leave an empty piece, which is dropped.
constexpr std::array<std::string_view, 7> lineEnds{"\n", "\v", "\f", "\r", "\u0085", "\u2028", "\u2029"};

/// The place and length of the first end of a line, or of the end of the text.
std::pair<std::size_t, std::size_t> firstLineEnd(std::string_view text) {
    std::pair<std::size_t, std::size_t> first{text.size(), 0};
    for (std::size_t place = 0; place < text.size(); ++place) {
        for (const auto end : lineEnds) {
            if (text.substr(place).starts_with(end)) return {place, end.size()};
        }
    }
    return first;
}

std::optional<BrowserTab> parseLine(std::string_view line) {
    const auto place = line.find(separator);
    if (place == std::string_view::npos) return std::nullopt;
    return BrowserTab{std::string{line.substr(0, place)}, std::string{line.substr(place + separator.size())}};
}

} // namespace

std::string listTabs(BrowserKind kind) {
    std::string script = "set sep to \"|||\"\n"
                         "set nl to linefeed\n";
    script += tellApplication(kind);
    script += "    set out to \"\"\n"
              "    repeat with w in windows\n"
              "        try\n"
              "            set out to out & (id of w as text) & sep & (URL of ";
    script += tabPhrase(kind);
    script += " of w) & nl\n"
              "        end try\n"
              "    end repeat\n"
              "    return out\n"
              "end tell";
    return script;
}

std::string blankTab(BrowserKind kind, std::string_view windowID) {
    std::string script = tellApplication(kind);
    script += "    repeat with w in windows\n"
              "        if (id of w as text) is \"";
    script += numbersOnly(windowID);
    script += "\" then\n"
              "            set URL of ";
    script += tabPhrase(kind);
    script += " of w to \"about:blank\"\n"
              "        end if\n"
              "    end repeat\n"
              "end tell";
    return script;
}

std::vector<BrowserTab> parseTabs(std::string_view output) {
    std::vector<BrowserTab> tabs;
    while (!output.empty()) {
        const auto [place, length] = firstLineEnd(output);
        if (auto tab = parseLine(output.substr(0, place))) tabs.push_back(std::move(*tab));
        output.remove_prefix(place + length);
    }
    return tabs;
}

bool isPermissionDenied(std::string_view standardError) {
    return standardError.find("-1743") != std::string_view::npos;
}

} // namespace velmorin::BrowserScripts
