#pragma once

#include <array>
#include <string_view>

namespace velmorin {

/// The colour themes of the interface.
enum class ColorTheme { dusk, dawn, aurora };

constexpr std::array<std::string_view, 3> rawValues(ColorTheme) {
    return {"dusk", "dawn", "aurora"};
}

} // namespace velmorin
