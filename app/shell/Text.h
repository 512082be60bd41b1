#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace velmorin {

/// A text of ours, which is UTF-8, as the toolkit's.
inline QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace velmorin
