#include "app/gallery/ScreenView.h"

#include "app/screens/components/AppFonts.h"

#include <QCoreApplication>
#include <QQmlEngine>
#include <QQmlError>
#include <QQmlExtensionPlugin>
#include <cstdio>
#include <stdexcept>
#include <utility>

Q_IMPORT_QML_PLUGIN(Velmorin_ShellPlugin)
Q_IMPORT_QML_PLUGIN(Velmorin_ControlsPlugin)
Q_IMPORT_QML_PLUGIN(Velmorin_ScreensPlugin)

namespace velmorin {

namespace {

std::function<void(const QString&)> warningCall;

void tell(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    const QString line = qFormatLogMessage(type, context, text) + u'\n';
    std::fputs(line.toUtf8().constData(), stderr);
    if (type != QtDebugMsg && type != QtInfoMsg && warningCall) warningCall(text);
}

} // namespace

void ScreenView::drawOffscreen() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
}

void ScreenView::loadFonts() {
    AppFonts::registerFonts(QStringLiteral(VELMORIN_FONTS));
}

void ScreenView::onWarning(std::function<void(const QString&)> call) {
    warningCall = std::move(call);
    qInstallMessageHandler(tell);
}

ScreenView::ScreenView(const QString& component, const QVariantMap& properties, QSize size) {
    engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
    setResizeMode(SizeRootObjectToView);
    resize(size);
    setInitialProperties(properties);
    setSource(QUrl{QStringLiteral("qrc:/qt/qml/Velmorin/Screens/%1.qml").arg(component)});
    if (status() != Ready) {
        QString message = component;
        for (const auto& error : errors())
            message += u'\n' + error.toString();
        throw std::runtime_error{message.toStdString()};
    }
    show();
    requestActivate();
    QCoreApplication::processEvents();
}

} // namespace velmorin
