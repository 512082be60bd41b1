#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Native messaging: each message is its length, four bytes in the machine's own order, and then so many bytes.
namespace velmorin {

/// The longest message that a browser takes, in bytes.
constexpr std::size_t longestMessageToBrowser = std::size_t{1} << 20U;
/// The longest message that a browser sends, in bytes.
constexpr std::size_t longestMessageFromBrowser = std::size_t{64} << 20U;

/// A message with its length in front. Absent for one that is too long for a browser.
std::optional<std::string> framed(std::string_view message);

/// Takes messages apart that come in pieces. It holds no more than what has come.
class MessageFrames {
public:
    /// False, from now on, for a length that no browser would send.
    bool append(std::string_view bytes);
    /// The next message that is complete; absent when there is none, or never will be.
    std::optional<std::string> take();

private:
    static constexpr std::size_t lengthSize = sizeof(std::uint32_t);

    std::optional<std::uint32_t> nextLength() const;

    std::string m_bytes;
};

} // namespace velmorin
