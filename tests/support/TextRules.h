#pragma once

#include "core/language/AppLanguage.h"

#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// The code points of a UTF-8 text.
std::u32string codePoints(std::string_view text);

/// What a text of a language breaks of the rules that all texts on screen keep: no exclamation marks, straight
/// quotation marks or doubled blanks; in Persian no letters, digits or signs of other scripts' writing and no
/// zero-width joint anywhere but between two letters; in German its own quotation marks. Empty when it keeps them all.
std::vector<std::string> brokenRules(AppLanguage language, std::string_view text);

} // namespace velmorin
