#pragma once

#include "core/foundation/Fields.h"

#include <string>
#include <tuple>
#include <type_traits>

namespace velmorin {

/// An application that the user allows during a session.
struct AllowedApp {
    std::string bundleID; ///< the application's identifier, which also names this value
    std::string name;     ///< for display

    bool operator==(const AllowedApp&) const = default;
};

constexpr auto fields(std::type_identity<AllowedApp>) {
    return std::tuple{field("bundleID", &AllowedApp::bundleID), field("name", &AllowedApp::name)};
}

} // namespace velmorin
