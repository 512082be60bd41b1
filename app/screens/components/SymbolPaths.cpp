#include "app/screens/components/SymbolPaths.h"

#include <QPolygonF>
#include <algorithm>
#include <array>
#include <initializer_list>
#include <string_view>

namespace velmorin {

namespace {

void addLine(QPainterPath& path, std::initializer_list<QPointF> points) {
    path.moveTo(*points.begin());
    for (const QPointF& point : points) {
        path.lineTo(point);
    }
}

void addShape(QPainterPath& path, std::initializer_list<QPointF> corners) {
    addLine(path, corners);
    path.closeSubpath();
}

SymbolPaths pencil() {
    SymbolPaths made;
    addShape(made.lines, {{4, 20}, {4.9, 15.8}, {15.9, 4.8}, {19.2, 8.1}, {8.2, 19.1}});
    addLine(made.lines, {{13.5, 7.2}, {16.8, 10.5}});
    return made;
}

SymbolPaths leaf() {
    SymbolPaths made;
    made.lines.moveTo(7, 17);
    made.lines.cubicTo(2.5, 9, 9, 4.5, 20, 4.5);
    made.lines.cubicTo(20, 15.5, 15, 21, 7, 17);
    made.areas = made.lines;
    made.lines.moveTo(4, 20.5);
    made.lines.cubicTo(6.5, 15, 9.5, 12, 14, 10);
    return made;
}

SymbolPaths warning() {
    SymbolPaths made;
    addShape(made.lines, {{12, 4}, {21, 19.5}, {3, 19.5}});
    addLine(made.lines, {{12, 10}, {12, 14}});
    made.areas.addEllipse(QPointF{12, 16.8}, 0.35, 0.35);
    return made;
}

SymbolPaths close() {
    SymbolPaths made;
    addLine(made.lines, {{6, 6}, {18, 18}});
    addLine(made.lines, {{18, 6}, {6, 18}});
    return made;
}

SymbolPaths plus() {
    SymbolPaths made;
    addLine(made.lines, {{12, 5}, {12, 19}});
    addLine(made.lines, {{5, 12}, {19, 12}});
    return made;
}

SymbolPaths play() {
    SymbolPaths made;
    addShape(made.areas, {{8, 5.5}, {18.5, 12}, {8, 18.5}});
    return made;
}

SymbolPaths profiles() {
    SymbolPaths made;
    made.lines.addEllipse(QPointF{9, 8.2}, 3.4, 3.4);
    made.lines.moveTo(2.8, 19.5);
    made.lines.cubicTo(2.8, 16, 5.2, 14.4, 9, 14.4);
    made.lines.cubicTo(12.8, 14.4, 15.2, 16, 15.2, 19.5);
    made.lines.arcMoveTo(13.2, 5.2, 6, 6, 115);
    made.lines.arcTo(13.2, 5.2, 6, 6, 115, -230);
    made.lines.moveTo(17.4, 14.6);
    made.lines.cubicTo(20, 15, 21.4, 16.6, 21.4, 19.5);
    return made;
}

SymbolPaths thoughts() {
    SymbolPaths made;
    made.lines.moveTo(7, 4.5);
    made.lines.lineTo(17, 4.5);
    made.lines.cubicTo(19, 4.5, 20.5, 6, 20.5, 8);
    made.lines.lineTo(20.5, 12.5);
    made.lines.cubicTo(20.5, 14.5, 19, 16, 17, 16);
    made.lines.lineTo(11.5, 16);
    made.lines.lineTo(7.2, 19.8);
    made.lines.lineTo(7.2, 16);
    made.lines.cubicTo(5, 16, 3.5, 14.5, 3.5, 12.5);
    made.lines.lineTo(3.5, 8);
    made.lines.cubicTo(3.5, 6, 5, 4.5, 7, 4.5);
    addLine(made.lines, {{8, 8.6}, {16, 8.6}});
    addLine(made.lines, {{8, 12}, {13, 12}});
    return made;
}

SymbolPaths stats() {
    SymbolPaths made;
    addLine(made.lines, {{5.5, 19}, {5.5, 13}});
    addLine(made.lines, {{12, 19}, {12, 5}});
    addLine(made.lines, {{18.5, 19}, {18.5, 9.5}});
    return made;
}

/// A sliding knob on each of three lines.
SymbolPaths settings() {
    SymbolPaths made;
    constexpr double knob = 2.1;
    const auto slider = [&made](double y, double x) {
        addLine(made.lines, {{4, y}, {x - knob, y}});
        addLine(made.lines, {{x + knob, y}, {20, y}});
        made.lines.addEllipse(QPointF{x, y}, knob, knob);
    };
    slider(6, 15);
    slider(12, 8.5);
    slider(18, 13.5);
    return made;
}

SymbolPaths phone() {
    SymbolPaths made;
    made.lines.addRoundedRect(7, 3, 10, 18, 2.4, 2.4);
    addLine(made.lines, {{11, 17.8}, {13, 17.8}});
    return made;
}

SymbolPaths search() {
    SymbolPaths made;
    made.lines.addEllipse(QPointF{10.5, 10.5}, 6, 6);
    addLine(made.lines, {{15, 15}, {20, 20}});
    return made;
}

SymbolPaths check() {
    SymbolPaths made;
    addLine(made.lines, {{5, 12.6}, {10, 17.4}, {19, 7}});
    return made;
}

SymbolPaths scope() {
    SymbolPaths made;
    made.lines.addEllipse(QPointF{12, 12}, 7, 7);
    addLine(made.lines, {{12, 2.5}, {12, 7.5}});
    addLine(made.lines, {{12, 16.5}, {12, 21.5}});
    addLine(made.lines, {{2.5, 12}, {7.5, 12}});
    addLine(made.lines, {{16.5, 12}, {21.5, 12}});
    made.areas.addEllipse(QPointF{12, 12}, 0.6, 0.6);
    return made;
}

struct NamedSymbol {
    std::string_view name;
    SymbolPaths (*make)();
};

constexpr std::array symbols{
    NamedSymbol{"check", check},       NamedSymbol{"close", close},       NamedSymbol{"leaf", leaf},
    NamedSymbol{"pencil", pencil},     NamedSymbol{"phone", phone},       NamedSymbol{"play", play},
    NamedSymbol{"plus", plus},         NamedSymbol{"profiles", profiles}, NamedSymbol{"scope", scope},
    NamedSymbol{"search", search},     NamedSymbol{"settings", settings}, NamedSymbol{"stats", stats},
    NamedSymbol{"thoughts", thoughts}, NamedSymbol{"warning", warning},
};

} // namespace

std::optional<SymbolPaths> symbolPaths(const QString& name) {
    const auto wanted = name.toStdString();
    const auto* found = std::ranges::find(symbols, std::string_view{wanted}, &NamedSymbol::name);
    if (found == symbols.end()) return std::nullopt;
    return found->make();
}

} // namespace velmorin
