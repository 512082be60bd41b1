#include "core/foundation/UUID.h"

#include "core/foundation/Bytes.h"

#include <algorithm>
#include <openssl/rand.h>

namespace velmorin {

namespace {

constexpr std::size_t textLength = 36;

constexpr bool isDashPosition(std::size_t position) {
    return position == 8 || position == 13 || position == 18 || position == 23;
}

/// The values of hexadecimal digits by their character; -1 for any other.
constexpr auto digitValues = [] {
    std::array<std::int8_t, 256> values{};
    values.fill(-1);
    for (std::uint8_t value = 0; value < 16; ++value) {
        values[static_cast<unsigned char>("0123456789ABCDEF"[value])] = static_cast<std::int8_t>(value);
        values[static_cast<unsigned char>("0123456789abcdef"[value])] = static_cast<std::int8_t>(value);
    }
    return values;
}();

} // namespace

UUID UUID::random() {
    std::array<std::uint8_t, 16> drawn{};
    std::ranges::copy(randomBytes(drawn.size()), drawn.begin());
    return fromRandomBytes(drawn);
}

UUID UUID::fromRandomBytes(const std::array<std::uint8_t, 16>& drawn) {
    UUID uuid{drawn};
    uuid.bytes[6] = static_cast<std::uint8_t>((uuid.bytes[6] & 0x0F) | 0x40); // version 4
    uuid.bytes[8] = static_cast<std::uint8_t>((uuid.bytes[8] & 0x3F) | 0x80); // variant of RFC 4122
    return uuid;
}

std::optional<UUID> UUID::parse(std::string_view text) {
    if (text.size() != textLength) return std::nullopt;
    UUID uuid;
    std::size_t digits = 0;
    for (std::size_t position = 0; position < textLength; ++position) {
        if (isDashPosition(position)) {
            if (text[position] != '-') return std::nullopt;
            continue;
        }
        const int value = digitValues[static_cast<unsigned char>(text[position])];
        if (value < 0) return std::nullopt;
        auto& byte = uuid.bytes[digits++ / 2];
        byte = static_cast<std::uint8_t>((byte << 4) | value);
    }
    return uuid;
}

std::string UUID::text() const {
    constexpr std::string_view hexadecimal = "0123456789ABCDEF";
    std::string text;
    text.reserve(textLength);
    for (const auto byte : bytes) {
        if (isDashPosition(text.size())) text += '-';
        text += hexadecimal[byte >> 4];
        text += hexadecimal[byte & 0x0F];
    }
    return text;
}

} // namespace velmorin
