#include "app/seams/Random.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace velmorin {

UUID freshID(Random& random) {
    std::array<std::uint8_t, 16> drawn{};
    std::ranges::copy(random.bytes(drawn.size()), drawn.begin());
    return UUID::fromRandomBytes(drawn);
}

} // namespace velmorin
