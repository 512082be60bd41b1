#pragma once

#include "core/rules/BrowserKind.h"

#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// The visible tab of one window of a browser.
struct BrowserTab {
    std::string windowID; ///< the browser's own, as text
    std::string url;      ///< empty when the browser gave none

    bool operator==(const BrowserTab&) const = default;
};

/// The scripts that read a browser's tabs, and what comes back. Pure; any thread.
namespace BrowserScripts {

/// A script that prints a line for each window: its identifier, "|||" and the address of its visible tab.
std::string listTabs(BrowserKind kind);

/// A script that sends the visible tab of one window to the blank page. Of the identifier only numbers are used, so
/// that nothing a browser says can become a command.
std::string blankTab(BrowserKind kind, std::string_view windowID);

/// The tabs in the output of `listTabs`, in the order of the lines. A line without the separator is skipped.
std::vector<BrowserTab> parseTabs(std::string_view output);

/// Whether an error output says that the user has refused this program the right to ask the browser.
bool isPermissionDenied(std::string_view standardError);

} // namespace BrowserScripts

} // namespace velmorin
