#include "app/theme/GlowField.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace velmorin {

GlowField::GlowField(const ThemeColors& colors, double width, double height)
    : m_base{channels(colors.base)},
      m_first{channels(colors.glowA), static_cast<float>(0.92 * width), static_cast<float>(0.04 * height)},
      m_second{channels(colors.glowB), static_cast<float>(0.04 * width), static_cast<float>(height)} {
    const double radius = 0.75 * std::max(width, height);
    m_perRadius = radius > 0 ? static_cast<float>(1 / radius) : 0;
}

GlowField::Channels GlowField::channels(Color color) {
    return {static_cast<float>(color.red()), static_cast<float>(color.green()), static_cast<float>(color.blue())};
}

// One plain loop over floats without a branch, so that the compiler computes several pixels at once; the build asks it
// to.
void GlowField::fill(std::span<std::uint32_t> pixels, Row row) const {
    const auto [baseRed, baseGreen, baseBlue] = m_base;
    const auto [firstRed, firstGreen, firstBlue] = m_first.color;
    const auto [secondRed, secondGreen, secondBlue] = m_second.color;
    const auto x = static_cast<float>(row.x);
    const auto y = static_cast<float>(row.y);
    const auto stepX = static_cast<float>(row.stepX);
    const auto stepY = static_cast<float>(row.stepY);
    const Glow first = m_first;
    const Glow second = m_second;
    const float perRadius = m_perRadius;
    std::uint32_t* const out = pixels.data();
    const int count = static_cast<int>(pixels.size());

    for (int index = 0; index < count; ++index) {
        const auto along = static_cast<float>(index);
        const float px = x + stepX * along;
        const float py = y + stepY * along;
        const float firstX = px - first.x;
        const float firstY = py - first.y;
        const float secondX = px - second.x;
        const float secondY = py - second.y;
        const float firstAway = std::sqrt(firstX * firstX + firstY * firstY) * perRadius;
        const float secondAway = std::sqrt(secondX * secondX + secondY * secondY) * perRadius;
        const float firstShare = 1.0F - (firstAway < 1.0F ? firstAway : 1.0F);
        const float secondShare = 1.0F - (secondAway < 1.0F ? secondAway : 1.0F);
        float red = baseRed + (firstRed - baseRed) * firstShare;
        float green = baseGreen + (firstGreen - baseGreen) * firstShare;
        float blue = baseBlue + (firstBlue - baseBlue) * firstShare;
        red += (secondRed - red) * secondShare;
        green += (secondGreen - green) * secondShare;
        blue += (secondBlue - blue) * secondShare;
        const int packed =
            static_cast<int>(red + 0.5F) << 16 | static_cast<int>(green + 0.5F) << 8 | static_cast<int>(blue + 0.5F);
        out[index] = 0xff000000U | static_cast<std::uint32_t>(packed);
    }
}

} // namespace velmorin
