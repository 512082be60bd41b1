#include "app/platform/linux/tray/LinuxStatusBar.h"

#include "app/seams/Lifetime.h"

#include <utility>

namespace velmorin {

namespace {

/// Waits for the first of both.
class Waiting {
public:
    Waiting(MainLoop& loop, X11Connection& connection, std::function<void()> call)
        : m_loop{loop}, m_call{std::move(call)}, m_tray{connection, [this] { come(); }}, m_host{[this] { come(); }} {
        if (m_tray.isThere()) come();
    }

private:
    void come() {
        if (std::exchange(m_hasCome, true)) return;
        m_loop.post(m_lifetime.guard([this] {
            // It may be the last use of this.
            const auto call = m_call;
            call();
        }));
    }

    MainLoop& m_loop;
    std::function<void()> m_call;
    bool m_hasCome = false;
    Lifetime m_lifetime;
    X11Tray m_tray;
    StatusNotifierHost m_host;
};

} // namespace

Cancellable LinuxStatusBar::whenThere(std::function<void()> call) {
    const auto waiting =
        std::make_shared<std::unique_ptr<Waiting>>(std::make_unique<Waiting>(m_loop, m_connection, std::move(call)));
    return Cancellable{[waiting] { waiting->reset(); }};
}

} // namespace velmorin
