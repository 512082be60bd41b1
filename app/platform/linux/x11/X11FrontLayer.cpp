#include "app/platform/linux/x11/X11FrontLayer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <utility>

namespace velmorin {

namespace {

template <class Event>
Event as(const xcb_generic_event_t& event) {
    Event copy{};
    std::memcpy(&copy, &event, sizeof copy);
    return copy;
}

} // namespace

X11FrontLayer::X11FrontLayer(X11Connection& connection, Timers& timers, const DesktopLayers::Front& front)
    : m_connection{connection},
      m_keyboardChanged{front.keyboardChanged},
      m_raising{timers, [this] { raise(); }},
      m_focusing{timers, [this] { takeFocus(); }} {
    std::ranges::transform(front.windows, std::back_inserter(m_windows),
                           [](NativeWindow window) { return static_cast<xcb_window_t>(window); });
    if (front.key) m_key = static_cast<xcb_window_t>(*front.key);
    m_events = m_connection.observe([this](const xcb_generic_event_t& event) { handle(event); }, [this] { catchUp(); });
    m_selection = m_connection.selectOnRoot(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    if (m_key) m_connection.select(*m_key, XCB_EVENT_MASK_FOCUS_CHANGE);
    raise();
    if (m_key) takeFocus();
}

void X11FrontLayer::handle(const xcb_generic_event_t& event) {
    constexpr std::uint8_t sentFlag = 0x80;
    switch (event.response_type & ~sentFlag) {
    case XCB_MAP_NOTIFY: m_isOrderNew = true; break;
    case XCB_CIRCULATE_NOTIFY: m_isOrderNew = true; break;
    case XCB_CONFIGURE_NOTIFY: {
        // Ours have moved: that was an answer of ours, or needs one. Either way there was something to answer.
        const auto configured = as<xcb_configure_notify_event_t>(event);
        if (configured.event != m_connection.root()) break;
        if (isOurs(configured.window)) m_raising.count();
        m_isOrderNew = true;
        break;
    }
    case XCB_FOCUS_IN: handleFocus(as<xcb_focus_in_event_t>(event), false); break;
    case XCB_FOCUS_OUT: handleFocus(as<xcb_focus_in_event_t>(event), true); break;
    default: break;
    }
}

void X11FrontLayer::handleFocus(const xcb_focus_in_event_t& event, bool isLoss) {
    if (event.event != m_key) return;
    // Whoever had the keyboard for himself has let it go.
    if (event.mode == XCB_NOTIFY_MODE_UNGRAB) m_isKeyboardNew = true;
    const bool isMove = event.mode == XCB_NOTIFY_MODE_NORMAL || event.mode == XCB_NOTIFY_MODE_WHILE_GRABBED;
    const bool isElsewhere = event.detail != XCB_NOTIFY_DETAIL_INFERIOR && event.detail != XCB_NOTIFY_DETAIL_POINTER;
    if (isMove && isElsewhere) m_isFocusLost = isLoss;
}

void X11FrontLayer::catchUp() {
    if (std::exchange(m_isOrderNew, false)) m_raising.ask();
    if (std::exchange(m_isFocusLost, false)) {
        m_focusing.count();
        m_focusing.ask();
        m_isKeyboardNew = true;
    }
    // At last, since it may end this.
    if (std::exchange(m_isKeyboardNew, false) && m_keyboardChanged) {
        const auto call = m_keyboardChanged;
        call();
    }
}

/// Where they are in front already, in this order, the server does nothing and tells nothing.
void X11FrontLayer::raise() {
    for (std::size_t i = 0; i < m_windows.size(); ++i) {
        if (i == 0) {
            const std::uint32_t above = XCB_STACK_MODE_ABOVE;
            xcb_configure_window(m_connection.get(), m_windows[i], XCB_CONFIG_WINDOW_STACK_MODE, &above);
        } else {
            const std::array<std::uint32_t, 2> below{m_windows[i - 1], XCB_STACK_MODE_BELOW};
            xcb_configure_window(m_connection.get(), m_windows[i],
                                 XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, below.data());
        }
    }
    m_connection.flush();
}

/// Without a time of its own: the last event that this program has seen may be older than the other's claim.
void X11FrontLayer::takeFocus() {
    xcb_set_input_focus(m_connection.get(), XCB_INPUT_FOCUS_PARENT, *m_key, XCB_CURRENT_TIME);
    m_connection.flush();
}

bool X11FrontLayer::isOurs(xcb_window_t window) const {
    return std::ranges::find(m_windows, window) != m_windows.end();
}

} // namespace velmorin
