#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <thread>

namespace velmorin {

/// An HTTPS server with a certificate that it has signed itself. It takes one connection, and would answer.
class UntrustedServer {
public:
    UntrustedServer();
    UntrustedServer(const UntrustedServer&) = delete;
    UntrustedServer& operator=(const UntrustedServer&) = delete;
    ~UntrustedServer();

    std::string url() const { return "https://127.0.0.1:" + std::to_string(m_port) + "/"; }
    /// Whether anything was told to it beneath the seal.
    bool hasBeenAsked() const { return m_hasBeenAsked; }

private:
    void serve();

    int m_listener = -1;
    std::uint16_t m_port = 0;
    std::atomic<bool> m_hasBeenAsked = false;
    std::thread m_thread;
};

} // namespace velmorin
