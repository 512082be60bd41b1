#include "core/foundation/Text.h"

#include <algorithm>
#include <memory>
#include <simdjson.h>
#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

namespace velmorin {

namespace {

bool isASCII(std::string_view text) {
    return std::ranges::all_of(text, [](char character) { return static_cast<unsigned char>(character) < 0x80; });
}

const std::uint8_t* bytesOf(std::string_view text) {
    return reinterpret_cast<const std::uint8_t*>(text.data());
}

// The library walks by macros, written in C.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wold-style-cast"

/// Walks back over the character that ends at `end`.
UChar32 previous(std::string_view text, std::int32_t& end) {
    UChar32 character = 0;
    const auto* const bytes = bytesOf(text);
    U8_PREV_OR_FFFD(bytes, 0, end, character);
    return character;
}

/// Walks over the character that begins at `start`.
UChar32 next(std::string_view text, std::int32_t& start) {
    UChar32 character = 0;
    const auto* const bytes = bytesOf(text);
    const auto length = static_cast<std::int32_t>(text.size());
    U8_NEXT_OR_FFFD(bytes, start, length, character);
    return character;
}

#pragma GCC diagnostic pop

std::unique_ptr<icu::BreakIterator> makeCharacterIterator() {
    UErrorCode status = U_ZERO_ERROR;
    return std::unique_ptr<icu::BreakIterator>{
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status)};
}

/// An iterator over user-perceived characters is dear to make and keeps a place, so that each thread has its own.
thread_local const auto characterIterator = makeCharacterIterator();

} // namespace

bool isUTF8(std::string_view text) {
    return simdjson::validate_utf8(text.data(), text.size());
}

std::string repairedUTF8(std::string_view text) {
    if (isUTF8(text)) return std::string{text};
    std::string repaired;
    repaired.reserve(text.size());
    for (std::int32_t start = 0; start < static_cast<std::int32_t>(text.size());) {
        const auto from = static_cast<std::size_t>(start);
        const bool isReplaced = next(text, start) == 0xFFFD;
        repaired += isReplaced ? "\uFFFD" : text.substr(from, static_cast<std::size_t>(start) - from);
    }
    return repaired;
}

std::string_view trimmed(std::string_view text) {
    auto end = static_cast<std::int32_t>(text.size());
    for (std::int32_t before = end; before > 0; end = before) {
        if (!u_isUWhiteSpace(previous(text, before))) break;
    }
    text = text.substr(0, static_cast<std::size_t>(end));
    std::int32_t start = 0;
    for (std::int32_t after = 0; after < end; start = after) {
        if (!u_isUWhiteSpace(next(text, after))) break;
    }
    return text.substr(static_cast<std::size_t>(start));
}

std::int64_t characterCount(std::string_view text) {
    auto* const iterator = characterIterator.get();
    if (iterator == nullptr) return 0;
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UText, decltype(&utext_close)> source{
        utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status), &utext_close};
    iterator->setText(source.get(), status);
    if (U_FAILURE(status)) return 0;
    std::int64_t count = 0;
    iterator->first();
    while (iterator->next() != icu::BreakIterator::DONE)
        ++count;
    return count;
}

std::string lowercased(std::string_view text) {
    std::string lower;
    if (isASCII(text)) {
        lower = text;
        for (auto& character : lower) {
            if (character >= 'A' && character <= 'Z') character = static_cast<char>(character - 'A' + 'a');
        }
        return lower;
    }
    UErrorCode status = U_ZERO_ERROR;
    icu::StringByteSink<std::string> sink{&lower};
    icu::CaseMap::utf8ToLower("", 0, {text.data(), static_cast<std::int32_t>(text.size())}, sink, nullptr, status);
    return U_SUCCESS(status) ? lower : std::string{text};
}

std::string numbersOnly(std::string_view text) {
    std::string numbers;
    for (std::int32_t start = 0; start < static_cast<std::int32_t>(text.size());) {
        const auto from = static_cast<std::size_t>(start);
        const UChar32 character = next(text, start);
        const bool isNumber = (U_GET_GC_MASK(character) & U_GC_N_MASK) != 0;
        if (isNumber) numbers += text.substr(from, static_cast<std::size_t>(start) - from);
    }
    return numbers;
}

} // namespace velmorin
