#include "app/program/Toolkit.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDebug>
#include <QQmlExtensionPlugin>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QSessionManager>
#include <array>

Q_IMPORT_QML_PLUGIN(Velmorin_ShellPlugin)
Q_IMPORT_QML_PLUGIN(Velmorin_ControlsPlugin)
Q_IMPORT_QML_PLUGIN(Velmorin_ScreensPlugin)

namespace velmorin::Toolkit {

namespace {

/// Without GLib's loop neither a timer nor the display would ever be heard of again. A variable by which a user has
/// turned it off goes for the time of the application's making only, so that other programs still find it.
class GLibLoop {
public:
    GLibLoop() { qunsetenv(variable); }
    GLibLoop(const GLibLoop&) = delete;
    GLibLoop& operator=(const GLibLoop&) = delete;
    ~GLibLoop() {
        if (!m_before.isNull()) qputenv(variable, m_before);
    }

private:
    static constexpr const char* variable = "QT_NO_GLIB";
    QByteArray m_before = qgetenv(variable);
};

} // namespace

std::unique_ptr<QApplication> makeApplication(char* program, const char* applicationID) {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QCoreApplication::setApplicationName(QStringLiteral("Velmorin"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Dravoni"));
    QGuiApplication::setDesktopFileName(QLatin1String{applicationID});
    // The application keeps its arguments.
    static auto option = std::to_array("-platform");
    static auto platform = std::to_array("xcb");
    static std::array<char*, 4> words{program, option.data(), platform.data(), nullptr};
    static int count = 3;
    const GLibLoop loop;
    auto application = std::make_unique<QApplication>(count, words.data());
    QGuiApplication::setQuitOnLastWindowClosed(false);
    if (!QAbstractEventDispatcher::instance()->inherits("QEventDispatcherGlib"))
        qCritical("this toolkit was built without GLib, so that nothing will happen");
    // The watchdog brings a session back at the next login; else nobody has asked for this program then.
    QObject::connect(application.get(), &QGuiApplication::saveStateRequest,
                     [](QSessionManager& manager) { manager.setRestartHint(QSessionManager::RestartNever); });
    return application;
}

} // namespace velmorin::Toolkit
