#pragma once

#include "app/platform/linux/x11/X11Connection.h"
#include "app/seams/DesktopLayers.h"
#include "app/seams/Timers.h"

#include <xcb/xcb.h>

namespace velmorin {

/// The layers of an X11 desktop, by the server and, for what is below all ordinary windows, its window manager. Main
/// thread.
class X11Layers final : public DesktopLayers {
public:
    /// Both must outlive this, and all that it hands out.
    X11Layers(X11Connection& connection, Timers& timers) : m_connection{connection}, m_timers{timers} {}

    [[nodiscard]] Cancellable keepInFront(const Front& front) override;
    void focus(NativeWindow window) override;
    void giveBackFocus(NativeWindow window) override;
    bool isFocused(NativeWindow window) const override;
    [[nodiscard]] Cancellable keepBehind(std::span<const NativeWindow> windows) override;
    std::optional<Rectangle> activeFrame() const override;

private:
    xcb_window_t activeWindow() const;

    X11Connection& m_connection;
    Timers& m_timers;
};

} // namespace velmorin
