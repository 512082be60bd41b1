#pragma once

#include <string_view>

namespace velmorin {

/// Short sounds. Main thread; returns at once.
class Sounds {
public:
    virtual ~Sounds() = default;

    /// Plays a sound at a volume from 0 to 1, beside one that may still be heard. One that is not there plays nothing
    /// and is no error.
    virtual void play(std::string_view name, double volume) = 0;
};

} // namespace velmorin
