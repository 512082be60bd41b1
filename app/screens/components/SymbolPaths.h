#pragma once

#include <QPainterPath>
#include <QString>
#include <optional>

namespace velmorin {

/// An icon on a square grid: what a round pen draws, and what is filled besides.
struct SymbolPaths {
    static constexpr double grid = 24; ///< width and height

    QPainterPath lines;
    QPainterPath areas;
};

/// The icon of this name; absent when there is none.
std::optional<SymbolPaths> symbolPaths(const QString& name);

} // namespace velmorin
