#include "app/platform/qt/XcbFrame.h"

#include <QGuiApplication>
#include <QWindow>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>
#include <xcb/xcb.h>

namespace velmorin::XcbFrame {

namespace {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
template <class T>
using Reply = std::unique_ptr<T, FreeReply>;

/// What a window manager speaks of.
struct Atoms {
    xcb_atom_t state, skipTaskbar, skipPager, activeWindow, themeVariant, utf8;
};

/// All in one question, which is asked once: each would take a way to the server and back.
const Atoms& atoms(xcb_connection_t* connection) {
    static const Atoms found = [connection] {
        constexpr std::array<std::string_view, 6> names{
            "_NET_WM_STATE",      "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER",
            "_NET_ACTIVE_WINDOW", "_GTK_THEME_VARIANT",         "UTF8_STRING"};
        std::array<xcb_intern_atom_cookie_t, names.size()> cookies{};
        for (std::size_t i = 0; i < names.size(); ++i)
            cookies[i] = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(names[i].size()), names[i].data());
        std::array<xcb_atom_t, names.size()> told{};
        for (std::size_t i = 0; i < names.size(); ++i) {
            const Reply<xcb_intern_atom_reply_t> reply{xcb_intern_atom_reply(connection, cookies[i], nullptr)};
            if (reply) told[i] = reply->atom;
        }
        return Atoms{told[0], told[1], told[2], told[3], told[4], told[5]};
    }();
    return found;
}

/// A window as the server has it, on the toolkit's own connection: so the server hears of things in their order.
struct Native {
    explicit Native(const QWindow& window) {
        const auto* application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
        if (application == nullptr || window.handle() == nullptr) return;
        connection = application->connection();
        number = static_cast<xcb_window_t>(window.winId());
    }
    explicit operator bool() const { return connection != nullptr; }

    const Atoms& names() const { return atoms(connection); }
    std::vector<xcb_atom_t> states() const {
        constexpr std::uint32_t most = 64;
        const auto cookie = xcb_get_property(connection, 0, number, names().state, XCB_ATOM_ATOM, 0, most);
        const Reply<xcb_get_property_reply_t> reply{xcb_get_property_reply(connection, cookie, nullptr)};
        if (!reply || reply->format != 32) return {};
        const auto* first = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
        return {first, first + xcb_get_property_value_length(reply.get()) / 4};
    }
    void set(xcb_atom_t property, xcb_atom_t type, const QByteArray& text) const {
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, number, property, type, 8,
                            static_cast<std::uint32_t>(text.size()), text.constData());
    }
    /// Asks the window manager for something concerning the window.
    void ask(xcb_atom_t message, const std::array<std::uint32_t, 5>& words) const {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = number;
        event.type = message;
        std::memcpy(event.data.data32, words.data(), sizeof event.data.data32);
        std::array<char, sizeof event> bytes{};
        std::memcpy(bytes.data(), &event, sizeof event);
        const auto root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
        constexpr std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
        xcb_send_event(connection, 0, root, mask, bytes.data());
        xcb_flush(connection);
    }

    xcb_connection_t* connection = nullptr;
    xcb_window_t number = XCB_WINDOW_NONE;
};

constexpr std::uint32_t fromTaskbar = 2; // who asks the window manager: the user's own tool

} // namespace

void setClass(QWindow& window, const QByteArray& name) {
    const Native native{window};
    const auto end = QByteArray{1, '\0'};
    if (native) native.set(XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, name + end + name + end);
}

void setDark(QWindow& window, bool isDark) {
    const Native native{window};
    if (native) native.set(native.names().themeVariant, native.names().utf8, isDark ? "dark" : "light");
}

void setSkipsTaskbar(QWindow& window, bool skips) {
    const Native native{window};
    if (!native) return;
    const auto& names = native.names();
    // A window that is on the screen belongs to its manager, which keeps its state.
    if (window.isVisible()) {
        native.ask(names.state, {skips ? 1U : 0U, names.skipTaskbar, names.skipPager, fromTaskbar, 0});
        return;
    }
    auto states = native.states();
    std::erase_if(states, [&](xcb_atom_t state) { return state == names.skipTaskbar || state == names.skipPager; });
    if (skips) states.insert(states.end(), {names.skipTaskbar, names.skipPager});
    xcb_change_property(native.connection, XCB_PROP_MODE_REPLACE, native.number, names.state, XCB_ATOM_ATOM, 32,
                        static_cast<std::uint32_t>(states.size()), states.data());
}

void activate(QWindow& window) {
    const Native native{window};
    if (native) native.ask(native.names().activeWindow, {fromTaskbar, XCB_CURRENT_TIME, 0, 0, 0});
}

} // namespace velmorin::XcbFrame
