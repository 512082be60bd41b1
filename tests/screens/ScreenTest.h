#pragma once

#include "app/gallery/AnimationClock.h"
#include "app/gallery/ScreenView.h"
#include "app/gallery/Stage.h"
#include "tests/support/MemoryFiles.h"

#include <QColor>
#include <QImage>
#include <QQuickItem>
#include <QString>
#include <QVariantMap>
#include <gtest/gtest.h>
#include <memory>
#include <string_view>
#include <vector>

namespace velmorin {

/// A real screen in a window, on the real engine, on a simulated desktop with its disk in memory. Time and animations
/// stand still but for `advance`. English and dusk, but for what a test says.
class ScreenTest : public ::testing::Test {
protected:
    static constexpr Date startOfScene{800'000'000};

    ScreenTest();
    ~ScreenTest() override;

    // The engine.
    Stage& stage() { return *m_stage; }
    SessionController& controller() { return m_stage->controller; }
    AppData& data() { return m_stage->data; }
    const AppStrings& strings() const { return Appearance::shared().strings(); }
    /// Starts a session and pushes against its lock, where the name is what the user tried to reach.
    void warn(std::string_view target = "Minesweeper", std::string_view intent = "write");

    // The window.
    /// Shows a component of Velmorin.Screens with its session and these properties, in place of what was shown before.
    void show(const QString& component, QVariantMap properties = {}, QSize size = {1280, 900});
    void close() { m_view.reset(); }
    ScreenView& view() { return *m_view; }
    QQuickItem& root() { return *m_view->rootObject(); }
    /// Lets time pass for the engine and for what moves on screen.
    void advance(double seconds);
    /// Lets what is under way be done, without time.
    void settle();

    // What is to be seen. Only what is visible, enabled or not, counts; with several, the first from the top of the
    // tree.
    /// The item of this name (`objectName`); null without one.
    QQuickItem* item(const QString& name) const;
    /// The item whose property `text` is this; null without one.
    QQuickItem* itemWithText(const QString& text) const;
    QQuickItem* itemWithText(std::string_view text) const;
    QQuickItem* itemWithText(const char* text) const { return itemWithText(std::string_view{text}); }
    /// The button with this text, or else with this accessible name; null without one.
    QQuickItem* button(std::string_view text) const;
    /// All that can be written in.
    std::vector<QQuickItem*> fields() const;
    /// Every text that is shown, from the top of the tree.
    QStringList texts() const;
    QImage picture() { return m_view->picture(); }
    /// The item that has the keyboard; null without one.
    QQuickItem* focused() const { return m_view->activeFocusItem(); }
    /// Where an item stands in the window.
    static QRectF place(const QQuickItem& item);

    // The user.
    void click(QQuickItem* item);
    /// Presses a key and lets it go.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// One half of a press, as a held key sends them.
    void keyDown(Qt::Key key, bool isRepeat = false);
    void keyUp(Qt::Key key);
    void type(const QString& text);

private:
    void send(QEvent::Type type, Qt::Key key, const QString& text, bool isRepeat);

    MemoryFiles m_files;
    AnimationClock m_animations;
    std::unique_ptr<Stage> m_stage;
    std::unique_ptr<ScreenView> m_view;
};

} // namespace velmorin
