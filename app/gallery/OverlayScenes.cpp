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

void finish(Stage& stage) {
    keepThoughts(stage);
    SessionRecord record;
    record.focusedSeconds = 100 * 60;
    record.completedRounds = 4;
    record.returns = 12;
    stage.controller.setOverlay(Overlay::Finished{record});
}

void finishDeep(Stage& stage) {
    SessionRecord record;
    record.mode = SessionMode::deep;
    record.focusedSeconds = 175 * 60;
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

/// Only for whoever looks at the details.
PictureScene detail(PictureScene scene) {
    scene.isOnSheet = false;
    return scene;
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
        detail(overlay("warning-small", warn, small)),
        detail(overlay("warning-long-small", warnLong, small)),
        detail(overlay("warning-large", warnReady, large)),
        overlay("exit", leave),
        acting(overlay("exit-ready", leaveAtOnce), writeReason),
        detail(overlay("exit-small", leaveAtOnce, small)),
        overlay("locked-break", restWithThoughts),
        detail(overlay("locked-break-small", restWithThoughts, small)),
        detail(overlay("locked-break-plain", rest)),
        overlay("back-to-work", comeBack),
        detail(overlay("back-to-work-long-small", comeBackLong, small)),
        overlay("finished", finish),
        detail(overlay("finished-deep-small", finishDeep, small)),
        detail(overlay("finished-large", finish, large)),
        secondary("secondary-warning", warn),
        secondary("secondary-rest", rest),
        detail(secondary("secondary-long", warnLong)),
        backdrop("backdrop", work),
        detail(backdrop("backdrop-thought", writeFromBackdrop)),
        backdrop("backdrop-rest", rest),
        backdrop("backdrop-phone", workWithLostPhone),
        detail(backdrop("backdrop-long-small", workLong, small)),
        detail(backdrop("backdrop-large", writeFromBackdrop, large)),
    };
}

} // namespace velmorin
