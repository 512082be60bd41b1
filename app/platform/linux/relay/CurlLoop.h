#pragma once

#include <curl/curl.h>
#include <functional>
#include <map>
#include <optional>
#include <utility>

namespace velmorin {

/// libcurl's transfers, driven by the main loop: it wakes for what a transfer waits for, and never otherwise. Main
/// thread.
class CurlLoop {
public:
    /// `progressed` is called, from the main loop and from nowhere else, whenever transfers may have got on. It may use
    /// this and may end it.
    explicit CurlLoop(std::function<void()> progressed);
    CurlLoop(const CurlLoop&) = delete;
    CurlLoop& operator=(const CurlLoop&) = delete;
    /// All transfers must have been removed.
    ~CurlLoop();

    /// Starts a transfer; nothing happens to it within this call.
    void add(CURL* transfer);
    /// Ends it, if it has not ended, and forgets it. Not to be called by libcurl's own callbacks.
    void remove(CURL* transfer);
    /// A transfer that has ended, each once; absent when there is none left.
    std::optional<std::pair<CURL*, CURLcode>> nextEnded();

private:
    static int socketChanged(CURL* transfer, curl_socket_t socket, int what, void* loop, void* watch);
    static int timeoutChanged(CURLM* multi, long milliseconds, void* loop);

    void start();
    void unwatch(curl_socket_t socket);
    void act(curl_socket_t socket, int events);

    std::function<void()> m_progressed;
    CURLM* m_multi = nullptr;                    ///< null before the first transfer
    std::map<curl_socket_t, unsigned> m_watches; ///< the main loop's numbers for what it watches
    unsigned m_timeout = 0;                      ///< and for the time it waits for; 0 without one
};

} // namespace velmorin
