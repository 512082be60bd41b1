#pragma once

#include "core/session/ColorTheme.h"

#include <cstdint>
#include <optional>

namespace velmorin {

/// A colour in sRGB.
struct Color {
    std::uint32_t rgb = 0; ///< 0xRRGGBB
    double opacity = 1;    ///< 0 to 1

    constexpr int red() const { return static_cast<int>(rgb >> 16 & 0xff); }
    constexpr int green() const { return static_cast<int>(rgb >> 8 & 0xff); }
    constexpr int blue() const { return static_cast<int>(rgb & 0xff); }

    constexpr bool operator==(const Color&) const = default;
};

/// The colours of one theme. The tables are constant and built once.
struct ThemeColors {
    bool isDark = false;
    Color base;
    Color glowA;
    Color glowB;
    Color ink;
    Color inverse;
    Color muted;
    Color accent;
    Color accent2;
    Color onAccent;
    Color raised;
    Color accentSoft;
    Color line;
    Color notice;
    std::uint32_t nsInk = 0;   ///< `ink` as the text views have it: opaque 0xAARRGGBB
    std::uint32_t nsMuted = 0; ///< `muted` likewise

    static const ThemeColors& of(ColorTheme theme);

    /// The colour of a project in the charts. Without a slot, or with one that the palette does not have, `muted`.
    Color series(std::optional<int> slot) const;

    bool operator==(const ThemeColors&) const = default;
};

} // namespace velmorin
