#pragma once

#include "app/seams/Shortcuts.h"
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
    /// The name of a sound that is there.
    virtual std::string known() = 0;
    /// What has been heard, with its volume, in order.
    virtual Played played() = 0;
};

/// What sounds promise.
class SoundsContract : public Contract<SoundsBench> {};

class ShortcutsBench : public Bench {
public:
    virtual Shortcuts& shortcuts() = 0;
    /// Prepares something under a name.
    virtual void prepare(const std::string& name) = 0;
    /// The names of what has been run, in order.
    virtual std::vector<std::string> runs() = 0;
};

/// What the running of prepared shortcuts promises.
class ShortcutsContract : public Contract<ShortcutsBench> {};

} // namespace velmorin
