#pragma once

#include "app/engine/AppData.h"
#include "app/engine/LaunchOptions.h"
#include "app/engine/Lifecycle.h"
#include "app/engine/SessionController.h"
#include "app/seams/BrowserSetup.h"
#include "app/seams/InstalledApplications.h"
#include "app/seams/Lifetime.h"
#include "app/shell/DesktopShell.h"
#include "app/shell/ShellContext.h"
#include "core/language/AppLanguage.h"
#include "core/store/Files.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>

namespace velmorin {

/// The one object that owns the running program: makes all that lives as long as the process, in a fixed order, and
/// connects the engine with what is shown. It holds no logic of a session. Main thread.
class AppDelegate {
public:
    /// What it needs of the platform. All must outlive it.
    struct Seams {
        std::filesystem::path defaultDirectory; ///< of the store, where the options name no other
        Files& files;
        AppData::Seams data;
        SessionController::Seams controller;
        InstalledApplications& installedApplications;
        Calendar calendar;
        PlatformCautions cautions;
        BrowserSetup* browserSetup = nullptr; ///< null where nothing has to be added to a browser
        /// How Control-Alt-T is written in a language; absent where there is no such key.
        std::string_view (*thoughtKeys)(AppLanguage) = nullptr;
    };
    enum class TerminateReply { now, cancel };

    /// Makes nothing yet. `shell` must outlive this.
    AppDelegate(LaunchOptions options, Seams seams, DesktopShell& shell);
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    /// Goes through the launch, once. The program may have been asked to end when this returns.
    void applicationDidFinishLaunching();
    /// Another start of the program has handed over to this one.
    void applicationShouldHandleReopen() { showMainWindow(); }
    /// The answer to every request to quit, wherever it comes from. During a session it is `cancel`, and the main
    /// window comes up; but the end of the whole system is let through.
    TerminateReply applicationShouldTerminate();
    /// Whether a closed main window ends the program: no, the status item stays.
    static constexpr bool applicationShouldTerminateAfterLastWindowClosed() { return false; }

    // The actions of the menus.
    void openMainFromMenu() { showMainWindow(); }
    void parkFromMenu();
    void toggleFloatingTimer();
    void emergencyFromMenu();
    void quitFromMenu();
    /// Does what an item stands for, but for what goes to whoever has the keyboard.
    void perform(MenuAction action);

    MainMenu makeMainMenu() const;
    /// Makes the content of the status item's menu anew, for the present moment.
    void menuNeedsUpdate(Menu& menu) const;

    /// Whether the system has announced its end.
    bool isSystemShuttingDown() const { return m_lifecycle && m_lifecycle->isSystemShuttingDown(); }

private:
    void makeParts();
    void setMainMenu();
    void connectCallbacks();
    void settleAfterLaunch();

    void overlayChanged(const OverlayState& state);
    void hotKeyPressed();
    void refreshStatusItem();
    void refreshBackdrop();
    void refreshFloatingTimer();
    void hideMainWindowDuringSession();
    void refreshActivationPolicy();
    void showMainWindow();
    void applyWindowAppearance();
    void languageMayHaveChanged();

    const AppStrings& strings() const { return m_seams.data.appearance.strings(); }
    bool isActive() const { return m_controller->isActive(); }

    LaunchOptions m_options;
    Seams m_seams;
    DesktopShell& m_shell;
    // Absent before the launch.
    std::optional<AppData> m_data;
    std::optional<SessionController> m_controller;
    std::optional<Lifecycle> m_lifecycle;
    std::optional<ShellContext> m_context;
    std::unique_ptr<OverlayCover> m_overlayWindows;
    std::unique_ptr<BackdropCover> m_backdropWindows;
    std::unique_ptr<FloatingTimer> m_floatingTimer; ///< null where the program has none
    std::unique_ptr<QuickThought> m_quickThought;   ///< null where the program has none
    std::unique_ptr<StatusItem> m_statusItem;
    std::unique_ptr<MainWindow> m_mainWindow; ///< made on first use
    Cancellable m_phoneWatch;
    Lifetime m_lifetime;
};

} // namespace velmorin
