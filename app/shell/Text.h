#pragma once

#include "core/language/AppLanguage.h"

#include <QChar>
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

/// A text that the user has written, for a line of its own in a language: one that begins with Latin letters would else
/// read from the left in the middle of a screen that reads from the right.
inline QString writtenText(AppLanguage language, std::string_view text) {
    constexpr QChar rightToLeftMark{0x200F};
    auto written = toQString(text);
    if (isRightToLeft(language) && !written.isEmpty() && !written.isRightToLeft()) written.prepend(rightToLeftMark);
    return written;
}

} // namespace velmorin
