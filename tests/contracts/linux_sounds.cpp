// The contract of sounds, kept by a real sound server whose output is recorded.

#include "app/platform/linux/services/LinuxSounds.h"
#include "core/store/PosixFiles.h"
#include "tests/contracts/SoundsContract.h"
#include "tests/support/LoopRunner.h"
#include "tests/support/SoundListener.h"
#include "tests/support/SoundServer.h"

#include <map>
#include <memory>

namespace velmorin {
namespace {

const std::string one = "Glass";
const std::string other = "Purr";

class LinuxSoundsBench final : public SoundsBench {
public:
    void settle() override { m_runner.settle(); }
    void wait(double seconds) override { m_runner.run(seconds); }
    Sounds& sounds() override { return m_sounds; }
    std::pair<std::string, std::string> known() override { return {one, other}; }
    Played played() override {
        listen();
        return m_played;
    }
    double tolerance() override { return 0.002; }
    bool tellsApartWhatBeginsTogether() override { return false; }

private:
    Samples samplesOf(const std::string& name) {
        const auto wave = readWave(m_files.read(VELMORIN_SOUNDS "/" + name + ".wav").value_or(""));
        Samples samples;
        for (const auto sample : wave.value_or(Wave{}).samples)
            samples.push_back(sample / 32767.0);
        return samples;
    }

    /// Listens to what has been recorded since it last did, as soon as silence follows.
    void listen() {
        constexpr std::size_t pause = SoundServer::rate / 5;
        auto samples = m_server.since(m_listened);
        if (samples.size() < pause) return;
        const auto end = samples.end() - pause;
        if (peakOf({end, samples.end()}) > 0) return;
        m_listened += samples.size() - pause;
        for (const auto& heard : m_listener.listen(std::move(samples)))
            m_played.emplace_back(heard.name, heard.volume);
    }

    SoundServer m_server;
    PosixFiles m_files;
    SoundListener m_listener{{{one, samplesOf(one)}, {other, samplesOf(other)}}};
    std::size_t m_listened = 0;
    Played m_played;
    LoopRunner m_runner;
    LinuxSounds m_sounds{VELMORIN_SOUNDS, m_files};
};

INSTANTIATE_TEST_SUITE_P(Contracts, SoundsContract,
                         (::testing::Values(BenchMaker<SoundsBench>{
                             "Linux", [] { return std::make_unique<LinuxSoundsBench>(); }})),
                         nameOfMaker<SoundsBench>);

} // namespace
} // namespace velmorin
