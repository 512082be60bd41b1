#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <xcb/xcb.h>

namespace velmorin {

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};
/// An answer of the X server. Null where the request failed, mostly because the window has gone meanwhile.
template <class T>
using X11Reply = std::unique_ptr<T, FreeReply>;

/// One property of a window, as it was when the server answered. Main thread.
class X11Property {
public:
    /// Asks for a property; the answer is fetched by the constructor, so that many can be asked for before the first
    /// is waited for.
    static xcb_get_property_cookie_t request(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t atom);
    X11Property(xcb_connection_t* connection, xcb_get_property_cookie_t cookie);

    /// Whether there was an answer at all: the window was there.
    bool isAnswered() const { return m_reply != nullptr; }
    /// Whether the window has it.
    bool exists() const;
    /// Its 32-bit words; none where it is of another form.
    std::vector<std::uint32_t> words() const;
    std::optional<std::uint32_t> firstWord() const;
    /// Whether it lists an atom.
    bool lists(xcb_atom_t atom) const;
    /// Its bytes as text; empty where it is of another form.
    std::string_view text() const;

private:
    X11Reply<xcb_get_property_reply_t> m_reply;
};

} // namespace velmorin
