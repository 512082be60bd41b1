#pragma once

#include "core/session/SessionRecord.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// The projects that have a place, and with it a colour, of their own in the charts. A project is the name of a
/// profile. Places go to the projects that were used earliest, so that one stays with its project for good.
struct ProjectSlots {
    static constexpr std::size_t maximum = 5;
    /// The group of all projects without a place. It is data and the same in every language; screens show another
    /// word for it.
    static constexpr std::string_view otherName = "بقیه";

    std::vector<std::string> names; ///< at most `maximum`, in the order of first use

    ProjectSlots() = default;
    /// Takes the whole history, in any order; the records of one period would move the places.
    explicit ProjectSlots(std::span<const SessionRecord> records);

    /// The place of a project; absent when it has none.
    std::optional<std::size_t> slot(std::string_view name) const;

    bool operator==(const ProjectSlots&) const = default;
};

} // namespace velmorin
