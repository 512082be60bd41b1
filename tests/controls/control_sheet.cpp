#include "app/screens/components/AppFonts.h"
#include "app/strings/Appearance.h"

#include <QDir>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <array>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace velmorin;

constexpr std::array themes{ColorTheme::dusk, ColorTheme::dawn, ColorTheme::aurora};
constexpr std::array languages{AppLanguage::persian, AppLanguage::english, AppLanguage::german};

template <class Value>
QString name(Value value) {
    const auto text = rawValues(value)[static_cast<std::size_t>(value)];
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The sheet in each theme and language, as THEME-LANGUAGE.png. Whether all could be written.
bool writeSheets(QQuickView& view, const QDir& folder) {
    bool isWritten = true;
    for (const auto theme : themes) {
        for (const auto language : languages) {
            AppSettings settings;
            settings.colorTheme = theme;
            settings.language = language;
            Appearance::shared().apply(settings);
            // A text that wraps anew finds its height in the second round.
            view.grabWindow();
            QCoreApplication::processEvents();
            const QString file = folder.filePath(name(theme) + QLatin1Char('-') + name(language) + ".png");
            isWritten = view.grabWindow().save(file) && isWritten;
        }
    }
    return isWritten;
}

} // namespace

/// Draws every control in every theme and language, for eyes.
int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QGuiApplication application{count, arguments};
    if (count != 2) {
        std::fputs("Usage: velmorin-control-sheet FOLDER\n", stderr);
        return 2;
    }
    AppFonts::registerFonts(VELMORIN_FONTS);
    Appearance::shared().setReducesMotion(true);
    QQuickView view;
    view.engine()->addImportPath("qrc:/qt/qml");
    view.setSource(QUrl::fromLocalFile(VELMORIN_CONTROL_SHEET));
    if (view.status() != QQuickView::Ready) return EXIT_FAILURE;
    view.show();
    const QDir folder{QString::fromLocal8Bit(arguments[1])};
    return folder.mkpath(".") && writeSheets(view, folder) ? EXIT_SUCCESS : EXIT_FAILURE;
}
