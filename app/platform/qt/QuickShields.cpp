#include "app/platform/qt/QuickShields.h"

#include "app/platform/qt/QuickCoverWindow.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace velmorin {

namespace {

/// Seconds between two tries to have the keyboard, where the server does not tell when it becomes free.
constexpr double patience = 1.0;

} // namespace

QuickShields::QuickShields(QuickContent& content, DesktopLayers& layers, Timers& timers)
    : QuickCovers{content, layers}, m_timers{timers} {}

void QuickShields::activate() {
    if (m_key != nullptr) layers().focus(m_key->window().winId());
}

bool QuickShields::isActive() const {
    return m_key != nullptr && m_holdsKeyboard && layers().isFocused(m_key->window().winId());
}

void QuickShields::setOptions(Options options) {
    m_options = options;
    if (m_options == Options::locked) return arrange();
    m_front.cancel();
    m_nextTry.cancel();
    if (m_key != nullptr) {
        m_key->window().setKeyboardGrabEnabled(false);
        layers().giveBackFocus(m_key->window().winId());
    }
    m_key = nullptr;
    m_holdsKeyboard = false;
}

Qt::WindowFlags QuickShields::flags() const {
    return Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::BypassWindowManagerHint;
}

void QuickShields::shownChanged(QuickCoverWindow* key) {
    if (key != nullptr) m_key = key;
    if (std::ranges::find(shown(), m_key) == shown().end()) m_key = nullptr;
    arrange();
}

void QuickShields::arrange() {
    if (m_options == Options::usual) return;
    if (m_key == nullptr) return m_front.cancel();
    // The answer to this comes after the windows, which were asked for before it.
    holdKeyboard();
    auto windows = shownNumbers();
    // The last that came is in front of those that are just fading.
    std::ranges::reverse(windows);
    m_front = layers().keepInFront({windows, m_key->window().winId(), [this] { holdKeyboard(); }});
}

void QuickShields::holdKeyboard() {
    m_holdsKeyboard = m_key != nullptr && m_key->window().setKeyboardGrabEnabled(true);
    m_nextTry =
        m_holdsKeyboard || m_key == nullptr ? Cancellable{} : m_timers.after(patience, [this] { holdKeyboard(); });
}

} // namespace velmorin
