#include "app/gallery/Gallery.h"

#include "core/foundation/RawValue.h"
#include "core/store/PosixFiles.h"

#include <QCoreApplication>
#include <QPainter>
#include <QTemporaryDir>
#include <algorithm>
#include <iterator>

namespace velmorin {

namespace {

/// A quarter past nine in the morning of 15 May 2026, UTC.
constexpr Date startOfScene{800'529'300};
constexpr int columns = 4;
constexpr int thumbnailWidth = 300;
constexpr int thumbnailHeight = 195;
constexpr int sheetMargin = 10;
/// What is animated has come to rest after so many seconds.
constexpr double rest = 0.5;

template <class Value>
QString rawName(Value value) {
    const auto name = rawValue(value);
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

} // namespace

std::vector<PictureScene> allScenes() {
    auto scenes = mainScenes();
    std::ranges::move(overlayScenes(), std::back_inserter(scenes));
    return scenes;
}

QImage Gallery::picture(const PictureScene& scene, AppLanguage language, ColorTheme theme) {
    const QTemporaryDir directory;
    PosixFiles files;
    Stage stage{files, directory.path().toStdString(), startOfScene};
    stage.wear(language, theme);
    if (scene.setUp) scene.setUp(stage);
    QVariantMap properties = scene.properties;
    properties.insert(QStringLiteral("session"), QVariant::fromValue(&stage.session));
    if (scene.models) properties.insert(scene.models(stage));
    AnimationClock animations;
    animations.install();
    QImage taken;
    {
        ScreenView view{scene.component, properties, scene.size};
        if (scene.act) scene.act(view);
        stage.desktop.time.settle();
        QCoreApplication::processEvents();
        animations.advanceBy(rest);
        QCoreApplication::processEvents();
        taken = view.picture();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    animations.uninstall();
    return taken;
}

int Gallery::write(const QDir& folder, const QString& only) const {
    int count = 0;
    for (const auto& scene : m_scenes) {
        if (!scene.name.startsWith(only)) continue;
        for (const auto language : allCases<AppLanguage>()) {
            for (const auto theme : allCases<ColorTheme>()) {
                const QString name = QStringLiteral("%1-%2-%3.png").arg(scene.name, rawName(language), rawName(theme));
                if (!picture(scene, language, theme).save(folder.filePath(name))) return -1;
                ++count;
            }
        }
    }
    return count;
}

bool Gallery::writeSheets(const QDir& folder) const {
    const ColorTheme themes[]{ColorTheme::dusk, ColorTheme::dawn, ColorTheme::aurora};
    std::size_t next = 0;
    for (const auto language : allCases<AppLanguage>()) {
        const QString name = QStringLiteral("screens-%1.png").arg(rawName(language));
        if (!sheet(language, themes[next++ % std::size(themes)]).save(folder.filePath(name))) return false;
    }
    return true;
}

QImage Gallery::sheet(AppLanguage language, ColorTheme theme) const {
    std::vector<QImage> pictures;
    for (const auto& scene : m_scenes) {
        if (!scene.isOnSheet) continue;
        pictures.push_back(picture(scene, language, theme)
                               .scaled(thumbnailWidth, thumbnailHeight, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    }
    const int rows = (static_cast<int>(pictures.size()) + columns - 1) / columns;
    QImage sheet{columns * (thumbnailWidth + sheetMargin) + sheetMargin,
                 rows * (thumbnailHeight + sheetMargin) + sheetMargin, QImage::Format_RGB32};
    sheet.fill(Qt::white);
    QPainter painter{&sheet};
    int index = 0;
    for (const auto& reduced : pictures) {
        const int left = sheetMargin + index % columns * (thumbnailWidth + sheetMargin);
        const int top = sheetMargin + index / columns * (thumbnailHeight + sheetMargin);
        painter.drawImage(left + (thumbnailWidth - reduced.width()) / 2, top + (thumbnailHeight - reduced.height()) / 2,
                          reduced);
        ++index;
    }
    return sheet;
}

} // namespace velmorin
