#pragma once

#include "app/gallery/AnimationClock.h"

#include <QImage>
#include <QQuickView>
#include <QString>
#include <QVariantMap>

namespace velmorin {

/// A window with one of the screens in it. Main thread, with the toolkit's application object made before.
class ScreenView final : public QQuickView {
    Q_OBJECT

public:
    /// Has the program without a display, drawn by the processor. To be called before the application object is made.
    static void drawOffscreen();

    /// Shows a component of Velmorin.Screens with these properties at once. Throws std::runtime_error with what the
    /// engine says of a component that cannot be made.
    ScreenView(const QString& component, const QVariantMap& properties, QSize size);

    /// What is to be seen.
    QImage picture() { return grabWindow(); }
};

} // namespace velmorin
