#include "app/program/Toolkit.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDebug>
#include <QQmlExtensionPlugin>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <array>

Q_IMPORT_QML_PLUGIN(Velmorin_ShellPlugin)
Q_IMPORT_QML_PLUGIN(Velmorin_ControlsPlugin)
Q_IMPORT_QML_PLUGIN(Velmorin_ScreensPlugin)

namespace velmorin::Toolkit {

namespace {

/// A variable goes for the life of this only, so that other programs still find it.
class Without {
public:
    explicit Without(const char* variable) : m_variable{variable}, m_before{qgetenv(variable)} { qunsetenv(variable); }
    Without(const Without&) = delete;
    Without& operator=(const Without&) = delete;
    ~Without() {
        if (!m_before.isNull()) qputenv(m_variable, m_before);
    }

private:
    const char* m_variable;
    QByteArray m_before;
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
    // Without GLib's loop neither a timer nor the display would ever be heard of again.
    const Without refusalOfGLib{"QT_NO_GLIB"};
    // As a client of the X session manager the toolkit would close all windows and end the process when told to, and
    // also when that manager goes, and nobody here would be asked. Those who end a session are heard on the bus.
    const Without sessionManager{"SESSION_MANAGER"};
    auto application = std::make_unique<QApplication>(count, words.data());
    QGuiApplication::setQuitOnLastWindowClosed(false);
    if (!QAbstractEventDispatcher::instance()->inherits("QEventDispatcherGlib"))
        qCritical("this toolkit was built without GLib, so that nothing will happen");
    return application;
}

} // namespace velmorin::Toolkit
