#pragma once

#include "core/rules/BrowserScripts.h"

#include <variant>
#include <vector>

namespace velmorin {

/// What came of asking a browser for its tabs.
namespace BrowserAnswer {

/// The user has refused this program the right to ask this browser.
struct Denied {
    bool operator==(const Denied&) const = default;
};

/// It did not answer, for any other reason: it quit meanwhile, took too long, or could not be asked.
struct NoAnswer {
    bool operator==(const NoAnswer&) const = default;
};

/// The visible tab of each window; none for a browser without windows.
struct Tabs {
    std::vector<BrowserTab> tabs;
    bool operator==(const Tabs&) const = default;
};

} // namespace BrowserAnswer

using BrowserResult = std::variant<BrowserAnswer::Denied, BrowserAnswer::NoAnswer, BrowserAnswer::Tabs>;

} // namespace velmorin
