#include "app/platform/linux/browsers/MessageFrames.h"

#include <cstring>

namespace velmorin {

namespace {

constexpr std::size_t largestKept = std::size_t{16} << 10U;

} // namespace

std::optional<std::string> framed(std::string_view message) {
    if (message.size() > longestMessageToBrowser) return std::nullopt;
    const auto length = static_cast<std::uint32_t>(message.size());
    std::string frame(sizeof length, '\0');
    std::memcpy(frame.data(), &length, sizeof length);
    frame += message;
    return frame;
}

bool MessageFrames::append(std::string_view bytes) {
    m_bytes += bytes;
    return nextLength().value_or(0) <= longestMessageFromBrowser;
}

std::optional<std::string> MessageFrames::take() {
    const auto length = nextLength();
    if (!length || *length > longestMessageFromBrowser || m_bytes.size() - lengthSize < *length) return std::nullopt;
    auto message = m_bytes.substr(lengthSize, *length);
    m_bytes.erase(0, lengthSize + *length);
    // A long message is rare, and what it took is given back.
    if (m_bytes.empty() && m_bytes.capacity() > largestKept) m_bytes.shrink_to_fit();
    return message;
}

std::optional<std::uint32_t> MessageFrames::nextLength() const {
    std::uint32_t length = 0;
    if (m_bytes.size() < sizeof length) return std::nullopt;
    std::memcpy(&length, m_bytes.data(), sizeof length);
    return length;
}

} // namespace velmorin
