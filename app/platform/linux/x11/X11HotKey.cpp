#include "app/platform/linux/x11/X11HotKey.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <utility>
#include <xcb/xcb_keysyms.h>

namespace velmorin {

namespace {

constexpr xcb_keysym_t letter = 't';
constexpr xcb_keysym_t numLock = 0xff7f;

/// Where the letter is on a Latin keyboard, counted as Linux' input drivers do.
constexpr xcb_keycode_t letterOnLatinKeyboards = 28;

constexpr std::uint16_t wanted = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;

using Symbols = std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)>;

std::vector<xcb_keycode_t> keysFor(xcb_key_symbols_t* symbols, xcb_keysym_t symbol) {
    const X11Reply<xcb_keycode_t> codes{xcb_key_symbols_get_keycode(symbols, symbol)};
    std::vector<xcb_keycode_t> keys;
    for (const auto* code = codes.get(); code != nullptr && *code != XCB_NO_SYMBOL; ++code)
        keys.push_back(*code);
    return keys;
}

/// The modifier that a key stands for; none where it stands for none.
std::uint16_t modifierOf(xcb_connection_t* connection, const std::vector<xcb_keycode_t>& keys) {
    const X11Reply<xcb_get_modifier_mapping_reply_t> mapping{
        xcb_get_modifier_mapping_reply(connection, xcb_get_modifier_mapping(connection), nullptr)};
    if (!mapping) return 0;
    const auto* codes = xcb_get_modifier_mapping_keycodes(mapping.get());
    const int count = xcb_get_modifier_mapping_keycodes_length(mapping.get());
    for (int i = 0; i < count; ++i)
        if (std::ranges::find(keys, codes[i]) != keys.end())
            return static_cast<std::uint16_t>(1U << static_cast<unsigned>(i / mapping->keycodes_per_modifier));
    return 0;
}

} // namespace

X11HotKey::X11HotKey(X11Connection& connection, std::function<void()> pressed)
    : m_connection{connection}, m_pressed{std::move(pressed)} {
    m_events = m_connection.observe([this](const xcb_generic_event_t& event) { handle(event); });
    grab();
}

X11HotKey::~X11HotKey() {
    release();
}

void X11HotKey::grab() {
    const Symbols symbols{xcb_key_symbols_alloc(m_connection.get()), &xcb_key_symbols_free};
    m_keys = keysFor(symbols.get(), letter);
    if (m_keys.empty()) m_keys = {letterOnLatinKeyboards};
    const auto capsLock = static_cast<std::uint16_t>(XCB_MOD_MASK_LOCK);
    const auto num = modifierOf(m_connection.get(), keysFor(symbols.get(), numLock));
    m_modifiers = {wanted, static_cast<std::uint16_t>(wanted | capsLock), static_cast<std::uint16_t>(wanted | num),
                   static_cast<std::uint16_t>(wanted | capsLock | num)};
    for (const auto key : m_keys)
        for (const auto modifiers : m_modifiers)
            xcb_grab_key(m_connection.get(), 1, m_connection.root(), modifiers, key, XCB_GRAB_MODE_ASYNC,
                         XCB_GRAB_MODE_ASYNC);
    m_connection.flush();
}

void X11HotKey::release() {
    for (const auto key : m_keys)
        for (const auto modifiers : m_modifiers)
            xcb_ungrab_key(m_connection.get(), key, m_connection.root(), modifiers);
    m_connection.flush();
}

void X11HotKey::handle(const xcb_generic_event_t& event) {
    constexpr std::uint8_t sentFlag = 0x80;
    const auto type = event.response_type & ~sentFlag;
    if (type == XCB_MAPPING_NOTIFY) {
        release();
        grab();
    } else if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE) {
        xcb_key_press_event_t key{};
        std::memcpy(&key, &event, sizeof key);
        if (std::ranges::find(m_keys, key.detail) == m_keys.end()) return;
        // A key that is held repeats itself: it is let go and pressed in the same moment.
        const bool isRepeated = m_lastRelease == key.time;
        if (type == XCB_KEY_RELEASE) m_lastRelease = key.time;
        if (type == XCB_KEY_PRESS && !isRepeated) m_pressed();
    }
}

} // namespace velmorin
