#include "app/theme/GlowField.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <span>
#include <vector>

namespace velmorin {
namespace {

constexpr std::array everyTheme{ColorTheme::dusk, ColorTheme::dawn, ColorTheme::aurora};

using Channels = std::array<double, 3>;

Channels channels(Color color) {
    return {double(color.red()), double(color.green()), double(color.blue())};
}

/// `below` under a glow, seen so far from its centre; written down as plainly as can be.
Channels under(Channels below, Color glow, double x, double y, double centreX, double centreY, double radius) {
    const double opacity = std::max(0.0, 1 - std::hypot(x - centreX, y - centreY) / radius);
    Channels seen{};
    for (std::size_t index = 0; index < 3; ++index) {
        seen[index] = below[index] * (1 - opacity) + channels(glow)[index] * opacity;
    }
    return seen;
}

Channels expected(const ThemeColors& colors, double width, double height, double x, double y) {
    const double radius = 0.75 * std::max(width, height);
    const auto first = under(channels(colors.base), colors.glowA, x, y, 0.92 * width, 0.04 * height, radius);
    return under(first, colors.glowB, x, y, 0.04 * width, 1.0 * height, radius);
}

std::uint32_t pixel(const GlowField& field, double x, double y) {
    std::uint32_t found = 0;
    field.fill(std::span{&found, 1}, {x, y});
    return found;
}

Channels channels(std::uint32_t pixel) {
    return {double(pixel >> 16 & 0xff), double(pixel >> 8 & 0xff), double(pixel & 0xff)};
}

TEST(GlowFieldTest, everyColourIsThatOfTheTwoGlows) {
    for (const auto theme : everyTheme) {
        const ThemeColors& colors = ThemeColors::of(theme);
        for (const auto& [width, height] : {std::pair{1920.0, 1080.0}, {600.0, 1200.0}, {333.0, 77.0}}) {
            const GlowField field{colors, width, height};
            std::vector<std::uint32_t> row(static_cast<std::size_t>(width));
            for (double y = 0.5; y < height; y += height / 40) {
                field.fill(row, {0.5, y});
                for (std::size_t x = 0; x < row.size(); x += 7) {
                    const auto seen = channels(row[x]);
                    const auto right = expected(colors, width, height, static_cast<double>(x) + 0.5, y);
                    for (std::size_t index = 0; index < 3; ++index) {
                        // Half a step for rounding, and a trace for the arithmetic of single precision.
                        ASSERT_NEAR(seen[index], right[index], 0.51) << x << "," << y << " of " << width;
                    }
                }
            }
        }
    }
}

TEST(GlowFieldTest, eachGlowIsPureInItsCentreWhereTheOtherDoesNotReach) {
    const ThemeColors& colors = ThemeColors::of(ColorTheme::dusk);
    const GlowField field{colors, 1600, 1200};
    EXPECT_EQ(pixel(field, 0.92 * 1600, 0.04 * 1200), 0xff000000 | colors.glowA.rgb);
    EXPECT_EQ(pixel(field, 0.04 * 1600, 1200), 0xff000000 | colors.glowB.rgb);
}

TEST(GlowFieldTest, beyondBothGlowsThereIsTheBase) {
    const ThemeColors& colors = ThemeColors::of(ColorTheme::aurora);
    EXPECT_EQ(pixel(GlowField{colors, 1000, 1000}, 0, 0), 0xff000000 | colors.base.rgb);
}

TEST(GlowFieldTest, everyPixelIsOpaque) {
    const GlowField field{ThemeColors::of(ColorTheme::dawn), 640, 480};
    std::vector<std::uint32_t> row(640);
    field.fill(row, {0.5, 100.5});
    EXPECT_TRUE(std::ranges::all_of(row, [](std::uint32_t pixel) { return pixel >> 24 == 0xff; }));
}

TEST(GlowFieldTest, aPartPaintedAnewShowsNoSeam) {
    const GlowField field{ThemeColors::of(ColorTheme::dusk), 1920, 1080};
    std::vector<std::uint32_t> whole(1920);
    std::vector<std::uint32_t> part(33);
    field.fill(whole, {0.5, 700.5});
    field.fill(part, {1000.5, 700.5});
    EXPECT_TRUE(std::ranges::equal(part, std::span{whole}.subspan(1000, part.size())));
}

TEST(GlowFieldTest, aFinerGridShowsTheSamePicture) {
    const GlowField field{ThemeColors::of(ColorTheme::dusk), 800, 600};
    std::vector<std::uint32_t> fine(4);
    field.fill(fine, {100.25, 50.25, 0.5, 0});
    EXPECT_EQ(fine[2], pixel(field, 101.25, 50.25));
}

TEST(GlowFieldTest, anEmptyViewHasAFieldToo) {
    const GlowField field{ThemeColors::of(ColorTheme::dusk), 0, 0};
    EXPECT_EQ(pixel(field, 0, 0) >> 24, 0xffU);
}

} // namespace
} // namespace velmorin
