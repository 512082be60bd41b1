#pragma once

#include "app/seams/MainWindow.h"
#include "app/seams/Menu.h"

#include <QByteArray>
#include <QUrl>
#include <QVariantMap>
#include <functional>
#include <memory>

class QQmlEngine;
class QQuickView;

namespace velmorin {

/// The main window with Qt Quick: in the middle of the screen at first, where its user left it from then on. While it
/// is not on the screen nothing of it is drawn, and its items count as invisible. Main thread.
class QuickMainWindow final : public MainWindow {
public:
    struct Content {
        QUrl component;         ///< a component of QML
        QVariantMap properties; ///< the values of its own properties
    };

    /// Makes it without showing it. `applicationID` is what the desktop knows the program by. The engine, and what the
    /// properties name, must outlive this.
    QuickMainWindow(QQmlEngine& engine, const Content& content, QByteArray applicationID);
    QuickMainWindow(const QuickMainWindow&) = delete;
    QuickMainWindow& operator=(const QuickMainWindow&) = delete;
    ~QuickMainWindow() override;

    void makeKeyAndOrderFront() override;
    void orderOut() override;
    bool isVisible() const override;
    void setTitle(std::string_view title) override;

    /// The keys of these menus work while it has the keyboard. What is not for itself or its focused item goes to
    /// `chosen`.
    void setMenu(MainMenu menu, std::function<void(MenuAction)> chosen);
    /// Whether the frame is to be dark.
    void setDark(bool isDark);
    /// Whether the taskbar leaves it out.
    void setSkipsTaskbar(bool skips);

    QQuickView& view() const;

private:
    class View;

    void tellDesktop();

    std::unique_ptr<View> m_view;
    QByteArray m_applicationID;
    bool m_isDark = false;
    bool m_skipsTaskbar = false;
};

} // namespace velmorin
