#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <thread>
#include <xcb/xcb.h>

namespace velmorin {

/// Another program that wants what the overlay has: a window by no manager's leave, the keyboard, the focus.
class Intruder {
public:
    Intruder() : m_connection{xcb_connect(nullptr, nullptr)} {
        m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        m_window = xcb_generate_id(m_connection);
        const std::array<std::uint32_t, 3> values{m_screen->white_pixel, 1,
                                                  XCB_EVENT_MASK_VISIBILITY_CHANGE | XCB_EVENT_MASK_KEY_PRESS};
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, m_screen->root, 0, 0, m_screen->width_in_pixels,
                          m_screen->height_in_pixels, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, m_screen->root_visual,
                          XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
        sync();
    }
    Intruder(const Intruder&) = delete;
    Intruder& operator=(const Intruder&) = delete;
    ~Intruder() {
        endFight();
        xcb_disconnect(m_connection);
    }

    /// Shows its window, as large as all screens together, in front of everything.
    void map() {
        xcb_map_window(m_connection, m_window);
        sync();
    }
    void raise() {
        constexpr std::uint32_t above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(m_connection, m_window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
        sync();
    }
    void takeFocus() {
        xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, m_window, XCB_CURRENT_TIME);
        sync();
    }
    /// Whether it has the keyboard for itself now.
    bool grabKeyboard() {
        using Reply = std::unique_ptr<xcb_grab_keyboard_reply_t, decltype(&std::free)>;
        const auto cookie = xcb_grab_keyboard(m_connection, 0, m_screen->root, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                                              XCB_GRAB_MODE_ASYNC);
        const Reply reply{xcb_grab_keyboard_reply(m_connection, cookie, nullptr), &std::free};
        return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    }
    void letKeyboardGo() {
        xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
        sync();
    }
    /// Comes in front again each time it is covered, at once, until `endFight`.
    void fight() {
        m_fighter = std::thread{[this] {
            while (xcb_generic_event_t* event = xcb_wait_for_event(m_connection)) {
                const auto type = event->response_type & 0x7f;
                std::free(event);
                if (type == XCB_CLIENT_MESSAGE) return;
                if (type == XCB_VISIBILITY_NOTIFY) raise();
            }
        }};
    }
    void endFight() {
        if (!m_fighter.joinable()) return;
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = m_window;
        message.type = XCB_ATOM_STRING;
        // With an empty mask it goes to whoever made the window.
        xcb_send_event(m_connection, 0, m_window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
        xcb_flush(m_connection);
        m_fighter.join();
    }
    /// The keys that it has got since it was asked last.
    int takeKeys() {
        sync();
        int keys = 0;
        while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection)) {
            if ((event->response_type & 0x7f) == XCB_KEY_PRESS) ++keys;
            std::free(event);
        }
        return keys;
    }
    std::uint32_t window() const { return m_window; }

    /// What the server knows is known when this returns.
    void sync() { std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr)); }

private:
    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen;
    xcb_window_t m_window;
    std::thread m_fighter;
};

} // namespace velmorin
