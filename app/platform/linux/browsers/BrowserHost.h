#pragma once

#include "app/platform/linux/browsers/HostClient.h"
#include "app/platform/linux/browsers/HostSocket.h"
#include "app/platform/linux/browsers/MessageFrames.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <poll.h>
#include <string>
#include <vector>

namespace velmorin {

/// Stands between the extension in one browser, which it was started by, and the scripts that ask for its tabs. One
/// thread, which waits for nobody but in `poll`.
class BrowserHost {
public:
    /// More scripts than this at once, and the one that came first has to go.
    static constexpr std::size_t mostClients = 64;
    /// The longest answer to a script, in bytes; a browser with more to say is told to have failed.
    static constexpr std::size_t longestAnswer = std::size_t{16} << 20U;

    /// Why it ends.
    enum class End : std::uint8_t {
        browserLeft,
        asked,     ///< by a signal
        malformed, ///< the browser's side sent what no extension of ours would
        failed,    ///< the system refused what it needs
    };

    /// `fromBrowser` and `toBrowser` are the pipes of native messaging, `signals` a descriptor that can be read when
    /// the host is to end. They stay the caller's and must be open as long as this is.
    BrowserHost(const HostSocket& socket, int fromBrowser, int toBrowser, int signals);

    /// Returns when there is nothing more to do.
    End run();

private:
    using Moment = HostClient::Moment;

    void wait();
    bool proceed();
    bool readMessages();
    bool receive(std::string message);
    void handOverRequests();
    bool writeToBrowser();
    bool acceptClients();
    void proceedWithClients();

    const HostSocket& m_socket;
    int m_fromBrowser;
    int m_toBrowser;
    int m_signals;
    std::vector<pollfd> m_polled;
    MessageFrames m_incoming;
    std::string m_outgoing;
    std::vector<HostClient> m_clients;
    std::uint64_t m_lastID = 0;
    std::optional<End> m_end;
};

} // namespace velmorin
