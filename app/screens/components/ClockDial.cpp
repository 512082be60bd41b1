#include "app/screens/components/ClockDial.h"

#include "app/screens/components/AppFonts.h"
#include "app/screens/components/Theme.h"
#include "app/shell/Text.h"
#include "app/theme/ClockFace.h"
#include "core/language/Formatting.h"

#include <QFont>
#include <cmath>
#include <optional>

namespace velmorin {

namespace {

std::optional<Calendar>& sharedCalendar() {
    static std::optional<Calendar> calendar = Calendar::inTimeZone("UTC");
    return calendar;
}

QPointF point(ClockFace::Point point) {
    return {point.x, point.y};
}

void drawLine(QPainter& painter, const ClockFace::Line& line, const QColor& color) {
    painter.setPen({color, line.width, Qt::SolidLine, Qt::RoundCap});
    painter.drawLine(point(line.from), point(line.to));
}

void drawRim(QPainter& painter, const ClockFace& face, const ThemeColors& colors) {
    const QPointF reach{face.rimRadius, face.rimRadius};
    const QRectF rim{point(face.centre) - reach, point(face.centre) + reach};
    painter.setBrush(Qt::NoBrush);
    painter.setPen({toQColor(colors.line), face.rimWidth});
    painter.drawEllipse(rim);
    if (!face.remaining) return;
    painter.setPen({toQColor(colors.accent), face.remaining->width, Qt::SolidLine, Qt::RoundCap});
    // The toolkit counts sixteenths of a degree, against the clock.
    painter.drawArc(rim, static_cast<int>(std::lround(-face.remaining->startDegrees * 16)),
                    static_cast<int>(std::lround(-face.remaining->sweepDegrees * 16)));
}

void drawNumerals(QPainter& painter, const ClockFace& face, const ThemeColors& colors) {
    if (face.numerals.empty()) return;
    QFont font{AppFonts::family()};
    font.setPixelSize(static_cast<int>(std::lround(face.numeralSize)));
    font.setWeight(QFont::Medium);
    painter.setFont(font);
    painter.setPen(toQColor(colors.muted));
    const QPointF reach{face.numeralSize * 1.5, face.numeralSize * 1.5};
    for (const auto& numeral : face.numerals) {
        painter.drawText(QRectF{point(numeral.centre) - reach, point(numeral.centre) + reach}, Qt::AlignCenter,
                         toQString(numeral.text));
    }
}

void draw(QPainter& painter, const ClockFace& face, const ThemeColors& colors) {
    drawRim(painter, face, colors);
    for (const auto& tick : face.ticks) {
        drawLine(painter, tick, toQColor(colors.muted));
    }
    drawNumerals(painter, face, colors);
    drawLine(painter, face.hourHand, toQColor(colors.ink));
    drawLine(painter, face.minuteHand, toQColor(colors.ink));
    painter.setPen(Qt::NoPen);
    painter.setBrush(toQColor(colors.accent));
    painter.drawEllipse(point(face.centre), face.hubRadius, face.hubRadius);
}

} // namespace

ClockDial::ClockDial(QQuickItem* parent) : DrawnItem{parent} {
    Appearance& appearance = Appearance::shared();
    m_watches.push_back(appearance.theme().watch([this] { update(); }));
    m_watches.push_back(appearance.language().watch([this] { changed(); }));
}

void ClockDial::setCalendar(const Calendar& calendar) {
    sharedCalendar() = calendar;
}

void ClockDial::setDate(double date) {
    if (date == m_date) return;
    m_date = date;
    Q_EMIT dateChanged();
    changed();
}

void ClockDial::setRemainingFraction(double fraction) {
    if (fraction == m_remainingFraction) return;
    m_remainingFraction = fraction;
    Q_EMIT remainingFractionChanged();
    update();
}

void ClockDial::setClockSize(double size) {
    if (size == m_size) return;
    m_size = size;
    setImplicitSize(size, size);
    Q_EMIT clockSizeChanged();
    update();
}

QString ClockDial::timeText() const {
    if (!sharedCalendar()) return {};
    return toQString(timeOfDay(*Appearance::shared().language(), Date{m_date}, *sharedCalendar()));
}

DrawnItem::Drawing ClockDial::drawing() const {
    const auto remaining = m_remainingFraction < 0 ? std::nullopt : std::optional{m_remainingFraction};
    const auto hands = sharedCalendar() ? ClockHands{Date{m_date}, *sharedCalendar()} : ClockHands{};
    const Appearance& appearance = Appearance::shared();
    return [face = ClockFace{m_size, hands, remaining, *appearance.language()},
            colors = &ThemeColors::of(*appearance.theme())](QPainter& painter) { draw(painter, face, *colors); };
}

void ClockDial::changed() {
    Q_EMIT timeTextChanged();
    update();
}

} // namespace velmorin
