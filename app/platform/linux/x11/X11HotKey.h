#pragma once

#include "app/platform/linux/x11/X11Connection.h"

#include <cstdint>
#include <functional>
#include <vector>
#include <xcb/xcb.h>

namespace velmorin {

/// Control-Alt-T, wherever the keyboard is, with every state of the lock keys. Where another program has it already
/// nothing happens, and nothing is told. Follows changes of the keyboard's layout; a layout without the letter has it
/// where the letter is on a Latin one. Main thread.
class X11HotKey {
public:
    /// `pressed` is called on the loop, once for each press. The connection must outlive this.
    X11HotKey(X11Connection& connection, std::function<void()> pressed);
    X11HotKey(const X11HotKey&) = delete;
    X11HotKey& operator=(const X11HotKey&) = delete;
    ~X11HotKey();

private:
    void grab();
    void release();
    void handle(const xcb_generic_event_t& event);

    X11Connection& m_connection;
    std::function<void()> m_pressed;
    std::vector<xcb_keycode_t> m_keys;      ///< those that give the letter
    std::vector<std::uint16_t> m_modifiers; ///< Control and Alt with each state of the locks
    xcb_timestamp_t m_lastRelease = XCB_CURRENT_TIME;
    Cancellable m_events;
};

} // namespace velmorin
