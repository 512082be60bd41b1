#pragma once

#include <array>
#include <string_view>

namespace velmorin {

/// The colour themes of the interface.
enum class ColorTheme { dusk, dawn, aurora };

constexpr std::array<std::string_view, 3> rawValues(ColorTheme) {
    return {"dusk", "dawn", "aurora"};
}

/// Whether light text stands on a dark ground.
constexpr bool isDark(ColorTheme theme) {
    return theme != ColorTheme::dawn;
}

} // namespace velmorin
