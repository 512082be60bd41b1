#include "app/shell/AppDelegate.h"

#include "app/shell/SessionModel.h"
#include "app/theme/ThemeColors.h"
#include "core/language/Formatting.h"

#include <string>
#include <utility>

namespace velmorin {

AppDelegate::AppDelegate(LaunchOptions options, Seams seams, DesktopShell& shell)
    : m_options{std::move(options)}, m_seams{std::move(seams)}, m_shell{shell} {}

void AppDelegate::applicationDidFinishLaunching() {
    const auto directory = m_options.homeDirectory.value_or(m_seams.defaultDirectory);
    m_data.emplace(JSONStore{directory, m_seams.files}, m_seams.data);
    m_seams.data.appearance.apply(*m_data->settings());
    applyWindowAppearance();
    m_data->onSettingsChange = m_lifetime.guard([this] { languageMayHaveChanged(); });
    m_controller.emplace(*m_data, m_seams.controller);
    m_lifecycle.emplace(m_options, *m_controller, m_seams.controller.workspace, m_seams.controller.application);
    if (m_lifecycle->isAnotherInstanceRunning()) {
        m_seams.controller.application.terminate();
        return;
    }
    makeParts();
    connectCallbacks();
    m_lifecycle->observePowerOff();
    m_lifecycle->resume();
    settleAfterLaunch();
}

void AppDelegate::makeParts() {
    setMainMenu();
    m_context.emplace(ShellContext{*m_data, *m_controller, m_seams.data.appearance, m_seams.data.clock,
                                   m_seams.data.timers, m_seams.controller.workspace, m_seams.installedApplications,
                                   m_seams.calendar, m_seams.controller.application.bundleIdentifier(),
                                   m_seams.cautions, m_seams.browserSetup});
    m_statusItem = m_shell.makeStatusItem({m_lifetime.guard([this](Menu& menu) { menuNeedsUpdate(menu); }),
                                           m_lifetime.guard([this](MenuAction action) { perform(action); }),
                                           m_lifetime.guard([this] { openMainFromMenu(); })});
    m_statusItem->setDescription(strings().appName);

    m_overlayWindows = m_shell.makeOverlayWindows(*m_context);
    m_quickThought = m_shell.makeQuickThoughtPanel(*m_context);
    if (m_quickThought) {
        m_context->writeThought = m_lifetime.guard([this] { m_quickThought->show(); });
        m_context->thoughtKeys = m_seams.thoughtKeys;
    }
    m_backdropWindows = m_shell.makeBackdropWindows(*m_context);
    m_floatingTimer = m_shell.makeFloatingTimer(*m_context);
    if (m_quickThought) m_shell.registerHotKey(m_lifetime.guard([this] { hotKeyPressed(); }));
}

void AppDelegate::connectCallbacks() {
    m_controller->onOverlayChange = m_lifetime.guard([this](const OverlayState& state) { overlayChanged(state); });
    m_controller->onTick = m_lifetime.guard([this] {
        refreshStatusItem();
        refreshBackdrop();
    });
    m_controller->onSessionBegan = m_lifetime.guard([this](const ActiveSession& session) {
        if (m_data->settings()->lockPhoneToo) m_data->phoneLink().sendStart(session);
    });
    m_controller->onSessionEnded =
        m_lifetime.guard([this](const ActiveSession& session) { m_data->phoneLink().sendEnd(session); });
    if (m_data->phoneLink().pairing()) m_data->phoneLink().startListening();
    m_phoneWatch = m_data->phoneLink().lockState().watch(m_lifetime.guard([this] { m_statusItem->menuChanged(); }));
    m_controller->onSessionChange = m_lifetime.guard([this] {
        refreshFloatingTimer();
        hideMainWindowDuringSession();
        refreshActivationPolicy();
    });
}

void AppDelegate::settleAfterLaunch() {
    refreshFloatingTimer();
    refreshActivationPolicy();
    switch (m_lifecycle->start()) {
    case Lifecycle::Start::showMainWindow: showMainWindow(); break;
    case Lifecycle::Start::stayBehind: break;
    case Lifecycle::Start::quit: m_seams.controller.application.terminate(); break;
    }
}

AppDelegate::TerminateReply AppDelegate::applicationShouldTerminate() {
    if (!m_lifecycle || m_lifecycle->answerToQuit() == Lifecycle::QuitAnswer::quit) return TerminateReply::now;
    showMainWindow();
    return TerminateReply::cancel;
}

void AppDelegate::parkFromMenu() {
    if (m_quickThought) m_quickThought->show();
}

void AppDelegate::toggleFloatingTimer() {
    auto settings = *m_data->settings();
    settings.showFloatingTimer = !settings.showFloatingTimer;
    m_data->setSettings(std::move(settings));
    refreshFloatingTimer();
}

void AppDelegate::emergencyFromMenu() {
    m_controller->beginEmergencyExit();
}

void AppDelegate::quitFromMenu() {
    m_seams.controller.application.terminate();
}

void AppDelegate::perform(MenuAction action) {
    switch (action) {
    case MenuAction::openMainFromMenu: openMainFromMenu(); break;
    case MenuAction::parkFromMenu: parkFromMenu(); break;
    case MenuAction::toggleFloatingTimer: toggleFloatingTimer(); break;
    case MenuAction::emergencyFromMenu: emergencyFromMenu(); break;
    case MenuAction::quitFromMenu:
    case MenuAction::terminate: quitFromMenu(); break;
    case MenuAction::none:
    case MenuAction::undo:
    case MenuAction::cut:
    case MenuAction::copy:
    case MenuAction::paste:
    case MenuAction::selectAll:
    case MenuAction::performClose: break;
    }
}

void AppDelegate::setMainMenu() {
    m_shell.setMainMenu(makeMainMenu(), m_lifetime.guard([this](MenuAction action) { perform(action); }));
}

MainMenu AppDelegate::makeMainMenu() const {
    const auto item = [](std::string_view text, MenuAction action, char key) {
        return MenuItem{std::string{text}, action, key};
    };
    const auto& texts = strings();
    return {
        {"", {item(texts.menuQuitApp, MenuAction::terminate, 'q')}},
        {std::string{texts.menuEdit},
         {item(texts.menuUndo, MenuAction::undo, 'z'), item(texts.menuCut, MenuAction::cut, 'x'),
          item(texts.menuCopy, MenuAction::copy, 'c'), item(texts.menuPaste, MenuAction::paste, 'v'),
          item(texts.menuSelectAll, MenuAction::selectAll, 'a')}},
        {std::string{texts.menuWindow}, {item(texts.menuClose, MenuAction::performClose, 'w')}},
    };
}

void AppDelegate::menuNeedsUpdate(Menu& menu) const {
    const auto add = [&menu](std::string_view text, MenuAction action) {
        menu.items.push_back({std::string{text}, action, std::nullopt});
    };
    const auto& texts = strings();
    menu.items.clear();
    add(texts.menuOpen, MenuAction::openMainFromMenu);
    if (m_quickThought) add(texts.menuWriteThought, MenuAction::parkFromMenu);
    menu.items.push_back(MenuItem::separator());
    if (!isActive()) {
        add(texts.menuQuit, MenuAction::quitFromMenu);
        return;
    }
    const auto phone = phoneStatusText(*m_context->data.phoneLink().lockState(), texts);
    if (!phone.empty()) add(phone, MenuAction::none);
    const bool isShown = m_data->settings()->showFloatingTimer;
    if (m_floatingTimer) add(isShown ? texts.menuHideTimer : texts.menuShowTimer, MenuAction::toggleFloatingTimer);
    add(texts.menuEndSession, MenuAction::emergencyFromMenu);
}

/// A change between two screens of the overlay keeps the windows, whose content follows.
void AppDelegate::overlayChanged(const OverlayState& state) {
    if (shows<Overlay::None>(state)) {
        m_overlayWindows->hide();
    } else if (!m_overlayWindows->isShown()) {
        m_overlayWindows->show();
    }
}

void AppDelegate::hotKeyPressed() {
    if (shows<Overlay::None>(*m_controller->overlay())) m_quickThought->show();
}

void AppDelegate::refreshStatusItem() {
    if (!m_statusItem) return;
    const auto& status = *m_controller->status();
    const auto language = *m_seams.data.appearance.language();
    // The blank keeps the text off the icon.
    m_statusItem->setTitle(status ? " " + compactRemaining(language, status->remainingInSegment) : "");
}

void AppDelegate::refreshBackdrop() {
    const auto& status = *m_controller->status();
    const bool isWanted = status && status->isLocked() && m_data->settings()->showQuoteBackdrop;
    if (isWanted == m_backdropWindows->isVisible) return;
    m_backdropWindows->isVisible = isWanted;
    if (isWanted) {
        m_backdropWindows->show(BackdropCover::Appearing::animated);
    } else {
        m_backdropWindows->hide();
        m_data->log("backdrop hidden");
    }
}

void AppDelegate::refreshFloatingTimer() {
    const bool isWanted = isActive() && m_data->settings()->showFloatingTimer;
    if (m_floatingTimer && isWanted) m_floatingTimer->orderFront();
    if (m_floatingTimer && !isWanted) m_floatingTimer->orderOut();
    refreshStatusItem();
}

/// It does not come back by itself when the session ends.
void AppDelegate::hideMainWindowDuringSession() {
    if (!isActive() || !m_mainWindow || !m_mainWindow->isVisible()) return;
    m_mainWindow->orderOut();
    m_data->log("main window hidden");
}

void AppDelegate::refreshActivationPolicy() {
    const bool isAccessory = isActive() || m_options.launchedByWatchdog;
    const auto wanted = isAccessory ? ActivationPolicy::accessory : ActivationPolicy::regular;
    if (m_shell.activationPolicy() == wanted) return;
    m_shell.setActivationPolicy(wanted);
    m_data->log(isAccessory ? "activation accessory" : "activation regular");
}

void AppDelegate::showMainWindow() {
    if (!m_context) return; // another instance runs, and this one ends
    if (!m_mainWindow) {
        m_mainWindow = m_shell.makeMainWindow(*m_context);
        m_mainWindow->setTitle(strings().appName);
    }
    m_mainWindow->makeKeyAndOrderFront();
}

void AppDelegate::applyWindowAppearance() {
    const bool isOnDark = ThemeColors::of(*m_seams.data.appearance.theme()).isDark;
    m_shell.setAppearance(isOnDark ? DesktopShell::Appearance::dark : DesktopShell::Appearance::light);
}

/// Comes with every change of the settings, and is harmless where none of it matters here.
void AppDelegate::languageMayHaveChanged() {
    applyWindowAppearance();
    if (!m_statusItem) return;
    if (m_mainWindow) m_mainWindow->setTitle(strings().appName);
    setMainMenu();
    m_statusItem->setDescription(strings().appName);
    refreshStatusItem();
}

} // namespace velmorin
