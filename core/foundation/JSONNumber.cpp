#include "core/foundation/JSONNumber.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <system_error>

namespace velmorin {

namespace {

std::string_view takeDigits(std::string_view& text) {
    std::size_t length = 0;
    while (length < text.size() && text[length] >= '0' && text[length] <= '9')
        ++length;
    const auto digits = text.substr(0, length);
    text.remove_prefix(length);
    return digits;
}

bool take(std::string_view& text, char character) {
    if (!text.starts_with(character)) return false;
    text.remove_prefix(1);
    return true;
}

bool hasOnlyZeros(std::string_view digits) {
    return digits.find_first_not_of('0') == std::string_view::npos;
}

template <class Value>
bool fromChars(std::string_view text, Value& value) {
    return std::from_chars(text.data(), text.data() + text.size(), value).ec == std::errc{};
}

/// The power of ten; one too large to matter is held at a bound that no text of bearable length makes up for.
std::int64_t powerOfTen(std::string_view exponent) {
    constexpr std::int64_t bound = 1'000'000'000'000;
    const bool isNegative = take(exponent, '-');
    (void)take(exponent, '+');
    std::int64_t power = 0;
    if (!exponent.empty() && !fromChars(exponent, power)) power = bound;
    power = std::min(power, bound);
    return isNegative ? -power : power;
}

} // namespace

std::optional<JSONNumber> JSONNumber::parse(std::string_view text) {
    JSONNumber number;
    number.text = text;
    number.isNegative = take(text, '-');
    number.whole = takeDigits(text);
    if (number.whole.empty() || (number.whole.starts_with('0') && number.whole.size() > 1)) return std::nullopt;
    if (take(text, '.')) {
        number.fraction = takeDigits(text);
        if (number.fraction.empty()) return std::nullopt;
    }
    if (take(text, 'e') || take(text, 'E')) {
        number.exponent = text;
        if (!take(text, '-')) (void)take(text, '+');
        if (takeDigits(text).empty()) return std::nullopt;
    }
    return text.empty() ? std::optional{number} : std::nullopt;
}

bool JSONNumber::read(std::int64_t& value) const {
    if (fraction.empty() && exponent.empty()) return fromChars(text, value);

    // The digits that count, and where among them the point is.
    std::string digits = std::string{whole} + std::string{fraction};
    const auto leading = std::min(digits.find_first_not_of('0'), digits.size());
    const auto point =
        static_cast<std::int64_t>(whole.size()) + powerOfTen(exponent) - static_cast<std::int64_t>(leading);
    digits.erase(digits.find_last_not_of('0') + 1);
    digits.erase(0, leading);
    value = 0;
    if (digits.empty()) return true;

    constexpr std::int64_t mostDigits = 19;
    if (point > mostDigits || point < static_cast<std::int64_t>(digits.size())) return false;
    digits.append(static_cast<std::size_t>(point) - digits.size(), '0');
    if (isNegative) digits.insert(digits.begin(), '-');
    return fromChars(digits, value);
}

bool JSONNumber::read(double& value) const {
    if (fromChars(text, value)) return true;
    // Out of the range of doubles, one way or the other.
    if (!isBelowOne()) return false;
    value = isNegative ? -0.0 : 0.0;
    return true;
}

bool JSONNumber::isBelowOne() const {
    if (hasOnlyZeros(whole) && hasOnlyZeros(fraction)) return true;
    if (!hasOnlyZeros(whole)) return static_cast<std::int64_t>(whole.size()) + powerOfTen(exponent) <= 0;
    const auto leading = static_cast<std::int64_t>(fraction.find_first_not_of('0'));
    return powerOfTen(exponent) <= leading;
}

} // namespace velmorin
