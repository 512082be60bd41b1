#pragma once

#include "app/platform/linux/browsers/KnownBrowsers.h"

#include <optional>
#include <string>
#include <string_view>

namespace velmorin {

/// What a script asks for.
struct ScriptCommand {
    const KnownBrowser* browser; ///< never null
    /// The window whose tab is to be blanked; absent where the tabs are to be listed. It may be empty, or no window's.
    std::optional<std::string> windowToBlank;
};

/// Understands the two scripts by which browsers are read, to the letter, for each browser of the table: the one that
/// lists the tabs of all windows, and the one that sends a window's tab to the blank page. Absent for any other text.
std::optional<ScriptCommand> parseScript(std::string_view script);

} // namespace velmorin
