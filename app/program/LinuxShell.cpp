#include "app/program/LinuxShell.h"

#include "app/platform/qt/TrayStatusItem.h"
#include "app/screens/components/ClockDial.h"
#include "app/shell/BackdropWindows.h"
#include "app/shell/OverlayWindows.h"
#include "core/language/AppLanguage.h"

#include <QGuiApplication>
#include <QIcon>
#include <QImageReader>
#include <QLocale>
#include <QPixmap>
#include <QUrl>
#include <QVariant>
#include <string>
#include <utility>

namespace velmorin {

namespace {

QUrl screen(const char* name) {
    return QUrl{QStringLiteral("qrc:/qt/qml/Velmorin/Screens/%1.qml").arg(QLatin1String{name})};
}

/// A picture in the one format that ours have. Left to find that out itself, the toolkit would load what reads all the
/// others.
QPixmap picture(const QString& file) {
    QImageReader reader{file, "png"};
    reader.setAutoDetectImageFormat(false);
    return QPixmap::fromImageReader(&reader);
}

/// The program's icon in every size that lies there; else the mark that the program carries.
QIcon icon(const std::filesystem::path& folder) {
    QIcon made;
    for (const int size : {16, 22, 24, 32, 48, 64, 128}) {
        const auto file = folder / (std::to_string(size) + ".png");
        if (const auto read = picture(QString::fromStdString(file.string())); !read.isNull()) made.addPixmap(read);
    }
    if (made.isNull()) made.addPixmap(picture(QStringLiteral(":/qt/qml/Velmorin/Controls/AppMark.png")));
    return made;
}

} // namespace

LinuxShell::LinuxShell(Seams seams)
    : m_seams{std::move(seams)},
      m_statusBar{m_seams.loop, m_seams.connection},
      m_layers{m_seams.connection, m_seams.timers},
      m_screens{m_layers, m_seams.timers},
      m_overlayContent{m_engine, screen("OverlayView"),
                       [this](const CoverContent& content) {
                           return QVariantMap{{"session", QVariant::fromValue(&*m_session)},
                                              {"isPrimary", content.isPrimary},
                                              {"unit", content.unit}};
                       }},
      m_backdropContent{m_engine, screen("BackdropView"),
                        [this](const CoverContent& content) {
                            return QVariantMap{{"session", QVariant::fromValue(&*m_session)}, {"unit", content.unit}};
                        }},
      m_shields{m_overlayContent, m_layers, m_seams.timers},
      m_backdrops{m_backdropContent, m_layers, m_seams.timers} {
    m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    if (m_seams.expectsMainWindow) m_mainContent.emplace(&m_engine, screen("MainView"), QQmlComponent::Asynchronous);
    QGuiApplication::setWindowIcon(icon(m_seams.icons));
    m_languageWatch = m_seams.appearance.language().watch([this] { applyDirection(); });
    applyDirection();
    m_motionWatch =
        m_motion.reducesMotion().watch([this] { m_seams.appearance.setReducesMotion(*m_motion.reducesMotion()); });
}

LinuxShell::~LinuxShell() = default;

/// Of menus, the windows see to theirs; and the customs of the language.
void LinuxShell::applyDirection() {
    const bool isMirrored = isRightToLeft(*m_seams.appearance.language());
    QGuiApplication::setLayoutDirection(isMirrored ? Qt::RightToLeft : Qt::LeftToRight);
    const auto locale = localeIdentifier(*m_seams.appearance.language());
    QLocale::setDefault(QLocale{QString::fromLatin1(locale.data(), static_cast<qsizetype>(locale.size()))});
}

/// The main window, which this follows as long as it is there.
class LinuxShell::Window final : public MainWindow {
public:
    Window(LinuxShell& shell, const QuickMainWindow::Content& content)
        : m_shell{shell}, m_window{shell.m_engine, content, shell.m_seams.applicationID} {
        m_shell.m_window = &m_window;
    }
    ~Window() override { m_shell.m_window = nullptr; }

    void makeKeyAndOrderFront() override { m_window.makeKeyAndOrderFront(); }
    void orderOut() override { m_window.orderOut(); }
    bool isVisible() const override { return m_window.isVisible(); }
    void setTitle(std::string_view title) override { m_window.setTitle(title); }

private:
    LinuxShell& m_shell;
    QuickMainWindow m_window;
};

void LinuxShell::setAppearance(Appearance appearance) {
    m_appearance = appearance;
    if (m_window != nullptr) m_window->setDark(appearance == Appearance::dark);
}

void LinuxShell::setMainMenu(const MainMenu& menu, std::function<void(MenuAction)> chosen) {
    m_menu = menu;
    m_chosen = std::move(chosen);
    if (m_window != nullptr) m_window->setMenu(m_menu, m_chosen);
}

void LinuxShell::setActivationPolicy(ActivationPolicy policy) {
    m_policy = policy;
    if (m_window != nullptr) m_window->setSkipsTaskbar(policy != ActivationPolicy::regular);
}

void LinuxShell::registerHotKey(Call pressed) {
    m_hotKey.emplace(m_seams.connection, std::move(pressed));
}

std::unique_ptr<StatusItem> LinuxShell::makeStatusItem(StatusItem::Calls calls) {
    return std::make_unique<TrayStatusItem>(m_statusBar, QGuiApplication::windowIcon(), std::move(calls));
}

std::unique_ptr<OverlayCover> LinuxShell::makeOverlayWindows(ShellContext& context) {
    session(context);
    m_sessionWatch = context.controller.session().watch([this, &context] {
        if (!context.controller.isActive()) return;
        // The first warning must not wait for its screen to be read.
        constexpr double atRest = 2; // seconds after the start of a session, when all else is done
        m_preparing = m_seams.timers.after(atRest, [this] { m_overlayContent.prepare(); });
    });
    return std::make_unique<OverlayWindows>(
        OverlayWindows::Seams{m_screens, m_shields, m_shields, m_motion, m_seams.timers});
}

std::unique_ptr<BackdropCover> LinuxShell::makeBackdropWindows(ShellContext& context) {
    session(context);
    return std::make_unique<BackdropWindows>(BackdropWindows::Seams{m_screens, m_backdrops, m_motion, context.data});
}

std::unique_ptr<MainWindow> LinuxShell::makeMainWindow(ShellContext& context) {
    m_main.emplace(context);
    const QVariantMap properties{{"session", QVariant::fromValue(&session(context))},
                                 {"model", QVariant::fromValue(&*m_main)}};
    auto window = std::make_unique<Window>(*this, QuickMainWindow::Content{screen("MainView"), properties});
    m_mainContent.reset();
    setAppearance(m_appearance);
    setMainMenu(m_menu, m_chosen);
    setActivationPolicy(m_policy);
    return window;
}

SessionModel& LinuxShell::session(ShellContext& context) {
    if (!m_session) {
        m_session.emplace(context);
        ClockDial::setCalendar(context.calendar);
    }
    return *m_session;
}

} // namespace velmorin
