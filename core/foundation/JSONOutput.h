#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmorin {

/// Builds one JSON text, compact and in UTF-8 (RFC 8259). The caller opens and closes what it nests; commas come by
/// themselves. Any thread.
class JSONOutput {
public:
    void beginObject() { open('{'); }
    void endObject() { close('}'); }
    void beginArray() { open('['); }
    void endArray() { close(']'); }
    /// Starts a member; its value must follow.
    void key(std::string_view text);

    void writeNull() { writeLiteral("null"); }
    void write(bool value) { writeLiteral(value ? "true" : "false"); }
    void write(std::int64_t value);
    /// The shortest digits that read back as the same number; a whole number without a fraction or exponent.
    void write(double value);
    /// A slash is escaped, as are quotation mark, backslash and the control characters, and nothing else.
    void write(std::string_view value);
    /// A value that is JSON already, as it stands.
    void writeJSON(std::string_view json) { writeLiteral(json); }
    /// Without this a text would convert to a boolean.
    void write(const char* value) { write(std::string_view{value}); }

    /// The finished text. Absent when a number was infinite or not a number, or a text was not UTF-8: JSON cannot
    /// hold these. Leaves the output empty.
    std::optional<std::string> take();

private:
    void open(char bracket);
    void close(char bracket);
    void separate();
    void writeLiteral(std::string_view text);
    void appendString(std::string_view text);

    std::string m_text;
    bool m_needsComma = false;
    bool m_isRepresentable = true;
};

} // namespace velmorin
