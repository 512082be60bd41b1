#include "app/shell/Texts.h"

#include "app/shell/Text.h"
#include "core/language/AppLanguage.h"

namespace velmorin {

#define VELMORIN_TEXT(name)                                                                                            \
    QString Texts::name() const {                                                                                      \
        return toQString(m_appearance.strings().name);                                                                 \
    }
VELMORIN_TEXTS(VELMORIN_TEXT)
#undef VELMORIN_TEXT

Texts::Texts(Appearance& appearance, QObject* parent) : QObject{parent}, m_appearance{appearance} {
    m_language = appearance.language().watch([this] { Q_EMIT changed(); });
}

QString Texts::remove() const {
    return toQString(m_appearance.strings().delete_);
}

bool Texts::isRightToLeft() const {
    return velmorin::isRightToLeft(*m_appearance.language());
}

} // namespace velmorin
