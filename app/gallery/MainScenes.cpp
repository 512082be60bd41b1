#include "app/gallery/PictureScene.h"
#include "app/gallery/PictureTexts.h"

#include <QColor>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <utility>

namespace velmorin {

namespace {

constexpr QSize usual{1080, 760};
constexpr QSize small{900, 680};
constexpr QSize tall{1000, 1480};

constexpr const char* chrome = "com.google.Chrome";
constexpr const char* terminal = "org.example.terminal";
constexpr const char* otherBrowser = "org.example.browser";

/// A browser that has to be set up.
class SceneBrowserSetup final : public BrowserSetup {
public:
    std::string pageAddress(BrowserKind) const override { return "chrome://extensions"; }
    std::string folder(BrowserKind) const override { return "/usr/share/velmorin/browser-extension/chromium"; }
    bool introduce(BrowserKind) override { return true; }
};

/// Three profiles, of which the first allows much and the names of the others are in other scripts.
void prepare(Stage& stage) {
    static SceneBrowserSetup setup;
    stage.context.browserSetup = &setup;
    stage.context.cautions.isEscapeHatch = [](std::string_view id) { return id == terminal; };
    stage.context.cautions.isUnsupportedBrowser = [](std::string_view id) { return id == otherBrowser; };
    Profile first{"پایان‌نامه", SessionMode::pomodoro};
    first.allowedApps = {
        {"org.example.writer", "Writer"}, {chrome, "Chromium"}, {terminal, "Terminal"}, {otherBrowser, "Browser"}};
    first.allowedDomains = {"example.org", "docs.example.com"};
    stage.data.setProfiles({first, Profile{"Deep reading", SessionMode::deep},
                            Profile{"Übungsaufgaben (练习, تمرین) für die nächste Prüfung", SessionMode::pomodoro}});
}

void prepareNothing(Stage& stage) {
    stage.data.setProfiles({});
}

void prepareLong(Stage& stage) {
    prepare(stage);
    const auto goal = pictureTexts(*stage.context.appearance.language()).longGoal;
    stage.main.start()->setIntent(QString::fromUtf8(goal.data(), static_cast<qsizetype>(goal.size())));
    stage.main.start()->select(2);
}

void work(Stage& stage) {
    prepare(stage);
    stage.startSession(Stage::profile(SessionMode::pomodoro), pictureTexts(*stage.context.appearance.language()).goal);
    stage.push("Minesweeper");
    stage.advance(10);
    stage.controller.returnToWork();
    stage.advance(7 * 60);
}

void rest(Stage& stage) {
    prepare(stage);
    stage.startSession(Stage::profile(SessionMode::deep), "");
    stage.advance(60 * 60 + 30);
}

void editProfile(Stage& stage) {
    prepare(stage);
    stage.main.setTab(MainModel::Profiles);
}

void editNewProfile(Stage& stage) {
    editProfile(stage);
    stage.main.profiles()->newProfile();
}

void editWithTroubles(Stage& stage) {
    editProfile(stage);
    auto* const editor = stage.main.profiles()->editor();
    editor->setNewDomain(QStringLiteral("nonsense"));
    editor->addDomain();
    stage.desktop.workspace.add({20, chrome, "Chromium"});
    stage.desktop.browsers.behave(BrowserKind::chrome, {SimulatedBrowsers::Denied{}});
    const auto browsers = editor->allowedBrowsers();
    auto* const browser = static_cast<QList<BrowserRow*>*>(browsers.data)->first();
    browser->setUp();
    browser->check();
    stage.advance(1);
}

/// A made up icon.
void drawIcon(const QString& file, int hue) {
    QImage icon{64, 64, QImage::Format_ARGB32_Premultiplied};
    icon.fill(Qt::transparent);
    QPainter painter{&icon};
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromHsv(hue, 140, 220));
    painter.drawRoundedRect(2, 2, 60, 60, 16, 16);
    painter.setBrush(QColor::fromHsv((hue + 40) % 360, 60, 250));
    painter.drawEllipse(18, 18, 28, 28);
    painter.end();
    icon.save(file);
}

void chooseApps(Stage& stage) {
    editProfile(stage);
    const QDir folder{QString::fromStdString(stage.data.store().directory().string())};
    folder.mkpath(QStringLiteral("."));
    int hue = 0;
    for (const auto* const name :
         {"Archive", "Calculator", "Draw", "ماشین حساب", "Notes", "Reader", "Writer", "Zeichnen",
          "An application whose name is much longer than its row", "Music", "Maps"}) {
        const auto id = std::string{"org.example."} + name;
        stage.desktop.installedApplications.apps.push_back({name, id, id});
        hue += 31;
        if (hue % 3 == 0) continue; // some have none
        const QString file = folder.filePath(QStringLiteral("icon%1.png").arg(hue));
        drawIcon(file, hue % 360);
        stage.desktop.installedApplications.icons[id] = file.toStdString();
    }
    auto* const editor = stage.main.profiles()->editor();
    editor->openPicker();
    editor->picker()->setOn(1, true);
    editor->picker()->setOn(4, true);
}

void search(Stage& stage) {
    chooseApps(stage);
    stage.main.profiles()->editor()->picker()->setQuery(QStringLiteral("r"));
}

PictureScene scene(const QString& name, std::function<void(Stage&)> setUp, QSize size = usual) {
    PictureScene made{name, size, QStringLiteral("MainView"), std::move(setUp)};
    made.isOnSheet = size != small;
    made.models = [](Stage& stage) { return QVariantMap{{QStringLiteral("model"), QVariant::fromValue(&stage.main)}}; };
    return made;
}

} // namespace

std::vector<PictureScene> mainScenes() {
    return {
        scene("start", prepare),
        scene("start-deep",
              [](Stage& stage) {
                  prepare(stage);
                  stage.main.start()->select(1);
              }),
        scene("start-small", prepare, small),
        scene("start-long-small", prepareLong, small),
        scene("start-none", prepareNothing),
        scene("session", work),
        scene("session-rest-small", rest, small),
        scene("profiles", editProfile, tall),
        scene("profiles-small", editProfile, small),
        scene("profiles-new", editNewProfile),
        scene("profiles-troubles", editWithTroubles, tall),
        scene("picker", chooseApps),
        scene("picker-search-small", search, small),
    };
}

} // namespace velmorin
