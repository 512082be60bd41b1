#pragma once

#include "app/platform/linux/x11/X11Clients.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <span>
#include <vector>
#include <xcb/xcb.h>

namespace velmorin {

/// What may be asked of other programs' windows, and what was: their manager does it in its own time, or not at all.
/// Windows that have gone are passed over. Main thread.
class X11Desk {
public:
    using Windows = std::span<const xcb_window_t>;

    X11Desk(X11Connection& connection, std::function<void(const X11Clients::Change&)> changed);

    const X11Clients& clients() const { return m_clients; }

    /// Whether a window is off the screen, be it on another desktop (where a manager counts that as iconified, and so
    /// cannot iconify it), or was asked to leave it so lately that it may be about to.
    bool isHidden(const X11Client& client) const;
    /// Has windows iconified, also those whose own hints forbid it. They bear a mark from then on, which outlives this
    /// program, so that only what it has hidden is shown again.
    void hide(Windows windows);
    /// Brings back those windows that bear the mark, behind the active one.
    void show(Windows windows);
    /// Asks each window to close, as its title bar's button would. One that does not take such requests is left alone:
    /// a manager would end its program by force.
    void close(Windows windows);
    /// Brings the one of these windows to the front that was there last.
    void activate(Windows windows);

private:
    using Moment = std::chrono::steady_clock::time_point;
    using Words = std::map<xcb_window_t, std::vector<std::uint32_t>>;

    /// Windows that were shown behind another.
    struct Shown {
        std::set<xcb_window_t> windows;
        xcb_window_t front = XCB_WINDOW_NONE;
        Moment until;
    };

    void noteActive();
    void keepBehind(xcb_window_t active);
    void dropMarks(const X11Clients::Change& change);
    bool isMarkFresh(xcb_window_t window) const;
    void allowIconifying(const X11Client& client, Moment now);
    void setWords(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, const std::vector<std::uint32_t>& words);
    void restore(Words& own, xcb_window_t window, xcb_atom_t property, xcb_atom_t type);
    void bringBack(const X11Client& client);
    void sendHome(const X11Client& client);
    void bringToFront(xcb_window_t window);
    std::uint64_t lastActive(xcb_window_t window) const;

    X11Connection& m_connection;
    X11Clients m_clients;
    std::map<xcb_window_t, Moment> m_hideRequests; ///< until the window has come back
    std::map<xcb_window_t, Moment> m_marked;
    std::map<xcb_window_t, std::uint32_t> m_homes; ///< the desktops of windows that were brought to this one
    Words m_ownTypes;                              ///< of windows that were given another
    Words m_ownHints;                              ///< the same of Motif's hints
    Shown m_shown;
    xcb_window_t m_active = XCB_WINDOW_NONE;            ///< as noted last
    std::map<xcb_window_t, std::uint64_t> m_lastActive; ///< the higher, the later
    std::uint64_t m_activations = 0;
};

} // namespace velmorin
