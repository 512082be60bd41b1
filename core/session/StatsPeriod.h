#pragma once

#include <array>
#include <string_view>

namespace velmorin {

/// The span of time that statistics look back over.
enum class StatsPeriod {
    today,
    week,  ///< today and the 6 days before
    month, ///< today and the 29 days before
    all,   ///< no limit; charts still show as many days as for a month
};

constexpr std::array<std::string_view, 4> rawValues(StatsPeriod) {
    return {"today", "week", "month", "all"};
}

} // namespace velmorin
