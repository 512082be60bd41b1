#pragma once

#include "app/engine/OverlayState.h"

#include <cstddef>
#include <gtest/gtest.h>
#include <string>
#include <variant>

namespace velmorin {

inline constexpr std::size_t overlayStates = std::variant_size_v<OverlayState>;

/// One state of each case, by its place in the declaration, as it came up at this moment.
inline OverlayState overlayState(std::size_t index, Date now) {
    const OverlayState states[overlayStates]{
        Overlay::Warning{{"Game", 1, now, now + 5.0}},
        Overlay::EmergencyExit{now + 60.0},
        Overlay::Finished{},
        Overlay::None{},
        Overlay::LockedBreak{},
        Overlay::BackToWork{},
    };
    return states[index];
}

/// The name of a case for that of a test.
inline std::string overlayName(const ::testing::TestParamInfo<std::size_t>& info) {
    return std::string{name(overlayState(info.param, {}))};
}

} // namespace velmorin
