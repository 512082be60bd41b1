#pragma once

#include "app/platform/linux/x11/X11Connection.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>
#include <xcb/xcb.h>

namespace velmorin {

/// The state of an iconified window (ICCCM 4.1.3.1).
inline constexpr std::uint32_t iconicState = 3;

/// A window that the window manager looks after.
struct X11Client {
    /// What part it has on the desktop.
    enum class Role {
        application,  ///< a normal window, a dialog or a palette
        attachment,   ///< a tool bar, a menu, a splash screen
        desktop,      ///< the background with its icons
        dock,         ///< a panel
        notification, ///< a message of the system or of an application
    };

    xcb_window_t window = XCB_WINDOW_NONE;
    std::optional<std::int32_t> processID; ///< as the server knows it, else as the window says
    std::string instance;                  ///< of WM_CLASS, as `className`; empty where there is none
    std::string className;
    std::optional<std::uint32_t> desktop; ///< its number; all bits set for a window that is on all
    Role role = Role::application;
    std::vector<xcb_atom_t> types; ///< as the window names them, the preferred one first
    bool isIconic = false;
    bool countsAsIconic = false; ///< to its manager: to some also where it is only on another desktop
    bool wasHiddenByUs = false;  ///< bears our mark
    bool takesDeleteRequests = false;
    /// Motif's hints, by which a window may forbid its manager to iconify it; empty where there are none.
    std::vector<std::uint32_t> motifHints;

    bool operator==(const X11Client&) const = default;
};

/// All managed windows, kept as the server's events tell, and which of them is active. Nothing is asked for in between.
/// Main thread.
class X11Clients {
public:
    /// What has changed since it was told last.
    struct Change {
        bool isActiveNew = false;
        std::set<xcb_window_t> touched; ///< appeared, went, or changed in any way
    };

    /// Reads everything. `changed` is called from the loop after each change; the connection must outlive this.
    X11Clients(X11Connection& connection, std::function<void(const Change&)> changed);

    /// In the order in which they were mapped first.
    const std::vector<xcb_window_t>& order() const { return m_order; }
    /// The active window; null where there is none on the screen, or where it is no managed one.
    const X11Client* active() const;
    const X11Client* find(xcb_window_t window) const;
    /// The time of the last event, on the server's clock.
    xcb_timestamp_t time() const { return m_time; }

private:
    void handle(const xcb_generic_event_t& event);
    void handleProperty(const xcb_property_notify_event_t& event);
    void catchUp();
    void tell();
    void readManager();
    void readActive();
    void believeActive();
    void readList();
    void take(std::span<const xcb_window_t> windows);
    std::vector<X11Client> read(std::span<const xcb_window_t> windows) const;

    X11Connection& m_connection;
    std::function<void(const Change&)> m_changed;
    std::map<xcb_window_t, X11Client> m_windows;
    std::vector<xcb_window_t> m_order;
    xcb_window_t m_active = XCB_WINDOW_NONE;
    xcb_timestamp_t m_time = XCB_CURRENT_TIME;
    bool m_tellsHidden = false; ///< the manager does

    // What events have told of and was not read yet.
    bool m_isManagerStale = false;
    bool m_isActiveStale = false;
    bool m_isListStale = false;
    std::set<xcb_window_t> m_stale;
    Change m_change;
    Cancellable m_selection;
    Cancellable m_events;
};

} // namespace velmorin
