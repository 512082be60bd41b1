// The program's sounds on a real sound server: what is heard, how loud and how high.

#include "app/platform/linux/services/LinuxSounds.h"
#include "core/store/PosixFiles.h"
#include "tests/support/LoopRunner.h"
#include "tests/support/SoundServer.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <gmock/gmock.h>
#include <numbers>
#include <vector>

namespace velmorin {
namespace {

constexpr int rate = SoundServer::rate;
constexpr double glassFrequency = 1174;
constexpr double purrFrequency = 196;

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
