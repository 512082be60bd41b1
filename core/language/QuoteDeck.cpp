#include "core/language/QuoteDeck.h"

#include "core/foundation/Bytes.h"
#include "core/foundation/RawValue.h"

#include <cstddef>
#include <cstdlib>
#include <numeric>
#include <utility>

namespace velmorin {

namespace {

using Order = std::vector<std::int64_t>;

/// Fisher and Yates's shuffle, from the end.
Order shuffled(std::size_t count, const RandomDraw& draw) {
    Order order(count);
    std::iota(order.begin(), order.end(), 0);
    for (std::size_t place = count; place > 1; --place)
        std::swap(order[place - 1], order[draw(place)]);
    return order;
}

} // namespace

std::string_view QuoteDeck::next(QuoteCategory category, AppLanguage language, const RandomDraw& draw) {
    const std::string key{rawValue(category)};
    const auto all = sentences(category, language);
    Order& order = remaining[key];
    // A saved deck may know more sentences than there are.
    std::erase_if(order, [&all](std::int64_t index) { return index < 0 || index >= std::ssize(all); });
    if (order.empty()) {
        order = shuffled(all.size(), draw);
        // The sentence that ended the old rotation must not open the new one.
        const auto ended = last.find(key);
        if (order.size() >= 2 && ended != last.end() && ended->second == order.back()) {
            std::swap(order.front(), order.back());
        }
    }
    if (order.empty()) std::abort(); // a moment without sentences: a mistake in the lists
    const std::int64_t index = order.back();
    order.pop_back();
    last[key] = index;
    return all[static_cast<std::size_t>(index)];
}

std::string_view QuoteDeck::next(QuoteCategory category, AppLanguage language) {
    return next(category, language, [](std::uint64_t bound) { return randomBelow(bound); });
}

} // namespace velmorin
