#pragma once

#include <QColor>
#include <QObject>
#include <QQuickItem>
#include <QString>
#include <QVariantMap>

namespace velmorin {

/// What the tests of the controls do from outside: the user's settings, hands that hold a key down, the eyes of a
/// screen reader, the clipboard.
class Stage : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// "fa", "en" or "de"; "dusk", "dawn" or "aurora".
    Q_INVOKABLE void setLanguage(const QString& language);
    Q_INVOKABLE void setTheme(const QString& theme);
    Q_INVOKABLE void setReducesMotion(bool reduces);
    /// Persian, dusk and nothing moving, as each test begins.
    Q_INVOKABLE void reset();

    /// Presses a key in the item's window, repeats it so many times as a keyboard does, and lets it go.
    Q_INVOKABLE void holdKey(QQuickItem* item, int key, int repetitions);
    Q_INVOKABLE void setClipboard(const QString& text);

    /// What a screen reader is told: name, role, value, and the states checked, checkable, focusable,
    /// readOnly.
    Q_INVOKABLE QVariantMap heard(QQuickItem* item);
    /// Does what a screen reader's user asks for; whether there is such an action.
    Q_INVOKABLE bool act(QQuickItem* item, const QString& action);

    /// A pixel of a picture of the item alone, as large as the item.
    Q_INVOKABLE QColor pixel(QQuickItem* item, int x, int y);
    /// Whether a text has this weight, drawn by one of our own files.
    Q_INVOKABLE bool hasOwnFace(int weight);
    /// What remains at a pixel when the two glows are computed plainly.
    Q_INVOKABLE QColor ground(const QString& theme, double width, double height, double x, double y);
};

} // namespace velmorin
