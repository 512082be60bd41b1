#pragma once

#include "app/gallery/Stage.h"
#include "app/shell/QuoteTask.h"
#include "app/shell/ScreenModel.h"
#include "tests/support/MemoryFiles.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace velmorin {

/// The models of the overlay's screens, on the real engine on a simulated desktop, without a window. English.
class ScreenModelTest : public ::testing::Test {
protected:
    enum class Display { shown, hidden };

    ScreenModelTest() { speak(AppLanguage::english); }

    /// A model as a screen makes it, with its first values.
    template <class Model>
    std::unique_ptr<Model> make(Display display = Display::shown) {
        auto model = std::make_unique<Model>();
        complete(*model, display);
        return model;
    }

    void complete(ScreenModel& model, Display display = Display::shown) {
        model.classBegin();
        model.setSession(&stage.session);
        model.setShown(display == Display::shown);
        model.componentComplete();
    }

    void speak(AppLanguage language) { stage.wear(language, ColorTheme::dusk); }
    const AppStrings& strings() const { return Appearance::shared().strings(); }
    void start(SessionMode mode = SessionMode::pomodoro) { stage.startSession(Stage::profile(mode), "write"); }
    void advance(double seconds) { stage.advance(seconds); }
    void settle() { stage.desktop.time.settle(); }
    Date now() const { return stage.desktop.time.now(); }
    /// Whether any timer is running.
    bool isAnythingUnderWay() const { return stage.desktop.time.nextDeadline().has_value(); }

    MemoryFiles files;
    Stage stage{files, "/data/Velmorin", Date{800'000'000}};
};

/// Whether a sentence is one of a moment's.
inline bool isFrom(const QString& text, QuoteCategory category, AppLanguage language = AppLanguage::english) {
    const auto known = sentences(category, language);
    return std::ranges::find(known, text.toStdString()) != known.end();
}

} // namespace velmorin
