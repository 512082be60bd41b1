#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace velmorin {

/// Cuts what arrives in pieces into lines that end in LF or CR LF. Pure; any thread.
class LineSplitter {
public:
    /// The longest line that is taken, in bytes: far beyond what a relay sends, and little enough to keep.
    static constexpr std::size_t longestLine = 1 << 20;

    /// False when a line has become too long; nothing more is taken then.
    bool take(std::string_view piece);
    /// What is left over is a line too, if there is any.
    void finish();
    /// The next whole line without its end; absent when there is none yet.
    std::optional<std::string> next();

private:
    void push(std::string_view line);

    std::deque<std::string> m_lines;
    std::string m_rest;
    bool m_isBroken = false;
};

} // namespace velmorin
