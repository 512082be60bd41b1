#include "app/platform/linux/relay/LineSplitter.h"

#include <utility>

namespace velmorin {

bool LineSplitter::take(std::string_view piece) {
    for (auto end = piece.find('\n'); !m_isBroken && end != std::string_view::npos; end = piece.find('\n')) {
        m_rest.append(piece.substr(0, end));
        piece.remove_prefix(end + 1);
        m_isBroken = m_rest.size() > longestLine;
        if (!m_isBroken) push(std::exchange(m_rest, {}));
    }
    if (!m_isBroken) m_rest.append(piece);
    m_isBroken = m_isBroken || m_rest.size() > longestLine;
    return !m_isBroken;
}

void LineSplitter::finish() {
    if (!m_rest.empty() && !m_isBroken) push(std::exchange(m_rest, {}));
}

std::optional<std::string> LineSplitter::next() {
    if (m_lines.empty()) return std::nullopt;
    auto line = std::move(m_lines.front());
    m_lines.pop_front();
    return line;
}

void LineSplitter::push(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    m_lines.emplace_back(line);
}

} // namespace velmorin
