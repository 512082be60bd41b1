#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace velmorin {

/// Draws that are the same on every machine for one seed (SplitMix64).
class WalkRandom {
public:
    explicit WalkRandom(std::uint64_t seed) : m_state{seed} {}

    std::uint64_t next() {
        m_state += 0x9E3779B97F4A7C15ULL;
        std::uint64_t mixed = m_state;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9ULL;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBULL;
        return mixed ^ (mixed >> 31);
    }
    /// From 0 to one below `bound`, which is above 0.
    std::size_t below(std::size_t bound) { return static_cast<std::size_t>(next() % bound); }
    bool isWithin(std::size_t percent) { return below(100) < percent; }
    template <class Value>
    Value pick(std::initializer_list<Value> values) {
        return *(values.begin() + below(values.size()));
    }
    template <class List>
    const auto& pickFrom(const List& list) {
        return list[below(list.size())];
    }

private:
    std::uint64_t m_state;
};

} // namespace velmorin
