#include "app/strings/Appearance.h"

namespace velmorin {

Appearance& Appearance::shared() {
    static Appearance appearance;
    return appearance;
}

void Appearance::apply(const AppSettings& settings) {
    m_language.set(settings.language);
    m_theme.set(settings.colorTheme);
}

} // namespace velmorin
