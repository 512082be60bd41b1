#pragma once

#include "core/foundation/Date.h"
#include "core/foundation/Fields.h"
#include "core/foundation/UUID.h"

#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace velmorin {

/// A note parked during a session, so that it stops demanding attention.
struct Thought {
    UUID id;
    std::string text;
    Date createdAt;
    bool done = false;
    std::optional<Date> updatedAt; ///< absent until its first change

    Thought() = default;
    Thought(std::string words, Date created, UUID freshID = UUID::random())
        : id{freshID}, text{std::move(words)}, createdAt{created} {}

    /// The moment of the last change, by which two versions of one thought are compared.
    Date changedAt() const { return updatedAt.value_or(createdAt); }

    bool operator==(const Thought&) const = default;
};

constexpr auto fields(std::type_identity<Thought>) {
    return std::tuple{
        field("id", &Thought::id),     field("text", &Thought::text),           field("createdAt", &Thought::createdAt),
        field("done", &Thought::done), field("updatedAt", &Thought::updatedAt),
    };
}

} // namespace velmorin
