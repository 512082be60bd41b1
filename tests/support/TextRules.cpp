#include "tests/support/TextRules.h"

#include <algorithm>

namespace velmorin {

namespace {

constexpr char32_t joint = U'\u200C'; // joins two parts of a word without a blank and without joining their letters

bool isPersianLetter(char32_t character) {
    return (character >= U'\u0621' && character <= U'\u064A') || character == U'پ' || character == U'چ' ||
           character == U'ژ' || character == U'ک' || character == U'گ' || character == U'ی' ||
           (character >= U'\u064B' && character <= U'\u0654');
}

bool contains(std::u32string_view text, std::u32string_view anyOf) {
    return text.find_first_of(anyOf) != std::u32string_view::npos;
}

void checkJoints(std::u32string_view text, std::vector<std::string>& broken) {
    for (std::size_t place = 0; place < text.size(); ++place) {
        if (text[place] != joint) continue;
        const bool isBetween = place > 0 && place + 1 < text.size() && isPersianLetter(text[place - 1]) &&
                               isPersianLetter(text[place + 1]);
        if (!isBetween) broken.emplace_back("a zero-width joint that is not between two letters");
    }
}

void checkPersian(std::u32string_view text, std::vector<std::string>& broken) {
    // Arabic yeh, kaf, alef maksura and teh marbuta, and the mark that only stretches a word.
    if (contains(text, U"\u064A\u0643\u0649\u0629\u0640")) broken.emplace_back("a letter of Arabic writing");
    if (contains(text, U"٠١٢٣٤٥٦٧٨٩0123456789")) broken.emplace_back("a digit that is not Persian");
    if (contains(text, U",;?")) broken.emplace_back("Latin punctuation");
    if (contains(text, U"“”„‘’")) broken.emplace_back("Latin quotation marks");
    checkJoints(text, broken);
}

} // namespace

std::u32string codePoints(std::string_view text) {
    std::u32string points;
    for (const char byte : text) {
        const auto code = static_cast<unsigned char>(byte);
        if ((code & 0xC0U) == 0x80U) {
            points.back() = (points.back() << 6U) | (code & 0x3FU);
        } else {
            points += code < 0x80U ? code : code < 0xE0U ? code & 0x1FU : code < 0xF0U ? code & 0x0FU : code & 0x07U;
        }
    }
    return points;
}

std::vector<std::string> brokenRules(AppLanguage language, std::string_view utf8) {
    const auto text = codePoints(utf8);
    std::vector<std::string> broken;
    if (contains(text, U"!\"\n\t")) broken.emplace_back("an exclamation mark, a straight quotation mark or a line end");
    if (text.find(U"  ") != std::u32string::npos) broken.emplace_back("two blanks");
    if (text.find(U"...") != std::u32string::npos) broken.emplace_back("three points for an ellipsis");
    if (language == AppLanguage::persian) {
        checkPersian(text, broken);
    } else if (text.find(joint) != std::u32string::npos) {
        broken.emplace_back("a zero-width joint");
    }
    if (language == AppLanguage::german && contains(text, U"”'«»‘"))
        broken.emplace_back("quotation marks of another language");
    if (language == AppLanguage::english && contains(text, U"„«»"))
        broken.emplace_back("quotation marks of another language");
    return broken;
}

} // namespace velmorin
