#include "core/geometry/PanelPlacement.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

namespace velmorin::PanelPlacement {

namespace {

/// Cut towards zero; what no integer can hold stops at the ends.
std::int64_t wholeNumber(double value) {
    constexpr double bound = 9.2e18;
    if (std::isnan(value)) return 0;
    return static_cast<std::int64_t>(std::clamp(value, -bound, bound));
}

std::string text(const Rectangle& frame) {
    std::string text;
    for (const double value : {frame.x, frame.y, frame.width, frame.height}) {
        if (!text.empty()) text += ',';
        text += std::to_string(wholeNumber(value));
    }
    return text;
}

double overlapArea(const Rectangle& left, const Rectangle& right) {
    const double width = std::min(left.maxX(), right.maxX()) - std::max(left.x, right.x);
    const double height = std::min(left.maxY(), right.maxY()) - std::max(left.y, right.y);
    return width > 0 && height > 0 ? width * height : 0;
}

/// Not below the lower end, and then not above the upper one, which may lie lower.
double clamped(double value, double lower, double upper) {
    return std::min(std::max(value, lower), upper);
}

} // namespace

std::string arrangementKey(std::span<const Rectangle> frames) {
    std::vector<std::string> texts;
    for (const auto& frame : frames)
        texts.push_back(text(frame));
    std::ranges::sort(texts);
    std::string key;
    for (const auto& frame : texts) {
        if (!key.empty()) key += ';';
        key += frame;
    }
    return key;
}

std::optional<Point> origin(Point point, Size size, std::span<const Rectangle> screens) {
    const Rectangle panel{point.x, point.y, size.width, size.height};
    const Rectangle* best = nullptr;
    double bestArea = 0;
    for (const auto& screen : screens) {
        const double area = overlapArea(screen, panel);
        if (!(bestArea < area)) continue;
        best = &screen;
        bestArea = area;
    }
    if (best == nullptr) return std::nullopt;
    return Point{clamped(point.x, best->x, best->maxX() - size.width),
                 clamped(point.y, best->y, best->maxY() - size.height)};
}

} // namespace velmorin::PanelPlacement
