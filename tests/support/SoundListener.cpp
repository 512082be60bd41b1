#include "tests/support/SoundListener.h"

#include <algorithm>
#include <utility>

namespace velmorin {

namespace {

/// The sum of the products of a recording from a place on with a sound, over each `step`th sample.
double productAt(const Samples& recording, std::size_t begin, const Samples& sound, std::size_t step) {
    double product = 0;
    const std::size_t count = std::min(sound.size(), recording.size() - begin);
    for (std::size_t index = 0; index < count; index += step)
        product += recording[begin + index] * sound[index];
    return product;
}

/// Where a sound fits best, between two places.
std::size_t bestPlace(const Samples& recording, const Samples& sound, std::size_t begin, std::size_t end,
                      std::size_t step) {
    std::size_t best = begin;
    double most = 0;
    for (std::size_t place = begin; place < end; place += step) {
        const double product = productAt(recording, place, sound, step);
        if (product <= most) continue;
        most = product;
        best = place;
    }
    return best;
}

/// First roughly: this many samples are a short part of a swing of any sound here.
constexpr std::size_t roughly = 4;

struct Fit {
    SoundListener::Heard heard;
    double energy; ///< that of the recording which it accounts for
};

Fit fit(const Samples& recording, const std::string& name, const Samples& sound) {
    const auto rough = bestPlace(recording, sound, 0, recording.size(), roughly);
    const auto begin =
        bestPlace(recording, sound, rough - std::min(rough, roughly), std::min(rough + roughly, recording.size()), 1);
    const double product = productAt(recording, begin, sound, 1);
    const double volume = product / productAt(sound, 0, sound, 1);
    return {{name, volume, begin}, volume * product};
}

void take(Samples& recording, const SoundListener::Heard& heard, const Samples& sound) {
    const std::size_t count = std::min(sound.size(), recording.size() - heard.begin);
    for (std::size_t index = 0; index < count; ++index)
        recording[heard.begin + index] -= heard.volume * sound[index];
}

} // namespace

std::vector<SoundListener::Heard> SoundListener::listen(Samples recording) const {
    constexpr std::size_t most = 4; // of sounds that can be told apart
    std::vector<Heard> heard;
    while (peakOf(recording) > silence && heard.size() < most) {
        Fit best{};
        for (const auto& [name, sound] : m_known)
            if (auto found = fit(recording, name, sound); found.energy > best.energy) best = std::move(found);
        if (best.heard.volume < silence) break;
        take(recording, best.heard, m_known.at(best.heard.name));
        heard.push_back(std::move(best.heard));
    }
    if (const double rest = peakOf(recording); rest > silence) {
        const auto found = std::ranges::find_if(recording, [](double sample) { return std::abs(sample) > silence; });
        heard.push_back({"", rest, static_cast<std::size_t>(found - recording.begin())});
    }
    std::ranges::sort(heard, {}, &Heard::begin);
    return heard;
}

} // namespace velmorin
