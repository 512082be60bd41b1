#pragma once

#include "app/seams/Cancellable.h"
#include "app/strings/Appearance.h"
#include "app/theme/ThemeColors.h"

#include <QColor>
#include <QJSValue>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

/// The colours of ThemeColors, each given to X.
// clang-format off
#define VELMORIN_THEME_COLORS(X) \
    X(base) X(glowA) X(glowB) X(ink) X(inverse) X(muted) X(accent) X(accent2) X(onAccent) X(raised) X(accentSoft) \
    X(line) X(notice)
// clang-format on

#define VELMORIN_THEME_COLOR(name)                                                                                     \
    Q_PROPERTY(QColor name READ name NOTIFY changed FINAL)                                                             \
public:                                                                                                                \
    QColor name() const {                                                                                              \
        return toQColor(m_colors->name);                                                                               \
    }

namespace velmorin {

/// A colour of ours as the toolkit's.
QColor toQColor(Color color);

/// The colours, the type face and the stillness of the screens, as the one Appearance has them. Main thread.
class Theme : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    VELMORIN_THEME_COLORS(VELMORIN_THEME_COLOR)
    /// `ink` and `muted` for what is typed and for what invites to type.
    Q_PROPERTY(QColor nsInk READ nsInk NOTIFY changed FINAL)
    Q_PROPERTY(QColor nsMuted READ nsMuted NOTIFY changed FINAL)
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed FINAL)
    /// Whether nothing is to move for the sake of beauty.
    Q_PROPERTY(bool reducesMotion READ reducesMotion NOTIFY motionChanged FINAL)
    Q_PROPERTY(QString family READ family CONSTANT FINAL)
    /// A function from a slot to the colour of a project in the charts; a slot that there is not, such as −1, has the
    /// colour `muted`. A property, so that whoever calls it in a binding follows the theme.
    Q_PROPERTY(QJSValue series READ series NOTIFY changed FINAL)

public:
    explicit Theme(Appearance& appearance = Appearance::shared(), QObject* parent = nullptr);
    static Theme* create(QQmlEngine*, QJSEngine*) { return new Theme; }

    static const ThemeColors& colors(ColorTheme of) { return ThemeColors::of(of); }

    QColor nsInk() const { return QColor::fromRgba(m_colors->nsInk); }
    QColor nsMuted() const { return QColor::fromRgba(m_colors->nsMuted); }
    bool isDark() const { return m_colors->isDark; }
    bool reducesMotion() const { return *m_appearance.reducesMotion(); }
    QString family() const;
    QJSValue series();
    Q_INVOKABLE QColor seriesColor(int slot) const { return toQColor(m_colors->series(slot)); }

Q_SIGNALS:
    /// Another theme has come, with every colour.
    void changed();
    void motionChanged();

private:
    Appearance& m_appearance;
    const ThemeColors* m_colors;
    Cancellable m_theme;
    Cancellable m_motion;
};

} // namespace velmorin

#undef VELMORIN_THEME_COLOR
