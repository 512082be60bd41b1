#pragma once

#include "core/foundation/Fields.h"

#include <cstdint>
#include <tuple>
#include <type_traits>

namespace velmorin {

/// The timings of a deep plan as the user set them, stored as they are.
struct DeepConfig {
    std::int64_t totalMinutes = 180;     ///< breaks included
    std::int64_t breakEveryMinutes = 60; ///< work between breaks
    std::int64_t breakMinutes = 5;

    bool operator==(const DeepConfig&) const = default;
};

constexpr auto fields(std::type_identity<DeepConfig>) {
    return std::tuple{
        field("totalMinutes", &DeepConfig::totalMinutes),
        field("breakEveryMinutes", &DeepConfig::breakEveryMinutes),
        field("breakMinutes", &DeepConfig::breakMinutes),
    };
}

} // namespace velmorin
