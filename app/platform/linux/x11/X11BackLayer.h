#pragma once

#include "app/platform/linux/x11/X11Connection.h"
#include "app/platform/linux/x11/X11Pace.h"
#include "app/seams/DesktopLayers.h"
#include "app/seams/Timers.h"

#include <span>
#include <vector>
#include <xcb/xcb.h>

namespace velmorin {

/// Windows of the desktop's own type, kept above others of that type for as long as this lives. All else is the window
/// manager's: such windows are below every other, on all desktops and in no list. Main thread.
class X11BackLayer {
public:
    /// The connection and the timers must outlive this.
    X11BackLayer(X11Connection& connection, Timers& timers, std::span<const NativeWindow> windows);
    X11BackLayer(const X11BackLayer&) = delete;
    X11BackLayer& operator=(const X11BackLayer&) = delete;

private:
    void handle(const xcb_generic_event_t& event);
    void catchUp();
    void raise();
    bool isCovered() const;
    bool isOurs(xcb_window_t window) const;

    X11Connection& m_connection;
    std::vector<xcb_window_t> m_windows;
    X11Pace m_raising;
    bool m_isOrderNew = false; ///< and was not looked at yet
    Cancellable m_selection;
    Cancellable m_events;
};

} // namespace velmorin
