#pragma once

#include "app/platform/linux/browsers/KnownBrowsers.h"
#include "app/platform/linux/browsers/RuntimeFolder.h"
#include "app/platform/linux/browsers/ScriptOutcome.h"

#include <string_view>

namespace velmorin {

/// Sends what a window shows to the blank page, the window told by its identifier among all windows. An identifier that
/// is no window's, or that of a window that has gone, succeeds and does nothing. Waits without limit for a browser that
/// hangs.
ScriptOutcome blankTab(const KnownBrowser& browser, const RuntimeFolder& folder, std::string_view windowID);

} // namespace velmorin
