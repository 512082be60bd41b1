#include "app/gallery/PictureScene.h"
#include "app/gallery/PictureTexts.h"

#include <QQuickItem>
#include <algorithm>
#include <utility>

namespace velmorin {

namespace {

constexpr QSize laptop{1440, 900};
constexpr QSize small{900, 650};
constexpr QSize large{2560, 1440};

/// What a screen of this size has every length multiplied by.
double unitOf(QSize size) {
    return std::clamp(size.height() / 1000.0, 1.0, 1.5);
}

const PictureTexts& texts(const Stage& stage) {
    return pictureTexts(*stage.context.appearance.language());
}

void work(Stage& stage) {
    stage.startSession(Stage::profile(SessionMode::pomodoro), texts(stage).goal);
    stage.advance(17 * 60);
}

void workLong(Stage& stage) {
    stage.startSession(Stage::profile(SessionMode::pomodoro), texts(stage).longGoal);
}

void keepThoughts(Stage& stage) {
    for (const auto thought : texts(stage).thoughts)
        stage.data.addThought(thought);
}

void warn(Stage& stage) {
    work(stage);
    stage.push("Minesweeper");
    stage.advance(2.5);
}

void warnLong(Stage& stage) {
    workLong(stage);
    stage.push("news.example.org – دوازده خبر داغ (12)");
    stage.advance(2.5);
}

void warnReady(Stage& stage) {
    warn(stage);
    stage.advance(2.5);
}

void leave(Stage& stage) {
    work(stage);
    stage.controller.beginEmergencyExit();
    stage.advance(5);
}

void leaveAtOnce(Stage& stage) {
    leave(stage);
    stage.advance(60);
}

void rest(Stage& stage) {
    stage.startSession(Stage::profile(SessionMode::deep), texts(stage).goal);
    stage.advance(60 * 60 + 30);
}

void restWithThoughts(Stage& stage) {
    keepThoughts(stage);
    rest(stage);
}

void comeBack(Stage& stage) {
    stage.startSession(Stage::profile(SessionMode::pomodoro), texts(stage).goal);
    stage.advance(30 * 60);
}

void comeBackLong(Stage& stage) {
    workLong(stage);
    stage.advance(30 * 60);
}

void finish(Stage& stage, SessionMode mode, std::int64_t returns) {
    keepThoughts(stage);
    SessionRecord record;
    record.mode = mode;
    record.focusedSeconds = mode == SessionMode::deep ? 175 * 60 : 100 * 60;
    if (mode == SessionMode::pomodoro) record.completedRounds = 4;
    record.returns = returns;
    stage.controller.setOverlay(Overlay::Finished{record});
}

void workWithLostPhone(Stage& stage) {
    stage.pairPhone();
    work(stage);
    stage.data.phoneLink().sendStart(**stage.controller.session());
    stage.advance(60);
}

void writeFromBackdrop(Stage& stage) {
    stage.context.writeThought = [] {};
    work(stage);
}

void write(ScreenView& view, const char* field, std::string_view text) {
    view.rootObject()->findChild<QQuickItem*>(field)->setProperty(
        "text", QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

void writeReason(ScreenView& view) {
    write(view, "reason", pictureTexts(*Appearance::shared().language()).reason);
}

PictureScene overlay(const QString& name, std::function<void(Stage&)> setUp, QSize size = laptop) {
    return {name, size, "OverlayView", std::move(setUp), {{"isPrimary", true}, {"unit", unitOf(size)}}};
}

PictureScene secondary(const QString& name, std::function<void(Stage&)> setUp) {
    return {name, laptop, "OverlayView", std::move(setUp), {{"isPrimary", false}, {"unit", unitOf(laptop)}}};
}

PictureScene backdrop(const QString& name, std::function<void(Stage&)> setUp, QSize size = laptop) {
    return {name, size, "BackdropView", std::move(setUp), {{"unit", unitOf(size)}}};
}

PictureScene acting(PictureScene scene, std::function<void(ScreenView&)> act) {
    scene.act = std::move(act);
    return scene;
}

} // namespace

std::vector<PictureScene> overlayScenes() {
    return {
        overlay("warning", warn),
        overlay("warning-ready", warnReady),
        overlay("warning-small", warn, small),
        overlay("warning-long-small", warnLong, small),
        overlay("warning-large", warnReady, large),
        overlay("exit", leave),
        acting(overlay("exit-ready", leaveAtOnce), writeReason),
        overlay("exit-small", leaveAtOnce, small),
        overlay("locked-break", restWithThoughts),
        overlay("locked-break-small", restWithThoughts, small),
        overlay("locked-break-plain", rest),
        overlay("back-to-work", comeBack),
        overlay("back-to-work-long-small", comeBackLong, small),
        overlay("finished", [](Stage& stage) { finish(stage, SessionMode::pomodoro, 12); }),
        overlay(
            "finished-deep-small", [](Stage& stage) { finish(stage, SessionMode::deep, 3); }, small),
        overlay(
            "finished-large", [](Stage& stage) { finish(stage, SessionMode::pomodoro, 0); }, large),
        secondary("secondary-warning", warn),
        secondary("secondary-rest", rest),
        secondary("secondary-long", warnLong),
        backdrop("backdrop", work),
        backdrop("backdrop-thought", writeFromBackdrop),
        backdrop("backdrop-rest", rest),
        backdrop("backdrop-phone", workWithLostPhone),
        backdrop("backdrop-long-small", workLong, small),
        backdrop("backdrop-large", writeFromBackdrop, large),
    };
}

} // namespace velmorin
