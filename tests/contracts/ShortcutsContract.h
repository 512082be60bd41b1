#pragma once

#include "app/seams/Shortcuts.h"
#include "tests/contracts/Bench.h"

#include <string>
#include <vector>

namespace velmorin {

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
