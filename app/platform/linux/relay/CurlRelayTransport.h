#pragma once

#include "app/seams/RelayTransport.h"

#include <memory>

namespace velmorin {

/// The phone link's HTTP by libcurl on the main loop. Certificates are verified; no cookie is kept, no redirection
/// followed, no proxy of the environment used.
class CurlRelayTransport final : public RelayTransport {
public:
    CurlRelayTransport();
    CurlRelayTransport(const CurlRelayTransport&) = delete;
    CurlRelayTransport& operator=(const CurlRelayTransport&) = delete;
    /// Nothing is answered any more.
    ~CurlRelayTransport() override;

    [[nodiscard]] Cancellable post(const std::string& url, const std::string& body, double timeout,
                                   Answer answer) override;
    [[nodiscard]] Cancellable stream(const std::string& url, Line line, End end) override;

private:
    class Transfer;
    class Transfers;

    std::shared_ptr<Transfers> m_transfers;
};

} // namespace velmorin
