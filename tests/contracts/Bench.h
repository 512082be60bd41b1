#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace velmorin {

/// What stands around an implementation of a seam while its contract is checked: whoever drives the world that the
/// seam shows. A real world takes its time, so a contract asks `eventually` for what has been set off, and `settle`
/// before it says that something has not happened.
class Bench {
public:
    virtual ~Bench() = default;

    /// Lets everything arrive that is under way already.
    virtual void settle() = 0;
    /// Lets time pass while calls come in.
    virtual void wait(double seconds) = 0;

    /// Whether something comes true before the patience is at an end.
    bool eventually(const std::function<bool()>& condition) {
        constexpr double patience = 60.0; // seconds; only a test that fails waits this long
        constexpr double step = 0.05;     // seconds
        settle();
        for (double waited = 0; !condition() && waited < patience; waited += step)
            wait(step);
        return condition();
    }
};

/// One way to make a bench: the parameter of a contract's suite.
template <class Kind>
struct BenchMaker {
    std::string name; ///< of the platform, as part of the tests' names
    std::function<std::unique_ptr<Kind>()> make;
};

template <class Kind>
std::string nameOfMaker(const ::testing::TestParamInfo<BenchMaker<Kind>>& info) {
    return info.param.name;
}

/// A contract's suite: each test gets a bench of its own.
template <class Kind>
class Contract : public ::testing::TestWithParam<BenchMaker<Kind>> {
protected:
    Kind& bench() { return *m_bench; }

private:
    std::unique_ptr<Kind> m_bench = this->GetParam().make();
};

} // namespace velmorin
