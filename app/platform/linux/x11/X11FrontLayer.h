#pragma once

#include "app/platform/linux/x11/X11Connection.h"
#include "app/platform/linux/x11/X11Pace.h"
#include "app/seams/DesktopLayers.h"
#include "app/seams/Timers.h"

#include <functional>
#include <optional>
#include <vector>
#include <xcb/xcb.h>

namespace velmorin {

/// Windows that no manager looks after, kept in front of all others for as long as this lives. The server's events tell
/// when something has changed; nothing is asked for. Main thread.
class X11FrontLayer {
public:
    /// The connection and the timers must outlive this.
    X11FrontLayer(X11Connection& connection, Timers& timers, const DesktopLayers::Front& front);
    X11FrontLayer(const X11FrontLayer&) = delete;
    X11FrontLayer& operator=(const X11FrontLayer&) = delete;

private:
    void handle(const xcb_generic_event_t& event);
    void handleFocus(const xcb_focus_in_event_t& event, bool isLoss);
    void catchUp();
    void raise();
    void takeFocus();
    bool isOurs(xcb_window_t window) const;

    X11Connection& m_connection;
    std::vector<xcb_window_t> m_windows;
    std::optional<xcb_window_t> m_key;
    std::function<void()> m_keyboardChanged;
    X11Pace m_raising;
    X11Pace m_focusing;

    // What events have told of and was not answered yet.
    bool m_isOrderNew = false;
    bool m_isFocusLost = false;
    bool m_isKeyboardNew = false;
    Cancellable m_selection;
    Cancellable m_events;
};

} // namespace velmorin
