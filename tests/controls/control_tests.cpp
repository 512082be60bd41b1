#include "app/screens/components/AppFonts.h"
#include "tests/controls/Stage.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QtQuickTest>

namespace velmorin {

/// What the tests of the controls find when they begin.
class Setup : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void applicationAvailable() {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        AppFonts::registerFonts(VELMORIN_FONTS);
    }

    void qmlEngineAvailable(QQmlEngine* engine) {
        engine->addImportPath("qrc:/qt/qml");
        m_stage.reset();
        qmlRegisterSingletonInstance("Velmorin.Tests", 1, 0, "Stage", &m_stage);
    }

private:
    Stage m_stage;
};

} // namespace velmorin

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QTEST_SET_MAIN_SOURCE_PATH
    velmorin::Setup setup;
    return quick_test_main_with_setup(count, arguments, "controls", VELMORIN_CONTROL_TESTS, &setup);
}

#include "control_tests.moc"
