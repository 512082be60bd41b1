#pragma once

#include "app/engine/AppData.h"
#include "app/engine/SessionController.h"
#include "app/seams/BrowserSetup.h"
#include "app/seams/Clock.h"
#include "app/seams/InstalledApplications.h"
#include "app/seams/Timers.h"
#include "app/seams/Workspace.h"
#include "app/strings/AppWarnings.h"
#include "app/strings/Appearance.h"
#include "core/foundation/Calendar.h"
#include "core/language/AppLanguage.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace velmorin {

/// What the view models show and call. All references must outlive them.
struct ShellContext {
    AppData& data;
    SessionController& controller;
    Appearance& appearance;
    Clock& clock;
    Timers& timers;
    Workspace& workspace;
    InstalledApplications& installedApplications;
    Calendar calendar;                   ///< that of the user's time zone
    std::optional<std::string> bundleID; ///< this program's own identifier
    PlatformCautions cautions;
    BrowserSetup* browserSetup = nullptr; ///< null where nothing has to be added to a browser
    /// Opens what takes a thought; absent where there is nothing that does.
    std::function<void()> writeThought = nullptr;
    /// The keys that do so from anywhere, as they are written in a language; absent where there are none.
    std::string_view (*thoughtKeys)(AppLanguage) = nullptr;
};

} // namespace velmorin
