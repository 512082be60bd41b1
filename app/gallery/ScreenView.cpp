#include "app/gallery/ScreenView.h"

#include <QCoreApplication>
#include <QQmlEngine>
#include <QQmlError>
#include <QQmlExtensionPlugin>
#include <stdexcept>

Q_IMPORT_QML_PLUGIN(Velmorin_ShellPlugin)
Q_IMPORT_QML_PLUGIN(Velmorin_ControlsPlugin)
Q_IMPORT_QML_PLUGIN(Velmorin_ScreensPlugin)

namespace velmorin {

void ScreenView::drawOffscreen() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
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
