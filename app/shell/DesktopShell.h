#pragma once

#include "app/seams/MainWindow.h"
#include "app/seams/Menu.h"
#include "app/seams/RunningApplication.h"
#include "app/seams/StatusItem.h"
#include "app/shell/Covers.h"
#include "app/shell/Panels.h"
#include "app/shell/ShellContext.h"

#include <functional>
#include <memory>

namespace velmorin {

/// Makes what the program shows on a desktop. What it makes goes before the context does. Main thread.
class DesktopShell {
public:
    enum class Appearance { light, dark };
    using Call = std::function<void()>;

    virtual ~DesktopShell() = default;

    /// How the desktop shall draw what it adds to our windows.
    virtual void setAppearance(Appearance appearance) = 0;
    /// `chosen` gets what is not for whoever has the keyboard.
    virtual void setMainMenu(const MainMenu& menu, std::function<void(MenuAction)> chosen) = 0;
    /// Whether the program stands among the running applications of the desktop; a process starts as `accessory`, which
    /// does not.
    virtual ActivationPolicy activationPolicy() const = 0;
    virtual void setActivationPolicy(ActivationPolicy policy) = 0;
    /// Calls each time Control-Alt-T is pressed, whoever has the keyboard, as long as the process lives. Where another
    /// program has that key, nothing is told.
    virtual void registerHotKey(Call pressed) = 0;

    virtual std::unique_ptr<StatusItem> makeStatusItem(StatusItem::Calls calls) = 0;
    virtual std::unique_ptr<OverlayCover> makeOverlayWindows(ShellContext& context) = 0;
    virtual std::unique_ptr<BackdropCover> makeBackdropWindows(ShellContext& context) = 0;
    virtual std::unique_ptr<MainWindow> makeMainWindow(ShellContext& context) = 0;
    /// Null where the program has none.
    virtual std::unique_ptr<QuickThought> makeQuickThoughtPanel(ShellContext& context) = 0;
    /// Null where the program has none.
    virtual std::unique_ptr<FloatingTimer> makeFloatingTimer(ShellContext& context) = 0;
};

} // namespace velmorin
