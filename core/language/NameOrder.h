#pragma once

#include "core/language/AppLanguage.h"

#include <string>
#include <string_view>

/// Names in lists, by the customs of the interface's language. Pure; any thread.
namespace velmorin {

/// What a name is sorted by: names in the order of these keys, compared as bytes, stand as a reader of the language
/// expects, the case of letters left out. Names that differ in nothing else have the same key.
std::string sortKey(AppLanguage language, std::string_view name);

/// Whether a text holds another one somewhere, the case of letters left out. It always holds an empty one.
bool containsIgnoringCase(std::string_view text, std::string_view part);

} // namespace velmorin
