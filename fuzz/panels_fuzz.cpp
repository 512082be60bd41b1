// Wherever a panel is dropped and whatever the screens are: a place that is found is one that stays.

#include "core/geometry/PanelPlacement.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmorin;
    std::vector<double> numbers(size / sizeof(double));
    if (!numbers.empty()) std::memcpy(numbers.data(), data, numbers.size() * sizeof(double));
    if (numbers.size() < 8) return 0;
    std::vector<Rectangle> screens;
    for (std::size_t place = 4; place + 4 <= numbers.size(); place += 4) {
        screens.push_back({numbers[place], numbers[place + 1], numbers[place + 2], numbers[place + 3]});
    }
    (void)PanelPlacement::arrangementKey(screens);
    const Size panel{numbers[2], numbers[3]};
    const auto origin = PanelPlacement::origin({numbers[0], numbers[1]}, panel, screens);
    if (!origin || screens.size() != 1) return 0;
    const auto& screen = screens[0];
    for (const double number : numbers) {
        if (!std::isfinite(number) || std::abs(number) > 1e9) return 0;
    }
    constexpr double slack = 1e-3;
    if (panel.width <= screen.width && origin->x < screen.x - slack) std::abort();
    if (origin->x + panel.width > screen.maxX() + slack) std::abort();
    if (panel.height <= screen.height && origin->y < screen.y - slack) std::abort();
    if (origin->y + panel.height > screen.maxY() + slack) std::abort();
    return 0;
}
