#include "app/platform/qt/QuickMainWindow.h"

#include "app/platform/qt/XcbFrame.h"

#include <QExposeEvent>
#include <QKeyEvent>
#include <QLoggingCategory>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QScreen>
#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace velmorin {

namespace {

constexpr QSize usualSize{980, 820};
constexpr QSize minimumSize{900, 680};

// Tells when the window has been painted for the first time, for whoever measures the start.
Q_LOGGING_CATEGORY(start, "velmorin.start", QtWarningMsg)

/// Where the letters of menus are on a Latin keyboard, counted as Linux' input drivers do.
constexpr std::array<std::pair<quint32, Qt::Key>, 7> latinKeys{{
    {24, Qt::Key_Q},
    {25, Qt::Key_W},
    {38, Qt::Key_A},
    {52, Qt::Key_Z},
    {53, Qt::Key_X},
    {54, Qt::Key_C},
    {55, Qt::Key_V},
}};

/// The key by which a menu or a text field knows a letter pressed together with Control. A user whose only layout has
/// no Latin letters finds them where they would be; with a second layout that has them, the toolkit sees to that
/// itself.
int letterOf(const QKeyEvent& event) {
    constexpr int lastLatin = 0xff;
    if (event.modifiers() != Qt::ControlModifier || event.key() <= lastLatin) return event.key();
    const auto found = std::ranges::find(latinKeys, event.nativeScanCode(), &std::pair<quint32, Qt::Key>::first);
    return found == latinKeys.end() ? event.key() : found->second;
}

} // namespace

class QuickMainWindow::View final : public QQuickView {
public:
    explicit View(QQmlEngine& engine) : QQuickView{&engine, nullptr} {
        // What was drawn is let go while nobody sees it.
        setPersistentSceneGraph(false);
        setResizeMode(SizeRootObjectToView);
        contentItem()->setVisible(false);
        m_firstFrame = connect(this, &QQuickWindow::frameSwapped, this, [this] {
            disconnect(m_firstFrame);
            qCDebug(start, "the main window has been painted");
        });
    }

    MainMenu menu;
    std::function<void(MenuAction)> chosen;

protected:
    void exposeEvent(QExposeEvent* event) override {
        contentItem()->setVisible(isExposed());
        QQuickView::exposeEvent(event);
    }

    void keyPressEvent(QKeyEvent* event) override {
        const int key = letterOf(*event);
        if (key == event->key()) {
            QQuickView::keyPressEvent(event);
        } else {
            QKeyEvent letter{event->type(), key, event->modifiers(), {}, event->isAutoRepeat()};
            QQuickView::keyPressEvent(&letter);
            event->setAccepted(letter.isAccepted());
        }
        if (event->isAccepted() || event->modifiers() != Qt::ControlModifier) return;
        const auto action = actionOf(key);
        if (action == MenuAction::performClose) {
            event->accept();
            close();
        } else if (action && *action < MenuAction::undo) {
            event->accept();
            chosen(*action);
        }
    }

private:
    /// Letters have the same number as a key and as a character, but for their case.
    std::optional<MenuAction> actionOf(int key) const {
        for (const auto& each : menu) {
            const auto found = std::ranges::find_if(each.items, [key](const MenuItem& item) {
                return item.key && QChar::fromLatin1(*item.key).toUpper().unicode() == key;
            });
            if (found != each.items.end()) return found->action;
        }
        return std::nullopt;
    }

    QMetaObject::Connection m_firstFrame;
};

QuickMainWindow::QuickMainWindow(QQmlEngine& engine, const Content& content, QByteArray applicationID)
    : m_view{std::make_unique<View>(engine)}, m_applicationID{std::move(applicationID)} {
    m_view->setInitialProperties(content.properties);
    m_view->setSource(content.component);
    m_view->setMinimumSize(minimumSize);
    const auto place = m_view->screen()->availableGeometry();
    QRect frame{QPoint{}, usualSize.boundedTo(place.size()).expandedTo(minimumSize)};
    frame.moveCenter(place.center());
    m_view->setGeometry(frame);
}

QuickMainWindow::~QuickMainWindow() = default;

void QuickMainWindow::makeKeyAndOrderFront() {
    if (!m_view->isVisible()) {
        // Closed, it is made anew.
        m_view->create();
        tellDesktop();
        m_view->show();
    }
    m_view->setWindowStates(m_view->windowStates() & ~Qt::WindowMinimized);
    m_view->raise();
    m_view->requestActivate();
    XcbFrame::activate(*m_view);
}

void QuickMainWindow::orderOut() {
    m_view->hide();
}

bool QuickMainWindow::isVisible() const {
    return m_view->isVisible();
}

void QuickMainWindow::setTitle(std::string_view title) {
    m_view->setTitle(QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size())));
}

void QuickMainWindow::setMenu(MainMenu menu, std::function<void(MenuAction)> chosen) {
    m_view->menu = std::move(menu);
    m_view->chosen = std::move(chosen);
}

void QuickMainWindow::setDark(bool isDark) {
    m_isDark = isDark;
    XcbFrame::setDark(*m_view, m_isDark);
}

void QuickMainWindow::setSkipsTaskbar(bool skips) {
    m_skipsTaskbar = skips;
    XcbFrame::setSkipsTaskbar(*m_view, m_skipsTaskbar);
}

QQuickView& QuickMainWindow::view() const {
    return *m_view;
}

void QuickMainWindow::tellDesktop() {
    XcbFrame::setClass(*m_view, m_applicationID);
    XcbFrame::setDark(*m_view, m_isDark);
    XcbFrame::setSkipsTaskbar(*m_view, m_skipsTaskbar);
}

} // namespace velmorin
