#include "app/platform/linux/x11/X11Application.h"

#include <algorithm>
#include <utility>

namespace velmorin {

X11Application::X11Application(std::weak_ptr<X11Desk> desk, std::int32_t number)
    : m_desk{std::move(desk)}, m_number{number} {}

ActivationPolicy X11Application::activationPolicy() const {
    return m_isRegular && !m_windows.empty() ? ActivationPolicy::regular : ActivationPolicy::accessory;
}

bool X11Application::isHidden() const {
    const auto desk = m_desk.lock();
    return desk && !m_windows.empty() && std::ranges::all_of(m_windows, [&](xcb_window_t window) {
               const auto* client = desk->clients().find(window);
               return client == nullptr || client->role == X11Client::Role::attachment || desk->isHidden(*client);
           });
}

void X11Application::hide() {
    if (const auto desk = m_desk.lock()) desk->hide(m_windows);
}

void X11Application::unhide() {
    if (const auto desk = m_desk.lock()) desk->show(m_windows);
}

void X11Application::terminate() {
    if (const auto desk = m_desk.lock()) desk->close(m_windows);
}

void X11Application::activate() {
    if (const auto desk = m_desk.lock()) desk->activate(m_windows);
}

void X11Application::setWindows(std::vector<xcb_window_t> windows) {
    m_windows = std::move(windows);
    const auto desk = m_desk.lock();
    if (m_isRegular || !desk) return;
    m_isRegular = std::ranges::any_of(m_windows, [&](xcb_window_t window) {
        const auto* client = desk->clients().find(window);
        return client != nullptr && client->role == X11Client::Role::application;
    });
}

} // namespace velmorin
