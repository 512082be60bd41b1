#include "app/screens/components/Theme.h"

#include "app/screens/components/AppFonts.h"

#include <QJSEngine>

namespace velmorin {

QColor toQColor(Color color) {
    auto made = QColor::fromRgb(color.rgb);
    made.setAlphaF(static_cast<float>(color.opacity));
    return made;
}

Theme::Theme(Appearance& appearance, QObject* parent)
    : QObject{parent}, m_appearance{appearance}, m_colors{&ThemeColors::of(*appearance.theme())} {
    m_theme = appearance.theme().watch([this] {
        m_colors = &ThemeColors::of(*m_appearance.theme());
        Q_EMIT changed();
    });
    m_motion = appearance.reducesMotion().watch([this] { Q_EMIT motionChanged(); });
}

QString Theme::family() const {
    return AppFonts::family();
}

QJSValue Theme::series() {
    auto* engine = qjsEngine(this);
    return engine == nullptr ? QJSValue{} : engine->newQObject(this).property(QStringLiteral("seriesColor"));
}

} // namespace velmorin
