#include "app/platform/linux/x11/X11BackLayer.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <utility>

namespace velmorin {

X11BackLayer::X11BackLayer(X11Connection& connection, Timers& timers, std::span<const NativeWindow> windows)
    : m_connection{connection}, m_raising{timers, [this] { raise(); }} {
    std::ranges::transform(windows, std::back_inserter(m_windows),
                           [](NativeWindow window) { return static_cast<xcb_window_t>(window); });
    m_events = m_connection.observe([this](const xcb_generic_event_t& event) { handle(event); }, [this] { catchUp(); });
    m_selection = m_connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
    if (isCovered()) raise();
}

void X11BackLayer::handle(const xcb_generic_event_t& event) {
    constexpr std::uint8_t sentFlag = 0x80;
    if ((event.response_type & ~sentFlag) != XCB_PROPERTY_NOTIFY) return;
    xcb_property_notify_event_t property{};
    std::memcpy(&property, &event, sizeof property);
    const bool isOrder = property.atom == m_connection.ewmh()._NET_CLIENT_LIST_STACKING;
    if (isOrder && property.window == m_connection.root()) m_isOrderNew = true;
}

void X11BackLayer::catchUp() {
    if (!std::exchange(m_isOrderNew, false) || !isCovered()) return;
    m_raising.count();
    m_raising.ask();
}

/// Only one of the same type can be in front of ours, and then it is right above.
bool X11BackLayer::isCovered() const {
    const auto& ewmh = m_connection.ewmh();
    const auto list = X11Property::request(m_connection.get(), m_connection.root(), ewmh._NET_CLIENT_LIST_STACKING);
    const auto order = X11Property{m_connection.get(), list}.words();
    for (std::size_t i = 0; i + 1 < order.size(); ++i) {
        if (!isOurs(order[i]) || isOurs(order[i + 1])) continue;
        const auto types = X11Property::request(m_connection.get(), order[i + 1], ewmh._NET_WM_WINDOW_TYPE);
        if (X11Property{m_connection.get(), types}.firstWord() == ewmh._NET_WM_WINDOW_TYPE_DESKTOP) return true;
    }
    return false;
}

/// The manager is asked as a pager would: to some, a program that is not active may not raise its own window. It raises
/// them as far as their type lets it. (Without a sibling, and "above" is zero.)
void X11BackLayer::raise() {
    constexpr std::uint32_t sourceIsTool = 2;
    for (const auto window : m_windows)
        m_connection.askManager(window, m_connection.ewmh()._NET_RESTACK_WINDOW, sourceIsTool);
    m_connection.flush();
}

bool X11BackLayer::isOurs(xcb_window_t window) const {
    return std::ranges::find(m_windows, window) != m_windows.end();
}

} // namespace velmorin
