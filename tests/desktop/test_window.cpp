// A program with windows, for tests that need somebody else's. It behaves as its arguments say, shows its windows at
// once and then does what its standard input asks for, a word a line:
//
//     map, unmap      shows or withdraws its windows
//     class NAME      changes the window class of the first
//     dialog          opens a dialog over the first
//     quit            ends
//
// It prints the number of each window when it is shown. Without an input it goes on until it is closed.

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <memory>
#include <poll.h>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>
#include <xcb/xcb_ewmh.h>

namespace {

struct Wishes {
    std::string title = "A window";
    std::string instance, className;      ///< no class when both are empty
    std::string type;                     ///< "dock", "desktop", "dialog", "notification", "utility", "splash"
    xcb_window_t owner = XCB_WINDOW_NONE; ///< another program's, whose dialog this is
    int count = 1;
    bool tellsNoProcess = false; ///< by _NET_WM_PID
    bool ignoresClosing = false;
    bool takesNoDeleteRequests = false;
    bool skipsTaskbar = false;
    bool staysBehind = false;
    bool coversAll = false; ///< one window over the whole screen, which no window manager looks after
    bool mayNotBeIconified = false;
};

class Windows {
public:
    Windows(xcb_connection_t* connection, xcb_screen_t* screen, Wishes wishes)
        : m_connection{connection}, m_screen{screen}, m_wishes{std::move(wishes)} {
        xcb_ewmh_init_atoms_replies(&m_ewmh, xcb_ewmh_init_atoms(m_connection, &m_ewmh), nullptr);
        m_protocols = atom("WM_PROTOCOLS");
        m_deleteWindow = atom("WM_DELETE_WINDOW");
        m_motifHints = atom("_MOTIF_WM_HINTS");
    }

    Windows(const Windows&) = delete;
    Windows& operator=(const Windows&) = delete;
    ~Windows() { xcb_ewmh_connection_wipe(&m_ewmh); }

    void open() {
        for (int i = 0; i < m_wishes.count; ++i)
            make(i, m_wishes.owner);
        mapAll();
    }

    void openDialog() {
        make(static_cast<int>(m_windows.size()), m_windows.front());
        map(m_windows.back());
    }

    void mapAll() {
        for (const auto window : m_windows)
            map(window);
    }

    void unmapAll() {
        for (const auto window : m_windows) {
            // As a program withdraws its window (ICCCM 4.1.4).
            xcb_unmap_notify_event_t event{};
            event.response_type = XCB_UNMAP_NOTIFY;
            event.event = m_screen->root;
            event.window = window;
            std::array<char, 32> bytes{};
            std::memcpy(bytes.data(), &event, sizeof event);
            xcb_unmap_window(m_connection, window);
            xcb_send_event(m_connection, 0, m_screen->root,
                           XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT, bytes.data());
        }
        xcb_flush(m_connection);
    }

    void setClass(const std::string& instance, const std::string& className) {
        const std::string both = instance + '\0' + className + '\0';
        setText(m_windows.front(), XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, both);
        xcb_flush(m_connection);
    }

    /// False when this closes the last window.
    bool handle(const xcb_generic_event_t& event) {
        if ((event.response_type & 0x7f) != XCB_CLIENT_MESSAGE) return true;
        xcb_client_message_event_t message{};
        std::memcpy(&message, &event, sizeof message);
        if (message.data.data32[0] != m_deleteWindow) return true;
        std::cout << "asked to close" << std::endl;
        if (m_wishes.ignoresClosing) return true;
        xcb_destroy_window(m_connection, message.window);
        std::erase(m_windows, message.window);
        xcb_flush(m_connection);
        return !m_windows.empty();
    }

private:
    xcb_atom_t atom(std::string_view name) {
        const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply{
            xcb_intern_atom_reply(
                m_connection, xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data()),
                nullptr),
            &std::free};
        return reply ? reply->atom : 0;
    }

    void setText(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, const std::string& text) {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, property, type, 8,
                            static_cast<std::uint32_t>(text.size()), text.data());
    }

    void setAtom(xcb_window_t window, xcb_atom_t property, xcb_atom_t value) {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_ATOM, 32, 1, &value);
    }

    void make(int index, xcb_window_t parent) {
        const auto window = xcb_generate_id(m_connection);
        const bool covers = m_wishes.coversAll;
        const std::array<std::uint32_t, 3> values{m_screen->white_pixel, covers ? 1U : 0U,
                                                  XCB_EVENT_MASK_STRUCTURE_NOTIFY};
        const auto offset = static_cast<std::int16_t>(covers ? 0 : 40 + 30 * index);
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_screen->root, offset, offset,
                          covers ? m_screen->width_in_pixels : std::uint16_t{320},
                          covers ? m_screen->height_in_pixels : std::uint16_t{200}, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                          m_screen->root_visual, XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK,
                          values.data());
        m_windows.push_back(window);
        setText(window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, m_wishes.title);
        if (!m_wishes.instance.empty() || !m_wishes.className.empty()) {
            const std::string both = m_wishes.instance + '\0' + m_wishes.className + '\0';
            setText(window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, both);
        }
        if (!m_wishes.tellsNoProcess) {
            const auto process = static_cast<std::uint32_t>(::getpid());
            xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, m_ewmh._NET_WM_PID, XCB_ATOM_CARDINAL, 32,
                                1, &process);
        }
        if (!m_wishes.takesNoDeleteRequests) setAtom(window, m_protocols, m_deleteWindow);
        if (!m_wishes.type.empty()) setAtom(window, m_ewmh._NET_WM_WINDOW_TYPE, typeAtom());
        if (m_wishes.skipsTaskbar) setAtom(window, m_ewmh._NET_WM_STATE, m_ewmh._NET_WM_STATE_SKIP_TASKBAR);
        if (m_wishes.staysBehind) {
            const std::uint32_t never = 0;
            xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, m_ewmh._NET_WM_USER_TIME,
                                XCB_ATOM_CARDINAL, 32, 1, &never);
        }
        if (m_wishes.mayNotBeIconified) {
            const std::array<std::uint32_t, 5> hints{1, 2 | 4 | 32, 0, 0, 0}; // resize, move and close only
            xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, m_motifHints, m_motifHints, 32, 5,
                                hints.data());
        }
        if (parent != XCB_WINDOW_NONE) {
            xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW,
                                32, 1, &parent);
            setAtom(window, m_ewmh._NET_WM_WINDOW_TYPE, m_ewmh._NET_WM_WINDOW_TYPE_DIALOG);
        }
    }

    xcb_atom_t typeAtom() const {
        if (m_wishes.type == "dock") return m_ewmh._NET_WM_WINDOW_TYPE_DOCK;
        if (m_wishes.type == "desktop") return m_ewmh._NET_WM_WINDOW_TYPE_DESKTOP;
        if (m_wishes.type == "notification") return m_ewmh._NET_WM_WINDOW_TYPE_NOTIFICATION;
        if (m_wishes.type == "utility") return m_ewmh._NET_WM_WINDOW_TYPE_UTILITY;
        if (m_wishes.type == "splash") return m_ewmh._NET_WM_WINDOW_TYPE_SPLASH;
        if (m_wishes.type == "dialog") return m_ewmh._NET_WM_WINDOW_TYPE_DIALOG;
        return m_ewmh._NET_WM_WINDOW_TYPE_NORMAL;
    }

    void map(xcb_window_t window) {
        xcb_map_window(m_connection, window);
        xcb_flush(m_connection);
        std::cout << "window " << window << std::endl;
    }

    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen;
    Wishes m_wishes;
    xcb_ewmh_connection_t m_ewmh{};
    xcb_atom_t m_protocols = 0, m_deleteWindow = 0, m_motifHints = 0;
    std::vector<xcb_window_t> m_windows;
};

Wishes readWishes(const std::vector<std::string>& arguments) {
    Wishes wishes;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto& word = arguments[i];
        const auto value = [&] { return i + 1 < arguments.size() ? arguments[++i] : std::string{}; };
        if (word == "--title") wishes.title = value();
        if (word == "--class") wishes.instance = wishes.className = value();
        if (word == "--type") wishes.type = value();
        if (word == "--for") wishes.owner = static_cast<xcb_window_t>(std::strtoul(value().c_str(), nullptr, 0));
        if (word == "--windows") wishes.count = std::atoi(value().c_str());
        if (word == "--no-pid") wishes.tellsNoProcess = true;
        if (word == "--ignore-closing") wishes.ignoresClosing = true;
        if (word == "--no-delete-requests") wishes.takesNoDeleteRequests = true;
        if (word == "--skip-taskbar") wishes.skipsTaskbar = true;
        if (word == "--behind") wishes.staysBehind = true;
        if (word == "--covers-all") wishes.coversAll = true;
        if (word == "--not-iconifiable") wishes.mayNotBeIconified = true;
    }
    return wishes;
}

/// False when the line asks for the end.
bool obey(const std::string& line, Windows& windows) {
    if (line == "map") windows.mapAll();
    if (line == "unmap") windows.unmapAll();
    if (line == "dialog") windows.openDialog();
    if (line.starts_with("class ")) windows.setClass(line.substr(6), line.substr(6));
    return line != "quit";
}

/// False when the input asks for the end; at its own end it is just no longer read.
bool readInput(std::string& pending, int& descriptor, Windows& windows) {
    std::array<char, 256> bytes{};
    const auto count = ::read(descriptor, bytes.data(), bytes.size());
    if (count <= 0) {
        descriptor = -1;
        return true;
    }
    pending.append(bytes.data(), static_cast<std::size_t>(count));
    for (auto end = pending.find('\n'); end != std::string::npos; end = pending.find('\n')) {
        const auto line = pending.substr(0, end);
        pending.erase(0, end + 1);
        if (!obey(line, windows)) return false;
    }
    return true;
}

/// Goes on until somebody ends it.
void serve(xcb_connection_t* connection, Windows& windows) {
    int input = STDIN_FILENO;
    std::string pending;
    while (xcb_connection_has_error(connection) == 0) {
        while (xcb_generic_event_t* event = xcb_poll_for_event(connection)) {
            const bool goesOn = windows.handle(*event);
            std::free(event);
            if (!goesOn) return;
        }
        std::array<pollfd, 2> descriptors{{{xcb_get_file_descriptor(connection), POLLIN, 0}, {input, POLLIN, 0}}};
        ::poll(descriptors.data(), descriptors.size(), -1);
        if (descriptors[1].revents != 0 && !readInput(pending, input, windows)) return;
    }
}

} // namespace

int main(int count, char** words) {
    int number = 0;
    xcb_connection_t* connection = xcb_connect(nullptr, &number);
    const bool isConnected = xcb_connection_has_error(connection) == 0;
    if (isConnected) {
        Windows windows{connection, xcb_setup_roots_iterator(xcb_get_setup(connection)).data,
                        readWishes({words + 1, words + count})};
        windows.open();
        serve(connection, windows);
    }
    xcb_disconnect(connection);
    return isConnected ? 0 : 1;
}
