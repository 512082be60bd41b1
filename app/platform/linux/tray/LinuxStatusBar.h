#pragma once

#include "app/platform/linux/loop/MainLoop.h"
#include "app/platform/linux/tray/StatusNotifierHost.h"
#include "app/platform/linux/tray/X11Tray.h"
#include "app/seams/StatusBar.h"

#include <functional>
#include <memory>

namespace velmorin {

/// The bar of a Linux desktop, of either of the two kinds that there are. Main thread.
class LinuxStatusBar final : public StatusBar {
public:
    /// Both must outlive this.
    LinuxStatusBar(MainLoop& loop, X11Connection& connection) : m_loop{loop}, m_connection{connection} {}

    [[nodiscard]] Cancellable whenThere(std::function<void()> call) override;

private:
    MainLoop& m_loop;
    X11Connection& m_connection;
};

} // namespace velmorin
