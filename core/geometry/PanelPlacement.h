#pragma once

#include <optional>
#include <span>
#include <string>

namespace velmorin {

struct Point {
    double x = 0;
    double y = 0;

    bool operator==(const Point&) const = default;
};

struct Size {
    double width = 0;
    double height = 0;

    bool operator==(const Size&) const = default;
};

/// A rectangle by its lower corner and its size.
struct Rectangle {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    double maxX() const { return x + width; }
    double maxY() const { return y + height; }

    bool operator==(const Rectangle&) const = default;
};

/// Where a floating panel goes. Pure; any thread. All in the same unit.
namespace PanelPlacement {

/// Names an arrangement of screens, whatever their order: "x,y,width,height" of each in whole numbers, sorted as
/// texts, with ";" between them.
std::string arrangementKey(std::span<const Rectangle> frames);

/// The origin nearest to `point` at which a panel lies wholly inside the screen that holds most of it; of screens that
/// hold equally much, the first. Absent when it touches none.
std::optional<Point> origin(Point point, Size size, std::span<const Rectangle> screens);

} // namespace PanelPlacement

} // namespace velmorin
