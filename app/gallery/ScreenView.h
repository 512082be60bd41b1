#pragma once

#include "app/gallery/AnimationClock.h"

#include <QImage>
#include <QQuickView>
#include <QString>
#include <QVariantMap>
#include <functional>

namespace velmorin {

/// A window with one of the screens in it. Main thread, with the toolkit's application object made before.
class ScreenView final : public QQuickView {
    Q_OBJECT

public:
    /// Has the program without a display, drawn by the processor. To be called before the application object is made.
    static void drawOffscreen();
    /// Loads the program's type face from the source tree. To be called before the first window is made.
    static void loadFonts();

    /// Shows a component of Velmorin.Screens with these properties at once. Throws std::runtime_error with what the
    /// engine says of a component that cannot be made.
    ScreenView(const QString& component, const QVariantMap& properties, QSize size);

    /// Has every warning of the toolkit, as of a binding that fails, call this with its text.
    static void onWarning(std::function<void(const QString& text)> call);

    /// What is to be seen.
    QImage picture() { return grabWindow(); }
};

} // namespace velmorin
