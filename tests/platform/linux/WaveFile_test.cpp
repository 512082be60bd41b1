#include "app/platform/linux/services/WaveFile.h"

#include "core/store/PosixFiles.h"

#include <gmock/gmock.h>
#include <limits>
#include <string>

namespace velmorin {
namespace {

using ::testing::ElementsAre;

std::string little(unsigned value, int size) {
    std::string bytes;
    for (int index = 0; index < size; ++index, value >>= 8U)
        bytes += static_cast<char>(value & 0xFFU);
    return bytes;
}
std::string chunk(const std::string& name, const std::string& content) {
    return name + little(static_cast<unsigned>(content.size()), 4) + content + (content.size() % 2 == 1 ? "x" : "");
}
std::string format(unsigned channels, unsigned rate = 8000, unsigned bits = 16, unsigned kind = 1) {
    return little(kind, 2) + little(channels, 2) + little(rate, 4) + little(0, 4) + little(0, 2) + little(bits, 2);
}
std::string file(const std::string& chunks) {
    return "RIFF" + little(static_cast<unsigned>(chunks.size()) + 4, 4) + "WAVE" + chunks;
}

TEST(WaveFileTest, samplesAreReadWhateverStandsBeforeThem) {
    const auto wave = readWave(file(chunk("LIST", "odd") + chunk("fmt ", format(2)) +
                                    chunk("data", little(1, 2) + little(0xFFFF, 2) + little(0x8000, 2))));
    ASSERT_TRUE(wave);
    EXPECT_EQ(wave->rate, 8000U);
    EXPECT_THAT(wave->samples, ElementsAre(1, -1)) << "half a frame is none";
}

TEST(WaveFileTest, whatIsNoPlainSoundIsRefused) {
    const auto good = file(chunk("fmt ", format(1)) + chunk("data", little(5, 2)));
    ASSERT_TRUE(readWave(good));
    for (std::size_t size = 0; size < good.size(); ++size)
        EXPECT_FALSE(readWave(good.substr(0, size))) << size;
    for (const auto& bad : {format(0), format(3), format(1, 0), format(1, 8000, 8), format(1, 8000, 16, 3),
                            format(1, 4'000'000'000U), format(257)})
        EXPECT_FALSE(readWave(file(chunk("fmt ", bad) + chunk("data", little(5, 2)))));
    EXPECT_FALSE(readWave(file(chunk("data", little(5, 2)))));
    EXPECT_FALSE(readWave(file("data\xFF\xFF\xFF\xFF")));
}

TEST(WaveFileTest, theVolumeIsAFactorBetweenNothingAndAll) {
    const Wave wave{8000, 1, {1000, -1000}};
    EXPECT_THAT(wave.scaled(0.3).samples, ElementsAre(300, -300));
    EXPECT_THAT(wave.scaled(2).samples, ElementsAre(1000, -1000));
    EXPECT_THAT(wave.scaled(-1).samples, ElementsAre(0, 0));
    EXPECT_THAT(wave.scaled(std::numeric_limits<double>::quiet_NaN()).samples, ElementsAre(0, 0));
}

} // namespace
} // namespace velmorin
