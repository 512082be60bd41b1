#include "app/platform/linux/services/WaveFile.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace velmorin {

namespace {

/// A number of some bytes, the lowest first. There must be that many.
std::uint32_t number(std::string_view bytes, std::size_t offset, std::size_t size) {
    std::uint32_t value = 0;
    for (std::size_t index = size; index-- > 0;)
        value = value << 8U | static_cast<unsigned char>(bytes[offset + index]);
    return value;
}

/// The content of the first chunk with this name.
std::optional<std::string_view> chunk(std::string_view bytes, std::string_view name) {
    constexpr std::size_t header = 8;
    while (bytes.size() >= header) {
        const std::size_t size = number(bytes, 4, 4);
        const bool isWanted = bytes.starts_with(name);
        bytes.remove_prefix(header);
        if (isWanted) return size <= bytes.size() ? std::optional{bytes.substr(0, size)} : std::nullopt;
        // Chunks begin at even places.
        bytes.remove_prefix(std::min(bytes.size(), size + size % 2));
    }
    return std::nullopt;
}

} // namespace

Wave Wave::scaled(double factor) const {
    Wave wave = *this;
    const double bounded = factor > 0 ? std::min(factor, 1.0) : 0.0;
    for (auto& sample : wave.samples)
        sample = static_cast<std::int16_t>(std::lround(sample * bounded));
    return wave;
}

std::optional<Wave> readWave(std::string_view bytes) {
    constexpr std::size_t header = 12;
    constexpr std::size_t formatSize = 16;
    constexpr std::uint32_t plainSamples = 1;
    constexpr std::uint32_t highestRate = 192'000;
    if (bytes.size() < header || !bytes.starts_with("RIFF") || bytes.substr(8, 4) != "WAVE") return std::nullopt;
    const auto format = chunk(bytes.substr(header), "fmt ");
    const auto data = chunk(bytes.substr(header), "data");
    if (!format || format->size() < formatSize || !data) return std::nullopt;
    Wave wave;
    wave.channels = static_cast<std::uint8_t>(number(*format, 2, 2));
    wave.rate = number(*format, 4, 4);
    const bool isServed = number(*format, 0, 2) == plainSamples && number(*format, 14, 2) == 16 &&
                          (number(*format, 2, 2) == 1 || number(*format, 2, 2) == 2) && wave.rate > 0 &&
                          wave.rate <= highestRate;
    if (!isServed) return std::nullopt;
    const std::size_t frames = data->size() / 2 / wave.channels;
    wave.samples.reserve(frames * wave.channels);
    for (std::size_t index = 0; index < frames * wave.channels; ++index)
        wave.samples.push_back(static_cast<std::int16_t>(number(*data, 2 * index, 2)));
    return wave;
}

} // namespace velmorin
