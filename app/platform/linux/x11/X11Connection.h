#pragma once

#include "app/platform/linux/loop/MainLoop.h"
#include "app/platform/linux/x11/X11Property.h"
#include "app/seams/Cancellable.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <xcb/xcb.h>
#include <xcb/xcb_ewmh.h>

namespace velmorin {

/// The connection to the X server, with its events on the main loop. No request of ours is ever fatal: windows vanish
/// between two requests, so errors are expected and dropped. Main thread.
class X11Connection {
public:
    using Handler = std::function<void(const xcb_generic_event_t&)>;

    /// What EWMH's own table of atoms does not have.
    struct Atoms {
        xcb_atom_t wmState;
        xcb_atom_t wmChangeState;
        xcb_atom_t wmProtocols;
        xcb_atom_t wmDeleteWindow;
        xcb_atom_t motifHints;
        xcb_atom_t hiddenMark; ///< our own, on windows that this program has hidden
    };

    /// Connects to a display, by default the one of the environment. Null where there is none. `loop` must outlive it.
    static std::unique_ptr<X11Connection> open(MainLoop& loop, const std::optional<std::string>& display = {});
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;
    ~X11Connection();

    xcb_connection_t* get() const { return m_connection; }
    xcb_window_t root() const { return m_screen->root; }
    const xcb_ewmh_connection_t& ewmh() const { return m_ewmh; }
    const Atoms& atoms() const { return m_atoms; }

    /// Whether the server can tell which process is behind a window (X-Resource extension 1.2).
    bool knowsProcesses() const { return m_knowsProcesses; }

    /// Sends what was asked for on its way.
    void flush() const { xcb_flush(m_connection); }
    /// Asks the window manager for something concerning a window, as pagers do. Not sent before `flush`.
    void askManager(xcb_window_t window, xcb_atom_t message, std::uint32_t first, std::uint32_t second = 0) const;
    /// Sends a window's own program a message. Not sent before `flush`.
    void tellWindow(xcb_window_t window, xcb_atom_t message, std::uint32_t first, std::uint32_t second) const;
    /// Chooses the events that are told of a window other than the root.
    void select(xcb_window_t window, std::uint32_t events) const;
    /// Adds to the events that are told of the root, until the result goes.
    [[nodiscard]] Cancellable selectOnRoot(std::uint32_t events);

    /// Gives each event to `handler` until the result goes. `whenRead`, if there, is called once all that had arrived
    /// has been given.
    [[nodiscard]] Cancellable observe(Handler handler, std::function<void()> whenRead = {});
    /// Called once, when the server has gone. Nothing works any more then.
    std::function<void()> onLost;

private:
    struct Observer {
        Handler handler;
        std::function<void()> whenRead;
    };

    X11Connection(MainLoop& loop, xcb_connection_t* connection, xcb_screen_t* screen);
    void selectAllOnRoot() const;
    void readEvents();
    void give(const xcb_generic_event_t& event);

    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen;
    xcb_ewmh_connection_t m_ewmh{};
    Atoms m_atoms{};
    bool m_knowsProcesses = false;
    X11Reply<xcb_generic_event_t> m_queued; ///< read from the connection and not given yet
    std::shared_ptr<std::map<std::uint64_t, std::shared_ptr<Observer>>> m_observers;
    std::uint64_t m_lastObserver = 0;
    std::shared_ptr<std::multiset<std::uint32_t>> m_rootEvents; ///< of each who wants any
    Cancellable m_readable;
};

} // namespace velmorin
