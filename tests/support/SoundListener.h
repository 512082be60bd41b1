#pragma once

#include "tests/support/Samples.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace velmorin {

/// Tells what a recording is made of: which of the sounds that it knows, how loud, and from when on.
class SoundListener {
public:
    struct Heard {
        std::string name;  ///< empty for what is none of the known ones
        double volume;     ///< the factor of the sound's amplitude; the peak of what has no name
        std::size_t begin; ///< in samples
    };
    /// How loud something is that counts as nothing.
    static constexpr double silence = 0.002;

    explicit SoundListener(std::map<std::string, Samples> known) : m_known{std::move(known)} {}

    const Samples& samplesOf(const std::string& name) const { return m_known.at(name); }
    /// In the order of their beginnings. Of sounds that are heard at once it tells those apart that differ in pitch;
    /// two of the same sound are one, or one and something unknown.
    std::vector<Heard> listen(Samples recording) const;

private:
    std::map<std::string, Samples> m_known;
};

} // namespace velmorin
