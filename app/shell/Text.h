#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace velmorin {

/// A text of ours, which is UTF-8, as the toolkit's.
inline QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A name of any script between the marks that keep it from turning the sentence around it (FIRST STRONG ISOLATE, POP
/// DIRECTIONAL ISOLATE).
inline std::string isolated(std::string_view name) {
    return "\u2068" + std::string{name} + "\u2069";
}

} // namespace velmorin
