#include "app/platform/qt/XcbHints.h"

#include <QGuiApplication>
#include <QWindow>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

namespace velmorin {

namespace {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

template <std::size_t count>
std::array<xcb_atom_t, count> atoms(xcb_connection_t* connection, const std::array<std::string_view, count>& names) {
    std::array<xcb_intern_atom_cookie_t, count> cookies{};
    for (std::size_t i = 0; i < count; ++i)
        cookies[i] = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(names[i].size()), names[i].data());
    std::array<xcb_atom_t, count> found{};
    for (std::size_t i = 0; i < count; ++i) {
        const std::unique_ptr<xcb_intern_atom_reply_t, FreeReply> reply{
            xcb_intern_atom_reply(connection, cookies[i], nullptr)};
        if (reply) found[i] = reply->atom;
    }
    return found;
}

} // namespace

void declareDesktopWindow(QWindow& window) {
    // Of the toolkit's own connection: there the server sees this before it sees the window shown.
    const auto* native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (native == nullptr) return;
    auto* const connection = native->connection();
    const auto [type, desktopType, desktop] =
        atoms<3>(connection, {"_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DESKTOP", "_NET_WM_DESKTOP"});
    const auto number = static_cast<xcb_window_t>(window.winId());
    constexpr std::uint32_t all = UINT32_MAX;
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, number, type, XCB_ATOM_ATOM, 32, 1, &desktopType);
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, number, desktop, XCB_ATOM_CARDINAL, 32, 1, &all);
}

} // namespace velmorin
