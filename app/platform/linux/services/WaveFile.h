#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace velmorin {

/// A recorded sound.
struct Wave {
    std::uint32_t rate = 0;            ///< frames a second
    std::uint8_t channels = 0;         ///< 1 or 2
    std::vector<std::int16_t> samples; ///< of one frame after the other
    bool operator==(const Wave&) const = default;

    /// The same sound with its amplitude multiplied, by 0 to 1.
    Wave scaled(double factor) const;
};

/// Reads a WAV file of 16-bit samples in one or two channels; absent where it is none.
std::optional<Wave> readWave(std::string_view bytes);

} // namespace velmorin
