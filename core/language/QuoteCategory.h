#pragma once

#include "core/language/AppLanguage.h"

#include <array>
#include <span>
#include <string_view>

namespace velmorin {

/// The moments at which a session says a sentence.
enum class QuoteCategory {
    urge,      ///< the user tries to leave
    returning, ///< the user comes back to work
    rest,      ///< during a break
    exit,      ///< on the way out
    finish,    ///< at the end
};

constexpr std::array<std::string_view, 5> rawValues(QuoteCategory) {
    return {"urge", "returning", "rest", "exit", "finish"};
}

/// The sentences of a moment. One index is the same sentence in every language.
std::span<const std::string_view> sentences(QuoteCategory category, AppLanguage language = AppLanguage::persian);

} // namespace velmorin
