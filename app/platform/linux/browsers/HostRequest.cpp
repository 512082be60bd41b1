#include "app/platform/linux/browsers/HostRequest.h"

#include "app/platform/linux/browsers/Numbers.h"

#include <algorithm>

namespace velmorin {

namespace {

constexpr std::string_view list = "list";
constexpr std::string_view blank = "blank ";
constexpr std::string_view tab = "tab ";
constexpr std::string_view error = "error ";

std::string placeText(const TabPlace& place) {
    return std::to_string(place.window) + ' ' + std::to_string(place.place);
}

bool take(std::string_view& text, std::string_view start) {
    if (!text.starts_with(start)) return false;
    text.remove_prefix(start.size());
    return true;
}

/// A number and, where there is one, the space behind it.
std::optional<std::int64_t> takeNumber(std::string_view& text) {
    const auto length = std::min(text.find(' '), text.size());
    const auto number = parseNumber<std::int64_t>(text.substr(0, length));
    text.remove_prefix(std::min(length + 1, text.size()));
    return number;
}

std::optional<TabPlace> takePlace(std::string_view& text) {
    const auto window = takeNumber(text);
    const auto place = takeNumber(text);
    if (!window || !place) return std::nullopt;
    const TabPlace taken{*window, *place};
    return taken.isValid() ? std::optional{taken} : std::nullopt;
}

} // namespace

std::string HostRequest::line() const {
    return (tabToBlank ? std::string{blank} + placeText(*tabToBlank) : std::string{list}) + '\n';
}

std::optional<HostRequest> HostRequest::parse(std::string_view line) {
    if (line == list) return HostRequest{};
    if (!line.starts_with(blank)) return std::nullopt;
    auto rest = line.substr(blank.size());
    const HostRequest request{takePlace(rest)};
    // There is one way to write each.
    if (!request.tabToBlank || request.line() != std::string{line} + '\n') return std::nullopt;
    return request;
}

std::string HostRequest::message(std::uint64_t id) const {
    const auto start = "{\"id\":" + std::to_string(id) + ",\"do\":";
    if (!tabToBlank) return start + "\"list\"}";
    return start + "\"blank\",\"window\":" + std::to_string(tabToBlank->window) +
           ",\"place\":" + std::to_string(tabToBlank->place) + '}';
}

std::string HostAnswer::line(const ShownTab& shown) {
    return std::string{tab} + placeText(shown.place) + ' ' + safeInLine(shown.address) + '\n';
}

std::optional<ShownTab> HostAnswer::parseTab(std::string_view line) {
    if (!take(line, tab)) return std::nullopt;
    const auto place = takePlace(line);
    return place ? std::optional{ShownTab{*place, std::string{line}}} : std::nullopt;
}

std::string HostAnswer::failure(std::string_view reason) {
    return std::string{error} + safeInLine(reason) + '\n';
}

std::optional<std::string> HostAnswer::parseFailure(std::string_view line) {
    return take(line, error) ? std::optional{std::string{line}} : std::nullopt;
}

} // namespace velmorin
