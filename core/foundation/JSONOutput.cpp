#include "core/foundation/JSONOutput.h"

#include "core/foundation/NumberText.h"
#include "core/foundation/Text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace velmorin {

namespace {

constexpr bool needsEscape(char character) {
    return static_cast<unsigned char>(character) < 0x20 || character == '"' || character == '\\' || character == '/';
}

void appendEscaped(std::string& text, char character) {
    constexpr std::string_view hexadecimal = "0123456789abcdef";
    switch (character) {
    case '"': text += "\\\""; return;
    case '\\': text += "\\\\"; return;
    case '/': text += "\\/"; return;
    case '\b': text += "\\b"; return;
    case '\f': text += "\\f"; return;
    case '\n': text += "\\n"; return;
    case '\r': text += "\\r"; return;
    case '\t': text += "\\t"; return;
    default: break;
    }
    const auto code = static_cast<unsigned char>(character);
    text += "\\u00";
    text += hexadecimal[code >> 4];
    text += hexadecimal[code & 0x0F];
}

} // namespace

void JSONOutput::key(std::string_view text) {
    separate();
    appendString(text);
    m_text += ':';
    m_needsComma = false;
}

void JSONOutput::write(std::int64_t value) {
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    writeLiteral({digits.data(), end});
}

void JSONOutput::write(double value) {
    if (!std::isfinite(value)) m_isRepresentable = false;
    NumberBuffer buffer;
    writeLiteral(numberText(value, buffer));
}

void JSONOutput::write(std::string_view value) {
    separate();
    appendString(value);
}

std::optional<std::string> JSONOutput::take() {
    std::string text = std::exchange(m_text, {});
    m_needsComma = false;
    const bool isRepresentable = std::exchange(m_isRepresentable, true);
    if (!isRepresentable || !isUTF8(text)) return std::nullopt;
    return text;
}

void JSONOutput::open(char bracket) {
    separate();
    m_text += bracket;
    m_needsComma = false;
}

void JSONOutput::close(char bracket) {
    m_text += bracket;
    m_needsComma = true;
}

void JSONOutput::separate() {
    if (m_needsComma) m_text += ',';
    m_needsComma = true;
}

void JSONOutput::writeLiteral(std::string_view text) {
    separate();
    m_text += text;
}

void JSONOutput::appendString(std::string_view text) {
    m_text += '"';
    std::size_t written = 0;
    for (std::size_t position = 0; position < text.size(); ++position) {
        if (!needsEscape(text[position])) continue;
        m_text += text.substr(written, position - written);
        appendEscaped(m_text, text[position]);
        written = position + 1;
    }
    m_text += text.substr(written);
    m_text += '"';
}

} // namespace velmorin
