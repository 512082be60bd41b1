#pragma once

#include "app/platform/linux/services/DesktopMotion.h"
#include "app/platform/linux/tray/LinuxStatusBar.h"
#include "app/platform/linux/x11/X11Connection.h"
#include "app/platform/linux/x11/X11HotKey.h"
#include "app/platform/linux/x11/X11Layers.h"
#include "app/platform/qt/QtScreens.h"
#include "app/platform/qt/QuickBackdrops.h"
#include "app/platform/qt/QuickContent.h"
#include "app/platform/qt/QuickMainWindow.h"
#include "app/platform/qt/QuickShields.h"
#include "app/shell/DesktopShell.h"
#include "app/shell/MainModel.h"
#include "app/shell/SessionModel.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <filesystem>
#include <memory>
#include <optional>

namespace velmorin {

/// What the program shows on a Linux desktop: windows of Qt Quick that know their place on X11, and an icon in the
/// tray. Main thread.
class LinuxShell final : public DesktopShell {
public:
    /// All must outlive this.
    struct Seams {
        MainLoop& loop;
        X11Connection& connection;
        Timers& timers;
        velmorin::Appearance& appearance; ///< of the screens, which hear from here how much may move
        std::filesystem::path icons;      ///< the folder with the icon in its sizes
        QByteArray applicationID;
        /// Whether the main window will soon be asked for; its content is then read meanwhile, by another thread.
        bool expectsMainWindow = false;
    };

    explicit LinuxShell(Seams seams);
    LinuxShell(const LinuxShell&) = delete;
    LinuxShell& operator=(const LinuxShell&) = delete;
    ~LinuxShell() override;

    void setAppearance(Appearance appearance) override;
    void setMainMenu(const MainMenu& menu, std::function<void(MenuAction)> chosen) override;
    ActivationPolicy activationPolicy() const override { return m_policy; }
    void setActivationPolicy(ActivationPolicy policy) override;
    void registerHotKey(Call pressed) override;

    std::unique_ptr<StatusItem> makeStatusItem(StatusItem::Calls calls) override;
    std::unique_ptr<OverlayCover> makeOverlayWindows(ShellContext& context) override;
    std::unique_ptr<BackdropCover> makeBackdropWindows(ShellContext& context) override;
    std::unique_ptr<MainWindow> makeMainWindow(ShellContext& context) override;
    std::unique_ptr<QuickThought> makeQuickThoughtPanel(ShellContext&) override { return nullptr; }
    std::unique_ptr<FloatingTimer> makeFloatingTimer(ShellContext&) override { return nullptr; }

private:
    class Window;

    void applyDirection();
    SessionModel& session(ShellContext& context);

    Seams m_seams;
    ActivationPolicy m_policy = ActivationPolicy::accessory;
    Appearance m_appearance = Appearance::dark;
    MainMenu m_menu;
    std::function<void(MenuAction)> m_chosen;
    std::optional<X11HotKey> m_hotKey;
    LinuxStatusBar m_statusBar;
    X11Layers m_layers;
    QtScreens m_screens;
    DesktopMotion m_motion;
    // The models go after the engine, whose objects show them.
    std::optional<SessionModel> m_session;
    std::optional<MainModel> m_main;
    QQmlEngine m_engine;
    std::optional<QQmlComponent> m_mainContent; ///< as long as it is read ahead
    QuickContent m_overlayContent;
    QuickContent m_backdropContent;
    QuickShields m_shields;
    QuickBackdrops m_backdrops;
    QuickMainWindow* m_window = nullptr; ///< null as long as it was not needed
    Cancellable m_preparing;
    Cancellable m_sessionWatch;
    Cancellable m_languageWatch;
    Cancellable m_motionWatch;
};

} // namespace velmorin
