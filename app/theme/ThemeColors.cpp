#include "app/theme/ThemeColors.h"

#include <array>
#include <cstddef>

namespace velmorin {

namespace {

constexpr std::uint32_t white = 0xffffff;

constexpr std::uint32_t opaque(std::uint32_t rgb) {
    return 0xff000000 | rgb;
}

constexpr ThemeColors dusk{
    .isDark = true,
    .base = {0x1a0d21},
    .glowA = {0x8c2a4a},
    .glowB = {0x43195c},
    .ink = {0xfcf1e6},
    .inverse = {0x22102a},
    .muted = {0xd2bec0},
    .accent = {0xffd49a},
    .accent2 = {0xff9270},
    .onAccent = {0x2a1020},
    .raised = {white, 0.08},
    .accentSoft = {white, 0.13},
    .line = {white, 0.16},
    .notice = {0xffd49a},
    .nsInk = opaque(0xfcf1e6),
    .nsMuted = opaque(0xd2bec0),
};

constexpr ThemeColors dawn{
    .isDark = false,
    .base = {0xfff7ee},
    .glowA = {0xffd9c7},
    .glowB = {0xe4d2f2},
    .ink = {0x2b1530},
    .inverse = {0xfff7ee},
    .muted = {0x5f4a5e},
    .accent = {0x8e2f5c},
    .accent2 = {0xb9483d},
    .onAccent = {0xffffff},
    .raised = {white, 0.58},
    .accentSoft = {0x2b1530, 0.08},
    .line = {0x2b1530, 0.14},
    .notice = {0x7a3a14},
    .nsInk = opaque(0x2b1530),
    .nsMuted = opaque(0x5f4a5e),
};

constexpr ThemeColors aurora{
    .isDark = true,
    .base = {0x0a1322},
    .glowA = {0x0a5558},
    .glowB = {0x3b2d94},
    .ink = {0xeef7f4},
    .inverse = {0x0a1e28},
    .muted = {0xb5c8ce},
    .accent = {0xa4f2d2},
    .accent2 = {0x74c6f2},
    .onAccent = {0x08202a},
    .raised = {white, 0.08},
    .accentSoft = {white, 0.13},
    .line = {white, 0.16},
    .notice = {0xffe2a8},
    .nsInk = opaque(0xeef7f4),
    .nsMuted = opaque(0xb5c8ce),
};

using Palette = std::array<Color, 5>;

constexpr Palette darkSeries{{{0x1fa08d}, {0xb38b1f}, {0x5a8ae0}, {0xc26a93}, {0x6f9e2b}}};
constexpr Palette lightSeries{{{0x0f8f7e}, {0xc99a1e}, {0x2f5fb3}, {0xd97fa6}, {0x5e8f1f}}};

} // namespace

const ThemeColors& ThemeColors::of(ColorTheme theme) {
    switch (theme) {
    case ColorTheme::dusk: return dusk;
    case ColorTheme::dawn: return dawn;
    case ColorTheme::aurora: break;
    }
    return aurora;
}

Color ThemeColors::series(std::optional<int> slot) const {
    const Palette& palette = isDark ? darkSeries : lightSeries;
    if (!slot || *slot < 0 || *slot >= static_cast<int>(palette.size())) return muted;
    return palette[static_cast<std::size_t>(*slot)];
}

} // namespace velmorin
