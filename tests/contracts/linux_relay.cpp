// The contract of the relay's HTTP, kept by libcurl against a server on this machine.

#include "app/platform/linux/relay/CurlRelayTransport.h"
#include "tests/contracts/RelayTransportContract.h"
#include "tests/support/LoopRunner.h"
#include "tests/support/RelayServer.h"

namespace velmorin {
namespace {

class CurlRelayTransportBench final : public RelayTransportBench {
public:
    void settle() override { m_runner.settle(); }
    void wait(double seconds) override { m_runner.run(seconds); }

    RelayTransport& transport() override { return m_transport; }
    std::string postURL() override { return m_server.url("/post"); }
    std::vector<std::string> received() override { return m_server.bodies; }
    std::string streamURL() override { return m_server.url("/stream?since=latest"); }
    void sendLine(const std::string& line) override { m_server.send(line + "\n"); }
    std::size_t openStreams() override { return m_server.openStreams(); }
    void setUp(bool isUp) override { m_server.setUp(isUp); }
    bool fallSilent() override {
        m_server.isSilent = true;
        return true;
    }

private:
    LoopRunner m_runner;
    RelayServer m_server;
    CurlRelayTransport m_transport;
};

INSTANTIATE_TEST_SUITE_P(Contracts, RelayTransportContract,
                         (::testing::Values(BenchMaker<RelayTransportBench>{
                             "Linux", [] { return std::make_unique<CurlRelayTransportBench>(); }})),
                         nameOfMaker<RelayTransportBench>);

} // namespace
} // namespace velmorin
