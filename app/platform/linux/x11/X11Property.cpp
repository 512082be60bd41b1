#include "app/platform/linux/x11/X11Property.h"

#include <algorithm>

namespace velmorin {

namespace {

/// In words of 32 bits. Longer than any list of windows or atoms that makes sense.
constexpr std::uint32_t longestProperty = 1U << 16;

} // namespace

xcb_get_property_cookie_t X11Property::request(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t atom) {
    return xcb_get_property(connection, 0, window, atom, XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty);
}

X11Property::X11Property(xcb_connection_t* connection, xcb_get_property_cookie_t cookie)
    : m_reply{xcb_get_property_reply(connection, cookie, nullptr)} {}

bool X11Property::exists() const {
    return m_reply && m_reply->type != XCB_ATOM_NONE;
}

std::vector<std::uint32_t> X11Property::words() const {
    if (!exists() || m_reply->format != 32) return {};
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(m_reply.get()));
    return {first, first + m_reply->value_len};
}

std::optional<std::uint32_t> X11Property::firstWord() const {
    const auto all = words();
    return all.empty() ? std::nullopt : std::optional{all.front()};
}

bool X11Property::lists(xcb_atom_t atom) const {
    const auto all = words();
    return std::ranges::find(all, atom) != all.end();
}

std::string_view X11Property::text() const {
    if (!exists() || m_reply->format != 8) return {};
    return {static_cast<const char*>(xcb_get_property_value(m_reply.get())), m_reply->value_len};
}

} // namespace velmorin
