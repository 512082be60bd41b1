#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace velmorin {

/// The languages of the interface.
enum class AppLanguage { persian, english, german };

constexpr std::array<std::string_view, 3> rawValues(AppLanguage) {
    return {"fa", "en", "de"};
}

/// The language's name in itself.
constexpr std::string_view nativeName(AppLanguage language) {
    constexpr std::array<std::string_view, 3> names{"فارسی", "English", "Deutsch"};
    return names[static_cast<std::size_t>(language)];
}

/// The locale whose customs the language's dates and numbers follow.
constexpr std::string_view localeIdentifier(AppLanguage language) {
    constexpr std::array<std::string_view, 3> identifiers{"fa_IR", "en_GB", "de_DE"};
    return identifiers[static_cast<std::size_t>(language)];
}

constexpr bool isRightToLeft(AppLanguage language) {
    return language == AppLanguage::persian;
}

} // namespace velmorin
