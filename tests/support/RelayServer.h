#pragma once

#include "app/platform/linux/loop/MainLoop.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// An HTTP server of a test's own on the main loop: it takes what is posted to "/post", streams from "/stream", and
/// answers anything else as it is told.
class RelayServer {
public:
    RelayServer();
    RelayServer(const RelayServer&) = delete;
    RelayServer& operator=(const RelayServer&) = delete;
    ~RelayServer();

    std::string url(std::string_view path) const;
    /// Takes it away, with all its connections, or brings it back in the same place.
    void setUp(bool isUp);

    /// Sends bytes to all streams, as one piece.
    void send(std::string_view bytes);
    /// Ends all streams in order.
    void endStreams();
    std::size_t openStreams() const;

    bool isSilent = false;                      ///< takes requests and answers none
    std::map<std::string, std::string> answers; ///< whole answers, by path
    std::vector<std::string> heads;             ///< of all requests: their lines up to the empty one
    std::vector<std::string> bodies;            ///< of what was posted to "/post"

private:
    struct Connection {
        int descriptor = -1;
        std::string received;
        bool isStream = false;
        Cancellable watch;
    };

    void accept();
    void read(std::uint64_t number);
    void answer(Connection& connection, const std::string& head, const std::string& body);
    void close(std::uint64_t number);

    MainLoop m_loop;
    int m_listener = -1;
    std::uint16_t m_port = 0;
    Cancellable m_watch;
    std::map<std::uint64_t, Connection> m_connections;
    std::uint64_t m_count = 0;
};

} // namespace velmorin
