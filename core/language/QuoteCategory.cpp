#include "core/language/QuoteCategory.h"

#include "core/language/Quotes.h"
#include "core/language/QuotesEnglish.h"
#include "core/language/QuotesGerman.h"

namespace velmorin {

namespace {

using Sentences = std::span<const std::string_view>;

Sentences ofLanguage(AppLanguage language, Sentences persian, Sentences english, Sentences german) {
    switch (language) {
    case AppLanguage::persian: return persian;
    case AppLanguage::english: return english;
    case AppLanguage::german: break;
    }
    return german;
}

} // namespace

Sentences sentences(QuoteCategory category, AppLanguage language) {
    switch (category) {
    case QuoteCategory::urge: return ofLanguage(language, Quotes::urge, QuotesEnglish::urge, QuotesGerman::urge);
    case QuoteCategory::returning:
        return ofLanguage(language, Quotes::returning, QuotesEnglish::returning, QuotesGerman::returning);
    case QuoteCategory::rest: return ofLanguage(language, Quotes::rest, QuotesEnglish::rest, QuotesGerman::rest);
    case QuoteCategory::exit: return ofLanguage(language, Quotes::exit, QuotesEnglish::exit, QuotesGerman::exit);
    case QuoteCategory::finish: break;
    }
    return ofLanguage(language, Quotes::finish, QuotesEnglish::finish, QuotesGerman::finish);
}

} // namespace velmorin
