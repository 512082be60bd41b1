#pragma once

#include "core/foundation/Fields.h"
#include "core/language/AppLanguage.h"
#include "core/language/QuoteCategory.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

namespace velmorin {

/// A source of random whole numbers: each from 0 up to, not including, the given bound, which is at least 1.
using RandomDraw = std::function<std::uint64_t(std::uint64_t bound)>;

/// Deals the sentences of each moment: all of them once in random order before any comes again, and never the same
/// one twice in a row. It keeps places in the lists and no texts, so that a change of language goes on in the same
/// rotation.
struct QuoteDeck {
    std::map<std::string, std::vector<std::int64_t>> remaining; ///< by moment; still to come, dealt from the end
    std::map<std::string, std::int64_t> last;                   ///< by moment; dealt last

    /// The next sentence. Asks `draw` only when a new rotation is shuffled, then once for each step.
    std::string_view next(QuoteCategory category, AppLanguage language, const RandomDraw& draw);

    /// The same with the system's random source.
    std::string_view next(QuoteCategory category, AppLanguage language);

    bool operator==(const QuoteDeck&) const = default;
};

constexpr auto fields(std::type_identity<QuoteDeck>) {
    return std::tuple{field("remaining", &QuoteDeck::remaining), field("last", &QuoteDeck::last)};
}

} // namespace velmorin
