#pragma once

#include <cstdint>
#include <span>
#include <string_view>

/// The contents of the identity table. How to add a row stands in docs/identities.md.
namespace velmorin::IdentityTable {

/// What there is to know of an application besides its names.
enum class Kind : std::uint8_t {
    product,            ///< nothing
    escapeHatch,        ///< the lock could be got round with it
    unsupportedBrowser, ///< its tabs cannot be read
    systemPart,         ///< the lock passes over it
};

/// An application under all its names, these in lower case and parted by spaces.
struct Row {
    Kind kind;
    std::string_view bundleID;
    std::string_view names;    ///< of entries, Flatpaks, snaps and window classes; the preferred ones first
    std::string_view programs; ///< file names of what runs; none where the names say it all
};

/// Products and browsers.
std::span<const Row> productRows();
/// What can get round the lock.
std::span<const Row> escapeHatchRows();
/// Parts of the system.
std::span<const Row> systemRows();

} // namespace velmorin::IdentityTable
