#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// What texts need beyond bytes. All texts are UTF-8; each longest piece that is not counts as one replacement
/// character, and stays as it is in what is given back unless repairing is what was asked for. Any thread.
namespace velmorin {

/// Whether a text is well-formed UTF-8: no overlong forms, surrogates or bytes beyond U+10FFFF.
bool isUTF8(std::string_view text);

/// The text as well-formed UTF-8: each longest piece that is not (a maximal subpart, as the Unicode Standard
/// recommends) becomes one replacement character, U+FFFD.
std::string repairedUTF8(std::string_view text);

/// The text without the white space at both ends: Unicode's, line ends included (category Z, U+0009 to U+000D, U+0085).
std::string_view trimmed(std::string_view text);

/// The number of user-perceived characters: extended grapheme clusters (Unicode Standard Annex 29).
std::int64_t characterCount(std::string_view text);

/// The text in lower case by the rules that hold in every language (Unicode's full mapping).
std::string lowercased(std::string_view text);

/// The text's numbers in the widest sense (Unicode categories Nd, Nl and No), everything else left out.
std::string numbersOnly(std::string_view text);

} // namespace velmorin
