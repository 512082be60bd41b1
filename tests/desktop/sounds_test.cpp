// The program's sounds on a real sound server: what is heard, how loud and how high.

#include "app/platform/linux/services/LinuxSounds.h"
#include "core/store/PosixFiles.h"
#include "tests/support/LoopRunner.h"
#include "tests/support/TemporaryDirectory.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <numbers>
#include <numeric>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace velmorin {
namespace {

constexpr int rate = 48'000;
constexpr double glassFrequency = 1174;
constexpr double purrFrequency = 196;

using Samples = std::vector<double>; ///< 1 is full scale

pid_t spawn(std::vector<std::string> words, int output) {
    const auto process = ::fork();
    if (process != 0) return process;
    ::setsid();
    ::dup2(output, STDOUT_FILENO);
    ::dup2(::open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
    std::vector<char*> pointers;
    for (auto& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    ::execvp(pointers.front(), pointers.data());
    ::_exit(127);
}

void end(pid_t& process, int signal) {
    if (process <= 0) return;
    ::kill(process, signal);
    ::waitpid(process, nullptr, 0);
    process = -1;
}

/// A sound server without loudspeakers, whose output is recorded.
class SoundServer {
public:
    SoundServer() {
        ::setenv("HOME", m_directory.path().c_str(), 1);
        ::setenv("XDG_RUNTIME_DIR", m_directory.path().c_str(), 1);
        ::setenv("PULSE_SERVER", ("unix:" + socket().string()).c_str(), 1);
        start();
    }
    SoundServer(const SoundServer&) = delete;
    SoundServer& operator=(const SoundServer&) = delete;
    ~SoundServer() { stop(); }

    void start() {
        m_server =
            spawn({"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--disallow-exit", "--use-pid-file=no",
                   "--disable-shm=yes", "-L", "module-null-sink sink_name=probe rate=48000 channels=1", "-L",
                   "module-native-protocol-unix auth-anonymous=1 socket=" + socket().string()},
                  STDERR_FILENO);
        while (!std::filesystem::exists(socket()))
            ::usleep(10'000);
        const int file = ::open(recording().c_str(), O_CREAT | O_WRONLY | O_TRUNC | O_CLOEXEC, 0600);
        m_recorder = spawn(
            {"parec", "--latency-msec=20", "-d", "probe.monitor", "--format=s16le", "--rate=48000", "--channels=1"},
            file);
        ::close(file);
        while (size() == 0)
            ::usleep(10'000);
    }
    void stop() {
        end(m_recorder, SIGTERM);
        end(m_server, SIGKILL);
        std::filesystem::remove(socket());
    }

    /// How much has been recorded, in samples.
    std::size_t size() const {
        struct stat info {};
        return ::stat(recording().c_str(), &info) == 0 ? static_cast<std::size_t>(info.st_size) / 2 : 0;
    }
    Samples since(std::size_t begin) const {
        const auto content = PosixFiles{}.read(recording()).value_or("");
        Samples samples;
        for (std::size_t index = begin; 2 * index + 1 < content.size(); ++index) {
            const auto low = static_cast<unsigned char>(content[2 * index]);
            const auto high = static_cast<unsigned char>(content[2 * index + 1]);
            samples.push_back(static_cast<std::int16_t>(low | high << 8U) / 32767.0);
        }
        return samples;
    }

private:
    std::filesystem::path socket() const { return m_directory.path() / "native"; }
    std::filesystem::path recording() const { return m_directory.path() / "recording"; }

    TemporaryDirectory m_directory;
    pid_t m_server = -1;
    pid_t m_recorder = -1;
};

double peakOf(const Samples& samples) {
    return std::accumulate(samples.begin(), samples.end(), 0.0,
                           [](double peak, double sample) { return std::max(peak, std::abs(sample)); });
}

/// The amplitude of a frequency in a tenth of a second that begins here (Goertzel's sum).
double amplitudeAt(const Samples& samples, std::size_t begin, double frequency) {
    constexpr std::size_t length = rate / 10;
    if (begin + length > samples.size()) return 0;
    double real = 0;
    double imaginary = 0;
    for (std::size_t index = 0; index < length; ++index) {
        const double turn = 2 * std::numbers::pi * frequency * static_cast<double>(index) / rate;
        real += samples[begin + index] * std::cos(turn);
        imaginary += samples[begin + index] * std::sin(turn);
    }
    return 2 * std::hypot(real, imaginary) / length;
}

std::size_t beginningOf(const Samples& samples) {
    const auto found = std::ranges::find_if(samples, [](double sample) { return std::abs(sample) > 0.005; });
    return static_cast<std::size_t>(found - samples.begin());
}

/// The frequency below 2 kHz that is loudest at the beginning of a sound.
double frequencyOf(const Samples& samples) {
    const auto begin = beginningOf(samples);
    double loudest = 0;
    double found = 0;
    for (double frequency = 100; frequency < 2000; frequency += 2) {
        const double amplitude = amplitudeAt(samples, begin, frequency);
        if (amplitude > loudest) {
            loudest = amplitude;
            found = frequency;
        }
    }
    return found;
}

class SoundsTest : public testing::Test {
protected:
    /// Plays and gives what has been heard in the second and a half after that.
    Samples heard(std::initializer_list<std::pair<const char*, double>> plays) {
        const auto begin = server.size();
        for (const auto& [name, volume] : plays)
            sounds.play(name, volume);
        runner.run(2.0);
        return server.since(begin);
    }
    double peakOfFile(const char* name) {
        const auto wave = readWave(files.read(std::string{VELMORIN_SOUNDS} + "/" + name + ".wav").value_or(""));
        double peak = 0;
        for (const auto sample : wave.value_or(Wave{}).samples)
            peak = std::max(peak, std::abs(sample / 32767.0));
        return peak;
    }

    SoundServer server;
    PosixFiles files;
    LoopRunner runner;
    LinuxSounds sounds{VELMORIN_SOUNDS, files};
};

TEST_F(SoundsTest, eachIsHeardAtItsPitchAndVolume) {
    for (const auto& [name, frequency] : {std::pair{"Glass", glassFrequency}, std::pair{"Purr", purrFrequency}}) {
        for (const double volume : {0.3, 0.8}) {
            const auto samples = heard({{name, volume}});
            EXPECT_NEAR(peakOf(samples), volume * peakOfFile(name), 0.02) << name << " at " << volume;
            EXPECT_NEAR(frequencyOf(samples), frequency, 10) << name;
        }
    }
}

TEST_F(SoundsTest, twoAtOnceAreBothHeard) {
    const auto samples = heard({{"Glass", 0.5}, {"Purr", 0.5}});
    const auto begin = beginningOf(samples);
    const auto loudest = [&](double frequency) {
        double amplitude = 0;
        for (std::size_t at = begin; at < begin + rate / 2; at += rate / 20)
            amplitude = std::max(amplitude, amplitudeAt(samples, at, frequency));
        return amplitude;
    };
    EXPECT_GT(loudest(glassFrequency), 0.1);
    EXPECT_GT(loudest(purrFrequency), 0.1);
    EXPECT_LT(loudest(700), 0.02) << "and nothing else";
}

TEST_F(SoundsTest, theServerIsLeftWhileAllIsSilentAndFoundAgain) {
    EXPECT_FALSE(sounds.isConnected());
    EXPECT_GT(peakOf(heard({{"Glass", 0.5}})), 0.1);
    EXPECT_TRUE(sounds.isConnected());
    EXPECT_TRUE(runner.runUntil([&] { return !sounds.isConnected(); }, 2 * LinuxSounds::idleTime));
    EXPECT_GT(peakOf(heard({{"Glass", 0.5}})), 0.1);
}

TEST_F(SoundsTest, aServerThatIsStartedAgainIsHeardAgain) {
    EXPECT_GT(peakOf(heard({{"Glass", 0.5}})), 0.1);
    server.stop();
    server.start();
    // Nobody here has noticed yet.
    EXPECT_GT(peakOf(heard({{"Glass", 0.5}})), 0.1);
}

TEST_F(SoundsTest, withoutAServerNothingIsHeardAndNothingWaits) {
    server.stop();
    const auto begin = std::chrono::steady_clock::now();
    sounds.play("Glass", 0.5);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds{200});
    EXPECT_TRUE(runner.runUntil([&] { return !sounds.isConnected(); }, 5));
    server.start();
    EXPECT_GT(peakOf(heard({{"Glass", 0.5}})), 0.1);
}

TEST_F(SoundsTest, whatIsNoSoundIsSilence) {
    const auto samples = heard({{"", 1}, {"../sounds/Glass", 1}, {"No such", 1}, {"Glass", 0}, {"Glass", -1}});
    EXPECT_EQ(peakOf(samples), 0);
}

} // namespace
} // namespace velmorin
