#pragma once

#include "app/platform/linux/browsers/ShownTab.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmorin {

/// What the extension answers to a request.
struct BrowserReply {
    std::int64_t id = 0;
    /// Every tab that is shown; empty in an answer to another request than for the list.
    std::vector<ShownTab> tabs;
    /// What failed, for people; absent where nothing did.
    std::optional<std::string> error;

    /// Reads a message of the extension, which must be one JSON object with an `id`. Members that it does not know are
    /// passed over. Absent for anything else, and where a tab lacks its window or address or has an impossible place.
    static std::optional<BrowserReply> parse(std::string message);
};

} // namespace velmorin
