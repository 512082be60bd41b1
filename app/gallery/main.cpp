#include "app/gallery/Gallery.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QStyleHints>
#include <cstdio>
#include <exception>

namespace {

using namespace velmorin;

int run(const QCommandLineParser& arguments) {
    const QDir folder{arguments.positionalArguments().front()};
    if (!folder.mkpath(QStringLiteral("."))) {
        std::fprintf(stderr, "velmorin-gallery: cannot make the folder\n");
        return 1;
    }
    const Gallery gallery{allScenes()};
    const bool isWritten = arguments.isSet(QStringLiteral("sheets"))
                               ? gallery.writeSheets(folder)
                               : gallery.write(folder, arguments.value(QStringLiteral("only"))) >= 0;
    if (!isWritten) std::fprintf(stderr, "velmorin-gallery: cannot write a picture\n");
    return isWritten ? 0 : 1;
}

} // namespace

int main(int argumentCount, char** arguments) {
    ScreenView::drawOffscreen();
    const QGuiApplication application{argumentCount, arguments};
    ScreenView::loadFonts();
    QGuiApplication::styleHints()->setCursorFlashTime(0);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Every screen on a simulated desktop, as PNG files."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("OUT"), QStringLiteral("the folder to write to"));
    parser.addOption(
        {QStringLiteral("only"), QStringLiteral("Only the screens whose names begin so."), QStringLiteral("NAME")});
    parser.addOption({QStringLiteral("sheets"), QStringLiteral("One small sheet for each language instead.")});
    parser.process(application);
    if (parser.positionalArguments().size() != 1) parser.showHelp(2);
    int warnings = 0;
    ScreenView::onWarning([&warnings](const QString&) { ++warnings; });
    try {
        const int result = run(parser);
        return warnings > 0 ? 1 : result;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "velmorin-gallery: %s\n", error.what());
        return 1;
    }
}
