#include "app/screens/components/SymbolDrawing.h"

#include "app/screens/components/SymbolPaths.h"

#include <algorithm>

namespace velmorin {

void SymbolDrawing::setName(const QString& name) {
    if (name == m_name) return;
    m_name = name;
    Q_EMIT nameChanged();
    update();
}

void SymbolDrawing::setColor(const QColor& color) {
    if (color == m_color) return;
    m_color = color;
    Q_EMIT colorChanged();
    update();
}

bool SymbolDrawing::isKnown() const {
    return symbolPaths(m_name).has_value();
}

DrawnItem::Drawing SymbolDrawing::drawing() const {
    auto paths = symbolPaths(m_name);
    if (!paths) return {};
    return [paths = *std::move(paths), color = m_color, size = std::min(width(), height())](QPainter& painter) {
        constexpr double lineWidth = 1.7;
        painter.scale(size / SymbolPaths::grid, size / SymbolPaths::grid);
        painter.setPen({color, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin});
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(paths.lines);
        painter.setBrush(color);
        painter.drawPath(paths.areas);
    };
}

} // namespace velmorin
