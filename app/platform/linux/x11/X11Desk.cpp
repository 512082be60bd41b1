#include "app/platform/linux/x11/X11Desk.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace velmorin {

namespace {

/// How long a manager is given to iconify a window. Later the window counts as what it is.
constexpr std::chrono::milliseconds hideTime{500};

/// How long windows that come back behind the front may still take it for a moment.
constexpr std::chrono::milliseconds settlingTime{1000};

/// EWMH: a pager or the like, which acts for the user.
constexpr std::uint32_t sourceIsTool = 2;

/// _MOTIF_WM_HINTS: flags, functions, decorations and more. Bit 0 of the functions turns the others' meaning round.
constexpr std::size_t motifFunctions = 1;
constexpr std::uint32_t motifHasFunctions = 1;
constexpr std::uint32_t motifAllBut = 1;
constexpr std::uint32_t motifMinimize = 8;

bool mayBeIconified(const std::vector<std::uint32_t>& hints) {
    if (hints.size() <= motifFunctions || (hints[0] & motifHasFunctions) == 0) return true;
    const bool allBut = (hints[motifFunctions] & motifAllBut) != 0;
    const bool isNamed = (hints[motifFunctions] & motifMinimize) != 0;
    return allBut != isNamed;
}

} // namespace

X11Desk::X11Desk(X11Connection& connection, std::function<void(const X11Clients::Change&)> changed)
    : m_connection{connection},
      m_clients{connection, [this, changed = std::move(changed)](const X11Clients::Change& change) {
                    noteActive();
                    dropMarks(change);
                    changed(change);
                }} {
    noteActive();
    X11Clients::Change all;
    std::ranges::copy(m_clients.order(), std::inserter(all.touched, all.touched.end()));
    dropMarks(all);
}

bool X11Desk::isHidden(const X11Client& client) const {
    if (client.isIconic || client.countsAsIconic) return true;
    const auto request = m_hideRequests.find(client.window);
    return request != m_hideRequests.end() && std::chrono::steady_clock::now() - request->second < hideTime;
}

void X11Desk::hide(Windows windows) {
    const auto now = std::chrono::steady_clock::now();
    std::vector<xcb_window_t> hidden;
    for (const auto window : windows) {
        const auto* client = m_clients.find(window);
        if (client == nullptr || client->isIconic || client->countsAsIconic) continue;
        allowIconifying(*client, now);
        m_connection.askManager(window, m_connection.atoms().wmChangeState, iconicState);
        m_hideRequests[window] = m_marked[window] = now;
        hidden.push_back(window);
    }
    // The marks may wait, the windows not.
    m_connection.flush();
    constexpr std::uint32_t isSet = 1;
    for (const auto window : hidden)
        xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window, m_connection.atoms().hiddenMark,
                            XCB_ATOM_CARDINAL, 32, 1, &isSet);
    m_connection.flush();
}

void X11Desk::show(Windows windows) {
    std::vector<xcb_window_t> hidden;
    std::ranges::copy_if(windows, std::back_inserter(hidden), [this](xcb_window_t window) {
        const auto* client = m_clients.find(window);
        return client != nullptr && (client->wasHiddenByUs || m_hideRequests.contains(window));
    });
    std::ranges::sort(hidden, {}, [this](xcb_window_t window) { return lastActive(window); });
    // Only what is activated comes back under every manager. The front goes to where it was right after. The marks go
    // when the windows are seen.
    for (const auto window : hidden) {
        bringBack(*m_clients.find(window));
        m_hideRequests.erase(window);
        m_marked.erase(window);
        restore(m_ownTypes, window, m_connection.ewmh()._NET_WM_WINDOW_TYPE, XCB_ATOM_ATOM);
        restore(m_ownHints, window, m_connection.atoms().motifHints, m_connection.atoms().motifHints);
    }
    const auto* active = m_clients.active();
    if (!hidden.empty() && active != nullptr) {
        if (m_shown.front != active->window) m_shown = {{}, active->window, {}};
        m_shown.windows.insert(hidden.begin(), hidden.end());
        m_shown.until = std::chrono::steady_clock::now() + settlingTime;
        bringToFront(active->window);
    }
    m_connection.flush();
}

void X11Desk::close(Windows windows) {
    for (const auto window : windows) {
        const auto* client = m_clients.find(window);
        if (client == nullptr || !client->takesDeleteRequests) continue;
        m_connection.tellWindow(window, m_connection.atoms().wmProtocols, m_connection.atoms().wmDeleteWindow,
                                m_clients.time());
    }
    m_connection.flush();
}

void X11Desk::activate(Windows windows) {
    const auto last = std::ranges::max_element(windows, {}, [this](xcb_window_t window) { return lastActive(window); });
    if (last == windows.end()) return;
    m_hideRequests.erase(*last);
    bringToFront(*last);
    m_connection.flush();
}

void X11Desk::noteActive() {
    const auto* active = m_clients.active();
    const xcb_window_t window = active == nullptr ? xcb_window_t{XCB_WINDOW_NONE} : active->window;
    if (std::exchange(m_active, window) == window || active == nullptr) return;
    m_lastActive[active->window] = ++m_activations;
    // It has come back, whatever it was asked before.
    m_hideRequests.erase(active->window);
    keepBehind(active->window);
}

/// Some managers give a window that comes back the focus once more when it is there, after it was given to another.
void X11Desk::keepBehind(xcb_window_t active) {
    if (m_shown.front == XCB_WINDOW_NONE || active == m_shown.front) return;
    const bool isShown = m_shown.windows.erase(active) > 0;
    if (isShown && std::chrono::steady_clock::now() < m_shown.until && m_clients.find(m_shown.front) != nullptr) {
        bringToFront(m_shown.front);
        m_connection.flush();
    } else {
        m_shown = {};
    }
}

void X11Desk::dropMarks(const X11Clients::Change& change) {
    for (const auto window : change.touched) {
        const auto* client = m_clients.find(window);
        if (client != nullptr) sendHome(*client);
        if (client == nullptr) {
            m_hideRequests.erase(window);
            m_marked.erase(window);
            m_lastActive.erase(window);
            m_ownTypes.erase(window);
            m_ownHints.erase(window);
            m_homes.erase(window);
        } else if (client->wasHiddenByUs && !isHidden(*client) && !isMarkFresh(window)) {
            // Somebody else has brought it back; whoever iconifies it next means it.
            xcb_delete_property(m_connection.get(), window, m_connection.atoms().hiddenMark);
            m_connection.flush();
        }
    }
}

void X11Desk::allowIconifying(const X11Client& client, Moment now) {
    if (!mayBeIconified(client.motifHints)) {
        auto hints = client.motifHints;
        m_ownHints.try_emplace(client.window, hints);
        hints[motifFunctions] ^= motifMinimize;
        setWords(client.window, m_connection.atoms().motifHints, m_connection.atoms().motifHints, hints);
    }
    // A manager that has let the last request pass does not iconify windows of this type. As a normal one it does.
    const auto request = m_hideRequests.find(client.window);
    const bool wasIgnored = request != m_hideRequests.end() && now - request->second >= hideTime;
    const auto& ewmh = m_connection.ewmh();
    if (!wasIgnored || client.types.empty() || client.types.front() == ewmh._NET_WM_WINDOW_TYPE_NORMAL) return;
    m_ownTypes.try_emplace(client.window, client.types);
    setWords(client.window, ewmh._NET_WM_WINDOW_TYPE, XCB_ATOM_ATOM, {ewmh._NET_WM_WINDOW_TYPE_NORMAL});
}

void X11Desk::setWords(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                       const std::vector<std::uint32_t>& words) {
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window, property, type, 32,
                        static_cast<std::uint32_t>(words.size()), words.data());
}

/// What is told of a window in that time may still be from before it was asked to leave.
bool X11Desk::isMarkFresh(xcb_window_t window) const {
    const auto marked = m_marked.find(window);
    return marked != m_marked.end() && std::chrono::steady_clock::now() - marked->second < hideTime;
}

/// Puts back what was changed so that the window could be hidden.
void X11Desk::restore(Words& own, xcb_window_t window, xcb_atom_t property, xcb_atom_t type) {
    if (const auto words = own.extract(window); !words.empty()) setWords(window, property, type, words.mapped());
}

/// Of a window on another desktop, some managers only tell its user; others bring it over and leave it here. So it is
/// brought here and goes home once it is seen.
void X11Desk::bringBack(const X11Client& client) {
    const auto& ewmh = m_connection.ewmh();
    const auto cookie = X11Property::request(m_connection.get(), m_connection.root(), ewmh._NET_CURRENT_DESKTOP);
    const auto current = X11Property{m_connection.get(), cookie}.firstWord();
    if (client.desktop && current && *client.desktop != UINT32_MAX && client.desktop != current) {
        m_homes[client.window] = *client.desktop;
        m_connection.askManager(client.window, ewmh._NET_WM_DESKTOP, *current, sourceIsTool);
    }
    bringToFront(client.window);
}

void X11Desk::sendHome(const X11Client& client) {
    const auto home = m_homes.find(client.window);
    if (home == m_homes.end() || client.isIconic || client.countsAsIconic) return;
    if (client.desktop != home->second) {
        m_connection.askManager(client.window, m_connection.ewmh()._NET_WM_DESKTOP, home->second, sourceIsTool);
        m_connection.flush();
    }
    m_homes.erase(home);
}

void X11Desk::bringToFront(xcb_window_t window) {
    // Without a time of its own, or a manager could take the request for one that has been overtaken.
    m_connection.askManager(window, m_connection.ewmh()._NET_ACTIVE_WINDOW, sourceIsTool, XCB_CURRENT_TIME);
}

std::uint64_t X11Desk::lastActive(xcb_window_t window) const {
    const auto found = m_lastActive.find(window);
    return found == m_lastActive.end() ? 0 : found->second;
}

} // namespace velmorin
