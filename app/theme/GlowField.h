#pragma once

#include "app/theme/ThemeColors.h"

#include <array>
#include <cstdint>
#include <span>

namespace velmorin {

/// The ground of every window: `base` with two glows over it, each strongest in its centre and gone at a distance of
/// three quarters of the larger side. Computed pixel by pixel wherever it is asked for, so that nothing is kept.
class GlowField {
public:
    /// For a view of this size in its own units.
    GlowField(const ThemeColors& colors, double width, double height);

    /// Where a row of pixels lies in the view: the centre of its first, and the way to each next one.
    struct Row {
        double x = 0;
        double y = 0;
        double stepX = 1;
        double stepY = 0;
    };

    /// The colours along a row, opaque 0xAARRGGBB.
    void fill(std::span<std::uint32_t> pixels, Row row) const;

    bool operator==(const GlowField&) const = default;

private:
    /// Red, green and blue, 0 to 255.
    using Channels = std::array<float, 3>;

    struct Glow {
        Channels color;
        float x = 0;
        float y = 0;

        bool operator==(const Glow&) const = default;
    };

    static Channels channels(Color color);

    Channels m_base;
    Glow m_first;
    Glow m_second;
    float m_perRadius = 0; ///< 1 / radius; 0 for an empty view
};

} // namespace velmorin
