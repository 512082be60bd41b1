#include "tests/walk/WalkShrinker.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace velmorin {

namespace {

using Fails = std::function<bool(const Walk&)>;

/// Takes the walk for `smaller` if it still fails.
bool adopt(Walk& walk, Walk smaller, const Fails& fails) {
    if (!fails(smaller)) return false;
    walk = std::move(smaller);
    return true;
}

/// Takes out stretches of one of the walk's lists, halving their length down to one; whether anything went.
template <class Element>
bool removeStretches(Walk& walk, std::vector<Element> Walk::*list, const Fails& fails) {
    const std::size_t before = (walk.*list).size();
    for (std::size_t length = std::max<std::size_t>(before / 2, 1); length > 0; length /= 2) {
        // From the end, where what does not matter is likelier.
        for (std::size_t end = (walk.*list).size(); end > 0; end = end > length ? end - length : 0) {
            const std::size_t start = end > length ? end - length : 0;
            Walk smaller = walk;
            auto& elements = smaller.*list;
            if (end > elements.size()) continue;
            elements.erase(elements.begin() + static_cast<std::ptrdiff_t>(start),
                           elements.begin() + static_cast<std::ptrdiff_t>(end));
            adopt(walk, std::move(smaller), fails);
        }
    }
    return (walk.*list).size() < before;
}

/// Numbers that are simpler than this one, the simplest first.
std::vector<double> simpler(double value) {
    const double one = value < 0 ? -1.0 : 1.0;
    const double whole = std::trunc(value);
    std::vector<double> candidates{0.0, one, std::trunc(value / 2), whole - one, whole};
    std::erase_if(candidates, [value](double candidate) {
        return candidate == value || std::abs(candidate) > std::abs(value) ||
               std::signbit(candidate) != std::signbit(value);
    });
    return candidates;
}

bool simplifyNumber(Walk& walk, std::size_t index, const Fails& fails) {
    const auto number = walk.steps[index].number;
    if (!number) return false;
    const auto candidates = simpler(number->value);
    return std::ranges::any_of(candidates, [&](double candidate) {
        Walk smaller = walk;
        smaller.steps[index].number->value = candidate;
        return adopt(walk, std::move(smaller), fails);
    });
}

bool simplifyNumbers(Walk& walk, const Fails& fails) {
    bool isSimpler = false;
    for (std::size_t index = 0; index < walk.steps.size(); ++index) {
        while (simplifyNumber(walk, index, fails))
            isSimpler = true;
    }
    return isSimpler;
}

} // namespace

Walk shrunk(Walk walk, const Fails& fails) {
    bool isSmaller = true;
    while (isSmaller) {
        isSmaller = removeStretches(walk, &Walk::steps, fails);
        isSmaller = removeStretches(walk, &Walk::applications, fails) || isSmaller;
        isSmaller = simplifyNumbers(walk, fails) || isSmaller;
    }
    return walk;
}

} // namespace velmorin
