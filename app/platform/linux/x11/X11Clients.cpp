#include "app/platform/linux/x11/X11Clients.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <utility>
#include <xcb/res.h>

namespace velmorin {

namespace {

constexpr std::uint32_t clientEvents = XCB_EVENT_MASK_PROPERTY_CHANGE;

/// Everything that is asked about one window, under way.
struct Questions {
    std::optional<xcb_res_query_client_ids_cookie_t> process;
    xcb_get_property_cookie_t claimedProcess, wmClass, desktop, type, state, managerState, protocols, motif, mark;
};

Questions ask(const X11Connection& connection, xcb_window_t window) {
    const auto& ewmh = connection.ewmh();
    const auto& atoms = connection.atoms();
    const auto property = [&](xcb_atom_t atom) { return X11Property::request(connection.get(), window, atom); };
    const xcb_res_client_id_spec_t spec{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    std::optional<xcb_res_query_client_ids_cookie_t> process;
    if (connection.knowsProcesses()) process = xcb_res_query_client_ids(connection.get(), 1, &spec);
    return {process,
            property(ewmh._NET_WM_PID),
            property(XCB_ATOM_WM_CLASS),
            property(ewmh._NET_WM_DESKTOP),
            property(ewmh._NET_WM_WINDOW_TYPE),
            property(ewmh._NET_WM_STATE),
            property(atoms.wmState),
            property(atoms.wmProtocols),
            property(atoms.motifHints),
            property(atoms.hiddenMark)};
}

/// Whom the server talks to about a window. It knows by itself, so that no program can claim to be another, and none
/// that is in a container gives the number it has in there. What a window claims is for servers that cannot tell.
std::optional<std::int32_t> processID(X11Reply<xcb_res_query_client_ids_reply_t> reply, const X11Property& claimed) {
    if (!reply) {
        const auto word = claimed.firstWord();
        return word && *word > 0 && *word <= INT32_MAX ? std::optional{static_cast<std::int32_t>(*word)} : std::nullopt;
    }
    auto ids = xcb_res_query_client_ids_ids_iterator(reply.get());
    for (; ids.rem > 0; xcb_res_client_id_value_next(&ids)) {
        const bool isProcess = (ids.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0;
        if (isProcess && xcb_res_client_id_value_value_length(ids.data) > 0)
            return static_cast<std::int32_t>(*xcb_res_client_id_value_value(ids.data));
    }
    return std::nullopt;
}

/// The two names of WM_CLASS, which end in a zero each.
std::pair<std::string, std::string> classNames(std::string_view text) {
    const auto end = std::min(text.find('\0'), text.size());
    auto rest = text.substr(std::min(end + 1, text.size()));
    return {std::string{text.substr(0, end)}, std::string{rest.substr(0, rest.find('\0'))}};
}

/// The role of the first type that is known; a window without a type is an application's.
X11Client::Role roleOf(const std::vector<xcb_atom_t>& types, const xcb_ewmh_connection_t& ewmh) {
    using Role = X11Client::Role;
    const std::array<std::pair<xcb_atom_t, Role>, 9> roles{{
        {ewmh._NET_WM_WINDOW_TYPE_NORMAL, Role::application},
        {ewmh._NET_WM_WINDOW_TYPE_DIALOG, Role::application},
        {ewmh._NET_WM_WINDOW_TYPE_DESKTOP, Role::desktop},
        {ewmh._NET_WM_WINDOW_TYPE_DOCK, Role::dock},
        {ewmh._NET_WM_WINDOW_TYPE_NOTIFICATION, Role::notification},
        {ewmh._NET_WM_WINDOW_TYPE_UTILITY, Role::application},
        {ewmh._NET_WM_WINDOW_TYPE_TOOLBAR, Role::attachment},
        {ewmh._NET_WM_WINDOW_TYPE_MENU, Role::attachment},
        {ewmh._NET_WM_WINDOW_TYPE_SPLASH, Role::attachment},
    }};
    for (const auto type : types) {
        const auto found = std::ranges::find(roles, type, [](const auto& entry) { return entry.first; });
        if (found != roles.end()) return found->second;
    }
    return Role::application;
}

/// Absent when the window has gone. Where a manager tells what is hidden that alone counts: to some, windows on other
/// desktops are iconified as well.
std::optional<X11Client> answered(const X11Connection& connection, xcb_window_t window, const Questions& questions,
                                  bool tellsHidden) {
    auto* const c = connection.get();
    const auto& ewmh = connection.ewmh();
    X11Reply<xcb_res_query_client_ids_reply_t> process;
    if (questions.process) process.reset(xcb_res_query_client_ids_reply(c, *questions.process, nullptr));
    const X11Property claimed{c, questions.claimedProcess};
    const X11Property wmClass{c, questions.wmClass};
    const X11Property desktop{c, questions.desktop};
    const X11Property type{c, questions.type};
    const X11Property state{c, questions.state};
    const X11Property managerState{c, questions.managerState};
    const X11Property protocols{c, questions.protocols};
    const X11Property motif{c, questions.motif};
    const X11Property mark{c, questions.mark};
    if (!mark.isAnswered()) return std::nullopt;

    auto [instance, className] = classNames(wmClass.text());
    X11Client client;
    client.window = window;
    client.processID = processID(std::move(process), claimed);
    client.instance = std::move(instance);
    client.className = std::move(className);
    client.desktop = desktop.firstWord();
    client.types = type.words();
    client.role = roleOf(client.types, ewmh);
    client.countsAsIconic = managerState.firstWord() == iconicState;
    client.isIconic = tellsHidden ? state.lists(ewmh._NET_WM_STATE_HIDDEN) : client.countsAsIconic;
    client.wasHiddenByUs = mark.exists();
    client.takesDeleteRequests = protocols.lists(connection.atoms().wmDeleteWindow);
    client.motifHints = motif.words();
    return client;
}

} // namespace

X11Clients::X11Clients(X11Connection& connection, std::function<void(const Change&)> changed)
    : m_connection{connection}, m_changed{std::move(changed)} {
    // What happens from here on is told by events, also what happens while all is read for the first time.
    m_selection = m_connection.selectOnRoot(XCB_EVENT_MASK_PROPERTY_CHANGE);
    readManager();
    readList();
    readActive();
    m_change = {};
    m_events = m_connection.observe([this](const xcb_generic_event_t& event) { handle(event); }, [this] { catchUp(); });
}

const X11Client* X11Clients::active() const {
    const auto* client = find(m_active);
    // Some managers leave an iconified window the focus when there is no other.
    return client != nullptr && client->isIconic ? nullptr : client;
}

const X11Client* X11Clients::find(xcb_window_t window) const {
    const auto found = m_windows.find(window);
    return found == m_windows.end() ? nullptr : &found->second;
}

void X11Clients::handle(const xcb_generic_event_t& event) {
    constexpr std::uint8_t sentFlag = 0x80;
    if ((event.response_type & ~sentFlag) != XCB_PROPERTY_NOTIFY) return;
    xcb_property_notify_event_t property{};
    std::memcpy(&property, &event, sizeof property);
    handleProperty(property);
}

void X11Clients::handleProperty(const xcb_property_notify_event_t& event) {
    const auto& ewmh = m_connection.ewmh();
    const auto& atoms = m_connection.atoms();
    m_time = event.time;
    if (event.window == m_connection.root()) {
        if (event.atom == ewmh._NET_ACTIVE_WINDOW) m_isActiveStale = true;
        if (event.atom == ewmh._NET_CLIENT_LIST) m_isListStale = true;
        if (event.atom == ewmh._NET_SUPPORTED) m_isManagerStale = true;
        return;
    }
    const std::array<xcb_atom_t, 8> known{ewmh._NET_WM_DESKTOP,     atoms.wmState,     atoms.wmProtocols,
                                          atoms.motifHints,         atoms.hiddenMark,  XCB_ATOM_WM_CLASS,
                                          ewmh._NET_WM_WINDOW_TYPE, ewmh._NET_WM_STATE};
    if (std::ranges::find(known, event.atom) != known.end()) m_stale.insert(event.window);
}

void X11Clients::catchUp() {
    // What is read may bring events along with it, which come in with the next call.
    if (std::exchange(m_isActiveStale, false)) {
        readActive();
        // A window that has just come may be told of as active before it is as listed.
        if (m_active != XCB_WINDOW_NONE && find(m_active) == nullptr) readList();
        believeActive();
        // Nothing else may keep whoever waits for this.
        tell();
    }
    if (std::exchange(m_isManagerStale, false)) readManager();
    if (std::exchange(m_isListStale, false)) readList();
    const auto stale = std::exchange(m_stale, {});
    std::vector<xcb_window_t> managed;
    std::ranges::copy_if(stale, std::back_inserter(managed), [this](auto window) { return find(window) != nullptr; });
    take(managed);
    tell();
}

void X11Clients::tell() {
    const auto change = std::exchange(m_change, {});
    if (change.isActiveNew || !change.touched.empty()) m_changed(change);
}

void X11Clients::readActive() {
    const auto cookie =
        X11Property::request(m_connection.get(), m_connection.root(), m_connection.ewmh()._NET_ACTIVE_WINDOW);
    const auto active = X11Property{m_connection.get(), cookie}.firstWord().value_or(XCB_WINDOW_NONE);
    m_change.isActiveNew = m_change.isActiveNew || active != m_active;
    m_active = active;
}

/// Another manager may tell other things of the same windows.
void X11Clients::readManager() {
    const auto& ewmh = m_connection.ewmh();
    const auto cookie = X11Property::request(m_connection.get(), m_connection.root(), ewmh._NET_SUPPORTED);
    m_tellsHidden = X11Property{m_connection.get(), cookie}.lists(ewmh._NET_WM_STATE_HIDDEN);
    std::ranges::copy(m_order, std::inserter(m_stale, m_stale.end()));
}

/// A window that was iconified and is active has been brought back. Its state, if it was told of as well, is read when
/// nobody waits any more; else it is looked at first.
void X11Clients::believeActive() {
    const auto found = m_windows.find(m_active);
    if (found == m_windows.end() || !found->second.isIconic) return;
    if (m_stale.contains(m_active)) {
        found->second.isIconic = found->second.countsAsIconic = false;
        m_change.touched.insert(m_active);
    } else {
        take(std::array{m_active});
    }
}

void X11Clients::readList() {
    const auto cookie =
        X11Property::request(m_connection.get(), m_connection.root(), m_connection.ewmh()._NET_CLIENT_LIST);
    m_order = X11Property{m_connection.get(), cookie}.words();
    const std::set<xcb_window_t> listed{m_order.begin(), m_order.end()};
    for (const auto& [window, client] : m_windows)
        if (!listed.contains(window)) m_change.touched.insert(window);
    std::erase_if(m_windows, [&](const auto& entry) { return !listed.contains(entry.first); });

    std::vector<xcb_window_t> fresh;
    std::ranges::copy_if(listed, std::back_inserter(fresh), [this](auto window) { return find(window) == nullptr; });
    for (const auto window : fresh)
        m_connection.select(window, clientEvents);
    take(fresh);
}

void X11Clients::take(std::span<const xcb_window_t> windows) {
    if (windows.empty()) return;
    for (auto& client : read(windows)) {
        const auto window = client.window;
        const auto [place, isFresh] = m_windows.try_emplace(window);
        if (!isFresh && place->second == client) continue;
        place->second = std::move(client);
        m_change.touched.insert(window);
    }
}

std::vector<X11Client> X11Clients::read(std::span<const xcb_window_t> windows) const {
    // All is asked before the first answer is waited for: one way to the server and back for any number of windows.
    std::vector<Questions> questions;
    std::ranges::transform(windows, std::back_inserter(questions),
                           [this](auto window) { return ask(m_connection, window); });
    std::vector<X11Client> clients;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        auto client = answered(m_connection, windows[i], questions[i], m_tellsHidden);
        if (client) clients.push_back(std::move(*client));
    }
    return clients;
}

} // namespace velmorin
