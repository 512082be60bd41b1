#pragma once

#include "app/platform/linux/x11/X11Connection.h"
#include "app/seams/Cancellable.h"

#include <functional>
#include <xcb/xcb.h>

namespace velmorin {

/// Whether a program on an X11 desktop takes the windows of icons in (the system tray protocol of freedesktop.org,
/// 0.4). Main thread.
class X11Tray {
public:
    /// Calls each time that one comes. The connection must outlive this.
    X11Tray(X11Connection& connection, std::function<void()> call);
    X11Tray(const X11Tray&) = delete;
    X11Tray& operator=(const X11Tray&) = delete;

    /// Whether one is there now.
    bool isThere() const;

private:
    void handle(const xcb_generic_event_t& event);

    X11Connection& m_connection;
    std::function<void()> m_call;
    xcb_atom_t m_selection = XCB_ATOM_NONE; ///< owned by the tray
    xcb_atom_t m_manager = XCB_ATOM_NONE;   ///< the message of whoever has just become its owner
    Cancellable m_selecting;
    Cancellable m_events;
};

} // namespace velmorin
