#include "app/theme/ThemeColors.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <optional>
#include <tuple>
#include <vector>

namespace velmorin {
namespace {

constexpr std::array allThemes{ColorTheme::dusk, ColorTheme::dawn, ColorTheme::aurora};

std::vector<Color> palette(ColorTheme theme) {
    std::vector<Color> found;
    for (int slot = 0; slot < 5; ++slot) {
        found.push_back(ThemeColors::of(theme).series(slot));
    }
    return found;
}

/// How bright a colour appears, 0 to 1, and how well two can be told apart, 1 to 21 (WCAG 2.1, relative luminance and
/// contrast ratio).
double luminance(Color color) {
    const auto linear = [](int channel) {
        const double share = channel / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.red()) + 0.7152 * linear(color.green()) + 0.0722 * linear(color.blue());
}

double contrast(Color one, Color other) {
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

TEST(ThemeColorsTest, duskIsDarkWithWarmLight) {
    const ThemeColors& colors = ThemeColors::of(ColorTheme::dusk);
    EXPECT_TRUE(colors.isDark);
    EXPECT_EQ(colors.base, Color{0x1a0d21});
    EXPECT_EQ(colors.glowA, Color{0x8c2a4a});
    EXPECT_EQ(colors.glowB, Color{0x43195c});
    EXPECT_EQ(colors.ink, Color{0xfcf1e6});
    EXPECT_EQ(colors.inverse, Color{0x22102a});
    EXPECT_EQ(colors.muted, Color{0xd2bec0});
    EXPECT_EQ(colors.accent, Color{0xffd49a});
    EXPECT_EQ(colors.accent2, Color{0xff9270});
    EXPECT_EQ(colors.onAccent, Color{0x2a1020});
    EXPECT_EQ(colors.raised, (Color{0xffffff, 0.08}));
    EXPECT_EQ(colors.accentSoft, (Color{0xffffff, 0.13}));
    EXPECT_EQ(colors.line, (Color{0xffffff, 0.16}));
    EXPECT_EQ(colors.notice, Color{0xffd49a});
}

TEST(ThemeColorsTest, dawnIsLight) {
    const ThemeColors& colors = ThemeColors::of(ColorTheme::dawn);
    EXPECT_FALSE(colors.isDark);
    EXPECT_EQ(colors.base, Color{0xfff7ee});
    EXPECT_EQ(colors.glowA, Color{0xffd9c7});
    EXPECT_EQ(colors.glowB, Color{0xe4d2f2});
    EXPECT_EQ(colors.ink, Color{0x2b1530});
    EXPECT_EQ(colors.inverse, Color{0xfff7ee});
    EXPECT_EQ(colors.muted, Color{0x5f4a5e});
    EXPECT_EQ(colors.accent, Color{0x8e2f5c});
    EXPECT_EQ(colors.accent2, Color{0xb9483d});
    EXPECT_EQ(colors.onAccent, Color{0xffffff});
    EXPECT_EQ(colors.raised, (Color{0xffffff, 0.58}));
    EXPECT_EQ(colors.accentSoft, (Color{0x2b1530, 0.08}));
    EXPECT_EQ(colors.line, (Color{0x2b1530, 0.14}));
    EXPECT_EQ(colors.notice, Color{0x7a3a14});
}

TEST(ThemeColorsTest, auroraIsDarkWithCoolLight) {
    const ThemeColors& colors = ThemeColors::of(ColorTheme::aurora);
    EXPECT_TRUE(colors.isDark);
    EXPECT_EQ(colors.base, Color{0x0a1322});
    EXPECT_EQ(colors.glowA, Color{0x0a5558});
    EXPECT_EQ(colors.glowB, Color{0x3b2d94});
    EXPECT_EQ(colors.ink, Color{0xeef7f4});
    EXPECT_EQ(colors.inverse, Color{0x0a1e28});
    EXPECT_EQ(colors.muted, Color{0xb5c8ce});
    EXPECT_EQ(colors.accent, Color{0xa4f2d2});
    EXPECT_EQ(colors.accent2, Color{0x74c6f2});
    EXPECT_EQ(colors.onAccent, Color{0x08202a});
    EXPECT_EQ(colors.raised, (Color{0xffffff, 0.08}));
    EXPECT_EQ(colors.accentSoft, (Color{0xffffff, 0.13}));
    EXPECT_EQ(colors.line, (Color{0xffffff, 0.16}));
    EXPECT_EQ(colors.notice, Color{0xffe2a8});
}

TEST(ThemeColorsTest, textViewsHaveTheSameInkAndTheSameMuted) {
    for (const auto theme : allThemes) {
        const ThemeColors& colors = ThemeColors::of(theme);
        EXPECT_EQ(colors.nsInk, 0xff000000 | colors.ink.rgb);
        EXPECT_EQ(colors.nsMuted, 0xff000000 | colors.muted.rgb);
    }
}

TEST(ThemeColorsTest, aThemeIsBuiltOnce) {
    EXPECT_EQ(&ThemeColors::of(ColorTheme::dawn), &ThemeColors::of(ColorTheme::dawn));
}

TEST(ThemeColorsTest, aProjectHasTheColourOfItsSlot) {
    const std::vector<Color> dark{{0x1fa08d}, {0xb38b1f}, {0x5a8ae0}, {0xc26a93}, {0x6f9e2b}};
    EXPECT_EQ(palette(ColorTheme::dusk), dark);
    EXPECT_EQ(palette(ColorTheme::aurora), dark);
    const std::vector<Color> light{{0x0f8f7e}, {0xc99a1e}, {0x2f5fb3}, {0xd97fa6}, {0x5e8f1f}};
    EXPECT_EQ(palette(ColorTheme::dawn), light);
}

TEST(ThemeColorsTest, slotFiveAndBeyondAndANameWithoutASlotAreMuted) {
    for (const auto theme : allThemes) {
        const ThemeColors& colors = ThemeColors::of(theme);
        EXPECT_EQ(colors.series(5), colors.muted);
        EXPECT_EQ(colors.series(1000), colors.muted);
        EXPECT_EQ(colors.series(-1), colors.muted);
        EXPECT_EQ(colors.series(std::nullopt), colors.muted);
    }
}

TEST(ThemeColorsTest, textCanBeReadOnEveryPartOfTheGround) {
    constexpr double enoughForText = 4.5;
    for (const auto theme : allThemes) {
        const ThemeColors& colors = ThemeColors::of(theme);
        for (const Color ground : {colors.base, colors.glowA, colors.glowB}) {
            EXPECT_GT(contrast(colors.ink, ground), enoughForText) << static_cast<int>(theme);
            EXPECT_GT(contrast(colors.muted, ground), enoughForText) << static_cast<int>(theme);
            EXPECT_GT(contrast(colors.notice, ground), enoughForText) << static_cast<int>(theme);
        }
        EXPECT_GT(contrast(colors.onAccent, colors.accent), enoughForText) << static_cast<int>(theme);
    }
}

} // namespace
} // namespace velmorin
