#include "app/platform/linux/x11/X11Layers.h"

#include "app/platform/linux/x11/X11BackLayer.h"
#include "app/platform/linux/x11/X11FrontLayer.h"

#include <memory>

namespace velmorin {

namespace {

/// Goes with its cancellation.
template <class Layer>
Cancellable held(std::unique_ptr<Layer> layer) {
    return Cancellable{[layer = std::shared_ptr<Layer>{std::move(layer)}]() mutable { layer.reset(); }};
}

} // namespace

Cancellable X11Layers::keepInFront(const Front& front) {
    return held(std::make_unique<X11FrontLayer>(m_connection, m_timers, front));
}

void X11Layers::focus(NativeWindow window) {
    xcb_set_input_focus(m_connection.get(), XCB_INPUT_FOCUS_PARENT, static_cast<xcb_window_t>(window),
                        XCB_CURRENT_TIME);
    m_connection.flush();
}

/// Some managers would leave the keyboard with nobody, since it was taken without their knowing.
void X11Layers::giveBackFocus(NativeWindow window) {
    const auto active = activeWindow();
    if (active != XCB_WINDOW_NONE && isFocused(window)) focus(active);
}

bool X11Layers::isFocused(NativeWindow window) const {
    const X11Reply<xcb_get_input_focus_reply_t> reply{
        xcb_get_input_focus_reply(m_connection.get(), xcb_get_input_focus(m_connection.get()), nullptr)};
    return reply && reply->focus == window;
}

Cancellable X11Layers::keepBehind(std::span<const NativeWindow> windows) {
    return held(std::make_unique<X11BackLayer>(m_connection, m_timers, windows));
}

xcb_window_t X11Layers::activeWindow() const {
    const auto property =
        X11Property::request(m_connection.get(), m_connection.root(), m_connection.ewmh()._NET_ACTIVE_WINDOW);
    return X11Property{m_connection.get(), property}.firstWord().value_or(XCB_WINDOW_NONE);
}

std::optional<Rectangle> X11Layers::activeFrame() const {
    auto* const connection = m_connection.get();
    const auto active = activeWindow();
    if (active == XCB_WINDOW_NONE) return std::nullopt;
    const auto size = xcb_get_geometry(connection, active);
    const auto place = xcb_translate_coordinates(connection, active, m_connection.root(), 0, 0);
    const X11Reply<xcb_get_geometry_reply_t> geometry{xcb_get_geometry_reply(connection, size, nullptr)};
    const X11Reply<xcb_translate_coordinates_reply_t> origin{
        xcb_translate_coordinates_reply(connection, place, nullptr)};
    if (!geometry || !origin) return std::nullopt;
    return Rectangle{static_cast<double>(origin->dst_x), static_cast<double>(origin->dst_y),
                     static_cast<double>(geometry->width), static_cast<double>(geometry->height)};
}

} // namespace velmorin
