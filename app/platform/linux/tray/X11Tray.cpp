#include "app/platform/linux/tray/X11Tray.h"

#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace velmorin {

namespace {

/// The number of the screen that a root belongs to.
int screenNumber(xcb_connection_t* connection, xcb_window_t root) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (int number = 0; screens.rem > 0; xcb_screen_next(&screens), ++number)
        if (screens.data->root == root) return number;
    return 0;
}

xcb_intern_atom_cookie_t askForAtom(xcb_connection_t* connection, std::string_view name) {
    return xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
}

xcb_atom_t atom(xcb_connection_t* connection, xcb_intern_atom_cookie_t cookie) {
    const X11Reply<xcb_intern_atom_reply_t> reply{xcb_intern_atom_reply(connection, cookie, nullptr)};
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace

X11Tray::X11Tray(X11Connection& connection, std::function<void()> call)
    : m_connection{connection}, m_call{std::move(call)} {
    auto* const server = connection.get();
    const auto name = "_NET_SYSTEM_TRAY_S" + std::to_string(screenNumber(server, connection.root()));
    const auto selection = askForAtom(server, name);
    const auto manager = askForAtom(server, "MANAGER");
    m_selection = atom(server, selection);
    m_manager = atom(server, manager);
    m_events = connection.observe([this](const xcb_generic_event_t& event) { handle(event); });
    // Whom such a message is sent to: all who ask for this.
    m_selecting = connection.selectOnRoot(XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    connection.flush();
}

bool X11Tray::isThere() const {
    auto* const server = m_connection.get();
    const X11Reply<xcb_get_selection_owner_reply_t> reply{
        xcb_get_selection_owner_reply(server, xcb_get_selection_owner(server, m_selection), nullptr)};
    return reply && reply->owner != XCB_WINDOW_NONE;
}

void X11Tray::handle(const xcb_generic_event_t& event) {
    constexpr std::uint8_t sentFlag = 0x80;
    if ((event.response_type & ~sentFlag) != XCB_CLIENT_MESSAGE) return;
    xcb_client_message_event_t message{};
    std::memcpy(&message, &event, sizeof message);
    if (message.type == m_manager && message.data.data32[1] == m_selection) m_call();
}

} // namespace velmorin
