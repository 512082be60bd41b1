// How long a forbidden window that comes to the front stays on the screen, beside the least that any program can do:
// one that knows nothing but that window, and answers each activation with one request.
//
// Usage: react_time WINDOW_PROGRAM COUNT LOCKER [ARGUMENT...]
//
// Needs a desktop. WINDOW_PROGRAM is velmorin-test-window; LOCKER is started while a window of class "allowed" and one
// of class "game" are there, and must hide the latter. With the single word "bare", the least is measured.

#include "app/platform/linux/x11/X11Property.h"
#include "tests/support/WindowProgram.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstring>
#include <iostream>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace velmorin {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::uint32_t iconicState = 3;

/// A desktop as its user sees it, on a connection of its own.
class Screen {
public:
    Screen() : m_connection{xcb_connect(nullptr, nullptr)} {
        if (xcb_connection_has_error(m_connection) != 0) throw std::runtime_error{"no display"};
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        m_active = atom("_NET_ACTIVE_WINDOW");
        m_state = atom("WM_STATE");
        m_change = atom("WM_CHANGE_STATE");
        watch(m_root);
    }

    void watch(xcb_window_t window) {
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(m_connection, window, XCB_CW_EVENT_MASK, &events);
        xcb_flush(m_connection);
    }

    bool isActive(xcb_window_t window) { return first(m_root, m_active) == window; }
    bool isIconic(xcb_window_t window) { return first(window, m_state) == iconicState; }
    void activate(xcb_window_t window) { ask(window, m_active, 2); }
    void iconify(xcb_window_t window) { ask(window, m_change, iconicState); }

    /// Returns when something has become true that events tell of, with the moment.
    template <class Condition>
    Clock::time_point await(Condition condition) {
        const auto deadline = Clock::now() + std::chrono::seconds{20};
        while (!condition()) {
            if (Clock::now() > deadline || xcb_connection_has_error(m_connection) != 0)
                throw std::runtime_error{"nothing happens"};
            pollfd descriptor{xcb_get_file_descriptor(m_connection), POLLIN, 0};
            bool hasEvents = false;
            while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)})
                hasEvents = true;
            if (!hasEvents) ::poll(&descriptor, 1, 200);
        }
        return Clock::now();
    }

    /// When an iconified window was told of as active, and when as iconified again.
    struct Times {
        Clock::time_point active;
        Clock::time_point hidden;
    };

    /// Activates a window and reads the events that come of it, each at the moment it arrives: whoever hides the window
    /// may be done before its state could be asked for.
    Times bringBack(xcb_window_t window) {
        while (const X11Reply<xcb_generic_event_t> old{xcb_poll_for_event(m_connection)}) {
        }
        activate(window);
        std::optional<Clock::time_point> active;
        int stateChanges = 0; // it is brought back, and iconified again
        for (;;) {
            const X11Reply<xcb_generic_event_t> event{waitForEvent()};
            const auto now = Clock::now();
            xcb_property_notify_event_t property{};
            std::memcpy(&property, event.get(), sizeof property);
            if (property.response_type != XCB_PROPERTY_NOTIFY) continue;
            if (property.window == m_root && property.atom == m_active && !active) active = now;
            if (property.window == window && property.atom == m_state && ++stateChanges == 2)
                return {active.value_or(now), now};
        }
    }

private:
    xcb_generic_event_t* waitForEvent() {
        constexpr int patience = 10'000; // milliseconds
        for (;;) {
            if (auto* event = xcb_poll_for_event(m_connection)) return event;
            if (xcb_connection_has_error(m_connection) != 0) throw std::runtime_error{"the display has gone"};
            pollfd descriptor{xcb_get_file_descriptor(m_connection), POLLIN, 0};
            if (::poll(&descriptor, 1, patience) == 0) throw std::runtime_error{"nobody hides the window"};
        }
    }

    xcb_atom_t atom(const std::string& name) {
        const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
        const X11Reply<xcb_intern_atom_reply_t> reply{xcb_intern_atom_reply(m_connection, cookie, nullptr)};
        return reply ? reply->atom : 0;
    }
    std::optional<std::uint32_t> first(xcb_window_t window, xcb_atom_t property) {
        return X11Property{m_connection, X11Property::request(m_connection, window, property)}.firstWord();
    }
    void ask(xcb_window_t window, xcb_atom_t message, std::uint32_t word) {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = window;
        event.type = message;
        event.data.data32[0] = word;
        std::array<char, sizeof event> bytes{};
        std::memcpy(bytes.data(), &event, sizeof event);
        xcb_send_event(m_connection, 0, m_root,
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT, bytes.data());
        xcb_flush(m_connection);
    }

    xcb_connection_t* m_connection;
    xcb_window_t m_root = 0;
    xcb_atom_t m_active = 0, m_state = 0, m_change = 0;
};

/// The least: one window, one question, one request.
[[noreturn]] void lockBarely(xcb_window_t game) {
    Screen screen;
    screen.iconify(game);
    for (;;) {
        screen.await([&] { return screen.isActive(game); });
        screen.iconify(game);
        screen.await([&] { return !screen.isActive(game); });
    }
}

pid_t start(const std::vector<std::string>& command, xcb_window_t game) {
    std::vector<char*> words;
    for (const auto& word : command)
        words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    const pid_t pid = ::fork();
    if (pid != 0) return pid;
    if (command.front() == "bare") {
        try {
            lockBarely(game);
        } catch (const std::exception&) {
            ::_exit(0); // nothing has come to the front for long
        }
    }
    ::execv(words.front(), words.data());
    ::_exit(127);
}

void print(const std::string& name, std::vector<double> milliseconds) {
    std::ranges::sort(milliseconds);
    const auto at = [&](double part) {
        return milliseconds[static_cast<std::size_t>(part * static_cast<double>(milliseconds.size() - 1))];
    };
    std::cout << name << ": median " << at(0.5) << " ms, 95 % within " << at(0.95) << " ms, most " << at(1) << " ms, n "
              << milliseconds.size() << std::endl;
}

void measure(const std::string& windowProgram, int count, const std::vector<std::string>& command) {
    WindowProgram allowed{windowProgram, {"--class", "allowed"}};
    WindowProgram game{windowProgram, {"--class", "game"}};
    Screen screen;
    screen.watch(game.window());
    screen.await([&] { return screen.isActive(game.window()); });
    const pid_t locker = start(command, game.window());
    screen.await([&] { return screen.isIconic(game.window()); });

    std::vector<double> reactions;
    std::vector<double> fromRequest;
    for (int i = 0; i < count; ++i) {
        screen.activate(allowed.window());
        screen.await([&] { return screen.isActive(allowed.window()); });
        ::usleep(30'000);
        const auto asked = Clock::now();
        const auto times = screen.bringBack(game.window());
        reactions.push_back(std::chrono::duration<double, std::milli>{times.hidden - times.active}.count());
        fromRequest.push_back(std::chrono::duration<double, std::milli>{times.hidden - asked}.count());
        screen.await([&] { return screen.isIconic(game.window()); });
    }
    ::kill(locker, SIGKILL);
    ::waitpid(locker, nullptr, 0);
    print("active to iconified", reactions);
    print("request to iconified", fromRequest);
}

} // namespace
} // namespace velmorin

int main(int count, char** words) {
    const std::vector<std::string> arguments{words + 1, words + count};
    if (arguments.size() < 3) {
        std::cerr << "Usage: react_time WINDOW_PROGRAM COUNT LOCKER [ARGUMENT...]\n";
        return 2;
    }
    try {
        velmorin::measure(arguments[0], std::stoi(arguments[1]), {arguments.begin() + 2, arguments.end()});
    } catch (const std::exception& failure) {
        std::cerr << "react_time: " << failure.what() << '\n';
        return 1;
    }
    return 0;
}
