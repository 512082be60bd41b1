#pragma once

#include "app/gallery/PictureTexts.h"
#include "tests/screens/ScreenTest.h"

namespace velmorin {

/// The overlay's window in one of its states.
class OverlayTest : public ScreenTest {
protected:
    static constexpr QSize small{900, 650};

    void showPrimary(QSize size = {1280, 900}) {
        show(QStringLiteral("OverlayView"), {{"isPrimary", true}, {"unit", 1.0}}, size);
    }
    void showSecondary() { show(QStringLiteral("OverlayView"), {{"isPrimary", false}, {"unit", 1.0}}); }
    void startSession(SessionMode mode = SessionMode::pomodoro) { stage().startSession(Stage::profile(mode), "write"); }
    void speak(AppLanguage language) { stage().wear(language, ColorTheme::dusk); }

    template <class State>
    bool isUp() {
        return velmorin::shows<State>(*controller().overlay());
    }
    QString quote() const { return item(QStringLiteral("quote"))->property("text").toString(); }
    /// Whether an item lies wholly within the window.
    bool isInside(const QQuickItem& item) { return QRectF{{}, view().size()}.contains(place(item)); }
    /// A key that is held down for a while: one press, which may look like a fresh one, repetitions, a release.
    void hold(Qt::Key key) {
        keyDown(key);
        for (int repetition = 0; repetition < 5; ++repetition)
            keyDown(key, true);
        keyUp(key);
    }
};

} // namespace velmorin
