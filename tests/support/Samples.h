#pragma once

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

namespace velmorin {

/// One channel of sound; 1 is full scale.
using Samples = std::vector<double>;

inline double peakOf(const Samples& samples) {
    return std::accumulate(samples.begin(), samples.end(), 0.0,
                           [](double peak, double sample) { return std::max(peak, std::abs(sample)); });
}

} // namespace velmorin
