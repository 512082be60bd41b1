#include "app/platform/linux/browsers/ShownTab.h"

#include "app/platform/linux/browsers/Numbers.h"

namespace velmorin {

namespace {

constexpr std::size_t windowDigits = 16;

std::string padded(std::int64_t number) {
    auto digits = std::to_string(number);
    return std::string(windowDigits - digits.size(), '0') + digits;
}

/// How many bytes at the start of a text are a character that must not stand in a line.
std::size_t unsafeLength(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    if (first < 0x20 || first == 0x7F) return 1;
    // The second row of control characters, with U+0085, the next line.
    if (first == 0xC2 && text.size() > 1) {
        const auto second = static_cast<unsigned char>(text[1]);
        return second >= 0x80 && second < 0xA0 ? 2 : 0;
    }
    return text.starts_with("\u2028") || text.starts_with("\u2029") ? 3 : 0;
}

void appendEscaped(std::string& text, char byte) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto code = static_cast<unsigned char>(byte);
    text += '%';
    text += digits[code >> 4U];
    text += digits[code & 0x0FU];
}

} // namespace

std::string WindowID::text() const {
    return std::to_string(host) + padded(place.window) + std::to_string(place.place);
}

std::optional<WindowID> WindowID::parse(std::string_view text) {
    if (text.size() <= windowDigits + 1) return std::nullopt;
    const auto host = parseNumber<pid_t>(text.substr(0, text.size() - windowDigits - 1));
    const auto window = parseNumber<std::int64_t>(text.substr(text.size() - windowDigits - 1, windowDigits));
    const auto place = parseNumber<std::int64_t>(text.substr(text.size() - 1));
    if (!host || !window || !place || *host <= 0) return std::nullopt;
    const WindowID parsed{*host, {*window, *place}};
    return parsed.place.isValid() && parsed.text() == text ? std::optional{parsed} : std::nullopt;
}

std::string safeInLine(std::string_view address) {
    std::string safe;
    safe.reserve(address.size());
    while (!address.empty()) {
        const auto length = unsafeLength(address);
        for (std::size_t index = 0; index < length; ++index)
            appendEscaped(safe, address[index]);
        if (length == 0) safe += address.front();
        address.remove_prefix(length == 0 ? 1 : length);
    }
    return safe;
}

} // namespace velmorin
