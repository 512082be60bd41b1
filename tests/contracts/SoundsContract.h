#pragma once

#include "app/seams/Sounds.h"
#include "tests/contracts/Bench.h"

#include <string>
#include <utility>
#include <vector>

namespace velmorin {

class SoundsBench : public Bench {
public:
    using Played = std::vector<std::pair<std::string, double>>;

    virtual Sounds& sounds() = 0;
    /// The names of two different sounds that are there.
    virtual std::pair<std::string, std::string> known() = 0;
    /// What has been heard to its end, with its volume, in the order of the beginnings. What is none of those that are
    /// there has no name.
    virtual Played played() = 0;
    /// How far a volume that has been heard may lie from the one that was asked for.
    virtual double tolerance() = 0;
    /// Whether sounds that were asked for at once are heard in that order, and one asked for twice as two. To an ear
    /// they begin together, and the same sound twice is one.
    virtual bool tellsApartWhatBeginsTogether() = 0;
};

/// What sounds promise.
class SoundsContract : public Contract<SoundsBench> {
protected:
    void play(const std::string& name, double volume) { bench().sounds().play(name, volume); }
    /// Whether so many are heard in the end.
    bool hears(std::size_t count) {
        return bench().eventually([&] { return bench().played().size() >= count; });
    }
};

} // namespace velmorin
