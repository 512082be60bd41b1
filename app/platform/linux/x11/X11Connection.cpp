#include "app/platform/linux/x11/X11Connection.h"

#include <array>
#include <cstring>
#include <functional>
#include <numeric>
#include <string_view>
#include <utility>
#include <vector>
#include <xcb/res.h>

namespace velmorin {

namespace {

xcb_screen_t* screenOf(xcb_connection_t* connection, int number) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 0; xcb_screen_next(&screens), --number)
        if (number == 0) return screens.data;
    return nullptr;
}

template <std::size_t count>
std::array<xcb_atom_t, count> internAtoms(xcb_connection_t* connection,
                                          const std::array<std::string_view, count>& names) {
    std::array<xcb_intern_atom_cookie_t, count> cookies{};
    for (std::size_t i = 0; i < count; ++i)
        cookies[i] = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(names[i].size()), names[i].data());
    std::array<xcb_atom_t, count> atoms{};
    for (std::size_t i = 0; i < count; ++i) {
        const X11Reply<xcb_intern_atom_reply_t> reply{xcb_intern_atom_reply(connection, cookies[i], nullptr)};
        if (reply) atoms[i] = reply->atom;
    }
    return atoms;
}

xcb_client_message_event_t clientMessage(xcb_window_t window, xcb_atom_t message, std::uint32_t first,
                                         std::uint32_t second) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = message;
    event.data.data32[0] = first;
    event.data.data32[1] = second;
    return event;
}

void sendMessage(xcb_connection_t* connection, xcb_window_t destination, std::uint32_t mask,
                 const xcb_client_message_event_t& event) {
    std::array<char, sizeof event> bytes{};
    std::memcpy(bytes.data(), &event, sizeof event);
    xcb_send_event(connection, 0, destination, mask, bytes.data());
}

} // namespace

std::unique_ptr<X11Connection> X11Connection::open(MainLoop& loop, const std::optional<std::string>& display) {
    int number = 0;
    xcb_connection_t* connection = xcb_connect(display ? display->c_str() : nullptr, &number);
    xcb_screen_t* screen = xcb_connection_has_error(connection) == 0 ? screenOf(connection, number) : nullptr;
    if (screen == nullptr) {
        xcb_disconnect(connection);
        return nullptr;
    }
    return std::unique_ptr<X11Connection>{new X11Connection{loop, connection, screen}};
}

X11Connection::X11Connection(MainLoop& loop, xcb_connection_t* connection, xcb_screen_t* screen)
    : m_connection{connection},
      m_screen{screen},
      m_observers{std::make_shared<std::map<std::uint64_t, std::shared_ptr<Observer>>>()},
      m_rootEvents{std::make_shared<std::multiset<std::uint32_t>>()} {
    xcb_ewmh_init_atoms_replies(&m_ewmh, xcb_ewmh_init_atoms(m_connection, &m_ewmh), nullptr);
    const auto atoms = internAtoms<6>(m_connection, {"WM_STATE", "WM_CHANGE_STATE", "WM_PROTOCOLS", "WM_DELETE_WINDOW",
                                                     "_MOTIF_WM_HINTS", "_VELMORIN_HIDDEN"});
    m_atoms = {atoms[0], atoms[1], atoms[2], atoms[3], atoms[4], atoms[5]};
    // A request of an extension that is not there would end the connection.
    const auto* resources = xcb_get_extension_data(m_connection, &xcb_res_id);
    m_knowsProcesses = resources != nullptr && resources->present != 0;
    // Requests and their answers read events along with them, of which the descriptor tells nothing any more.
    const auto isPending = [this] {
        if (!m_queued) m_queued.reset(xcb_poll_for_queued_event(m_connection));
        return m_queued != nullptr;
    };
    m_readable = loop.watchReadable(
        xcb_get_file_descriptor(m_connection), [this] { readEvents(); }, isPending);
}

X11Connection::~X11Connection() {
    m_readable.cancel();
    xcb_ewmh_connection_wipe(&m_ewmh);
    xcb_disconnect(m_connection);
}

void X11Connection::askManager(xcb_window_t window, xcb_atom_t message, std::uint32_t first,
                               std::uint32_t second) const {
    constexpr std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
    sendMessage(m_connection, root(), mask, clientMessage(window, message, first, second));
}

void X11Connection::tellWindow(xcb_window_t window, xcb_atom_t message, std::uint32_t first,
                               std::uint32_t second) const {
    sendMessage(m_connection, window, XCB_EVENT_MASK_NO_EVENT, clientMessage(window, message, first, second));
}

void X11Connection::select(xcb_window_t window, std::uint32_t events) const {
    xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &events);
}

Cancellable X11Connection::selectOnRoot(std::uint32_t events) {
    m_rootEvents->insert(events);
    selectAllOnRoot();
    return Cancellable{[this, held = std::weak_ptr{m_rootEvents}, events] {
        const auto wanted = held.lock();
        if (!wanted) return;
        wanted->erase(wanted->find(events));
        selectAllOnRoot();
        flush();
    }};
}

void X11Connection::selectAllOnRoot() const {
    const auto all = std::accumulate(m_rootEvents->begin(), m_rootEvents->end(), 0U, std::bit_or<>{});
    select(root(), all);
}

Cancellable X11Connection::observe(Handler handler, std::function<void()> whenRead) {
    const auto number = ++m_lastObserver;
    m_observers->emplace(number, std::make_shared<Observer>(Observer{std::move(handler), std::move(whenRead)}));
    return Cancellable{[observers = std::weak_ptr{m_observers}, number] {
        if (const auto held = observers.lock()) held->erase(number);
    }};
}

void X11Connection::readEvents() {
    // Whoever is told may bring all of this to an end.
    const std::weak_ptr alive{m_observers};
    while (!alive.expired()) {
        const auto event =
            m_queued ? std::move(m_queued) : X11Reply<xcb_generic_event_t>{xcb_poll_for_event(m_connection)};
        if (!event) break;
        if (event->response_type != 0) give(*event);
    }
    if (alive.expired()) return;
    const auto observers = *m_observers;
    for (const auto& [number, observer] : observers)
        if (observer->whenRead && !alive.expired() && m_observers->contains(number)) observer->whenRead();
    if (alive.expired() || xcb_connection_has_error(m_connection) == 0) return;
    m_readable.cancel();
    if (onLost) onLost();
}

void X11Connection::give(const xcb_generic_event_t& event) {
    // Whoever is told may call another off, or bring all of this to an end.
    const std::weak_ptr alive{m_observers};
    const auto observers = *m_observers;
    for (const auto& [number, observer] : observers)
        if (!alive.expired() && m_observers->contains(number)) observer->handler(event);
}

} // namespace velmorin
