#pragma once

#include <string_view>

namespace velmorin {

/// Whether a text is well-formed UTF-8: no overlong forms, surrogates or bytes beyond U+10FFFF.
bool isUTF8(std::string_view text);

} // namespace velmorin
