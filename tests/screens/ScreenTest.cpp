#include "tests/screens/ScreenTest.h"

#include "app/shell/Text.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTest>
#include <algorithm>
#include <functional>

namespace velmorin {

namespace {

/// How finely time passes for what moves, in seconds.
constexpr double step = 1.0 / 32;

using Check = std::function<bool(QQuickItem&)>;

/// All visible items that pass, a parent before its children, these as they are stacked.
void collect(QQuickItem* item, const Check& check, std::vector<QQuickItem*>& found) {
    if (!item->isVisible()) return;
    if (check(*item)) found.push_back(item);
    for (QQuickItem* const child : item->childItems())
        collect(child, check, found);
}

std::vector<QQuickItem*> all(const ScreenView& view, const Check& check) {
    std::vector<QQuickItem*> found;
    collect(view.contentItem(), check, found);
    return found;
}

QQuickItem* first(const ScreenView& view, const Check& check) {
    const auto found = all(view, check);
    return found.empty() ? nullptr : found.front();
}

bool isButton(const QQuickItem& item) {
    return item.inherits("QQuickAbstractButton");
}

bool isField(const QQuickItem& item) {
    return item.inherits("QQuickTextInput") || item.inherits("QQuickTextEdit");
}

QString accessibleName(QQuickItem* item) {
    auto* const shown = QAccessible::queryAccessibleInterface(item);
    return shown ? shown->text(QAccessible::Name) : QString{};
}

} // namespace

ScreenTest::ScreenTest() {
    m_animations.install();
    m_stage = std::make_unique<Stage>(m_files, "/data/Velmorin", startOfScene);
    m_stage->wear(AppLanguage::english, ColorTheme::dusk);
}

ScreenTest::~ScreenTest() {
    m_view.reset();
    // What a screen has let go of goes before the engine.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Appearance::shared().setReducesMotion(false);
    m_animations.uninstall();
}

void ScreenTest::warn(std::string_view target, std::string_view intent) {
    stage().startSession(Stage::profile(SessionMode::pomodoro), intent);
    stage().push(target);
}

void ScreenTest::show(const QString& component, QVariantMap properties, QSize size) {
    m_view.reset();
    properties.insert(QStringLiteral("session"), QVariant::fromValue(&stage().session));
    m_view = std::make_unique<ScreenView>(component, properties, size);
    settle();
}

void ScreenTest::advance(double seconds) {
    for (double left = seconds; left > 0; left -= step) {
        const double next = std::min(left, step);
        stage().advance(next);
        m_animations.advanceBy(next);
        QCoreApplication::processEvents();
    }
    settle();
}

void ScreenTest::settle() {
    stage().desktop.time.settle();
    QCoreApplication::processEvents();
    // What has changed takes its place, as with the next picture.
    QEvent request{QEvent::UpdateRequest};
    if (m_view && m_view->isVisible()) QCoreApplication::sendEvent(m_view.get(), &request);
}

QQuickItem* ScreenTest::item(const QString& name) const {
    return first(*m_view, [&name](const QQuickItem& candidate) { return candidate.objectName() == name; });
}

QQuickItem* ScreenTest::itemWithText(const QString& text) const {
    return first(*m_view, [&text](const QQuickItem& candidate) { return candidate.property("text") == text; });
}

QQuickItem* ScreenTest::itemWithText(std::string_view text) const {
    return itemWithText(toQString(text));
}

QQuickItem* ScreenTest::button(std::string_view text) const {
    const QString wanted = toQString(text);
    return first(*m_view, [&wanted](QQuickItem& candidate) {
        return isButton(candidate) && (candidate.property("text") == wanted || accessibleName(&candidate) == wanted);
    });
}

std::vector<QQuickItem*> ScreenTest::fields() const {
    return all(*m_view, isField);
}

QStringList ScreenTest::texts() const {
    QStringList texts;
    for (const QQuickItem* const shown :
         all(*m_view, [](const QQuickItem& candidate) { return candidate.inherits("QQuickText"); })) {
        const QString text = shown->property("text").toString();
        if (!text.isEmpty()) texts.push_back(text);
    }
    return texts;
}

QRectF ScreenTest::place(const QQuickItem& item) {
    return item.mapRectToScene({0, 0, item.width(), item.height()});
}

void ScreenTest::click(QQuickItem* item) {
    ASSERT_TRUE(item);
    QTest::mouseClick(m_view.get(), Qt::LeftButton, {}, place(*item).center().toPoint());
    settle();
}

void ScreenTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(m_view.get(), key, modifiers);
    settle();
}

void ScreenTest::keyDown(Qt::Key key, bool isRepeat) {
    send(QEvent::KeyPress, key, key == Qt::Key_Space ? QStringLiteral(" ") : QString{}, isRepeat);
}

void ScreenTest::keyUp(Qt::Key key) {
    send(QEvent::KeyRelease, key, {}, false);
}

void ScreenTest::type(const QString& text) {
    for (const QChar character : text) {
        send(QEvent::KeyPress, Qt::Key_unknown, character, false);
        send(QEvent::KeyRelease, Qt::Key_unknown, character, false);
    }
}

void ScreenTest::send(QEvent::Type type, Qt::Key key, const QString& text, bool isRepeat) {
    QKeyEvent event{type, key, Qt::NoModifier, text, isRepeat};
    QCoreApplication::sendEvent(m_view.get(), &event);
    settle();
}

} // namespace velmorin
