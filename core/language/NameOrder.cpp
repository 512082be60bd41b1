#include "core/language/NameOrder.h"

#include "core/foundation/Text.h"

#include <array>
#include <cstddef>
#include <memory>
#include <unicode/coll.h>

namespace velmorin {

namespace {

std::unique_ptr<icu::Collator> makeCollator(AppLanguage language) {
    UErrorCode status = U_ZERO_ERROR;
    const std::string locale{localeIdentifier(language)};
    std::unique_ptr<icu::Collator> collator{icu::Collator::createInstance(icu::Locale{locale.c_str()}, status)};
    if (U_FAILURE(status)) return nullptr;
    collator->setStrength(icu::Collator::SECONDARY); // accents count, case does not
    return collator;
}

/// Dear to make, and not to be shared between threads.
const icu::Collator* collator(AppLanguage language) {
    thread_local const std::array collators{makeCollator(AppLanguage::persian), makeCollator(AppLanguage::english),
                                            makeCollator(AppLanguage::german)};
    return collators[static_cast<std::size_t>(language)].get();
}

} // namespace

std::string sortKey(AppLanguage language, std::string_view name) {
    const auto* order = collator(language);
    if (order == nullptr) return lowercased(name);
    const auto text = icu::UnicodeString::fromUTF8({name.data(), static_cast<std::int32_t>(name.size())});
    const auto size = order->getSortKey(text, nullptr, 0);
    std::string key(static_cast<std::size_t>(size), '\0');
    order->getSortKey(text, reinterpret_cast<std::uint8_t*>(key.data()), size);
    return key;
}

bool containsIgnoringCase(std::string_view text, std::string_view part) {
    return lowercased(text).find(lowercased(part)) != std::string::npos;
}

} // namespace velmorin
