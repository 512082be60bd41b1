#pragma once

#include "core/foundation/Date.h"
#include "core/foundation/JSONMembers.h"
#include "core/session/Thought.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// One thought as it travels between desktop and phone, in both directions. A deletion travels as a message, too.
struct PhoneThought {
    std::string id; ///< the thought's UUID in lower case
    std::string text;
    Date createdAt;
    Date updatedAt;
    bool done = false;
    bool deleted = false;

    PhoneThought() = default;
    /// Puts `thoughtID` into lower case.
    PhoneThought(std::string_view thoughtID, std::string words, Date created, Date updated, bool isDone,
                 bool isDeleted);

    /// Reads a message; absent when its type is another or a required member is missing or of another type.
    static std::optional<PhoneThought> fromObject(const JSONMembers& object);

    /// The message as JSON with sorted keys; absent when it has no JSON form.
    std::optional<std::string> encoded() const;

    bool operator==(const PhoneThought&) const = default;
};

/// A thought as a message, changed or deleted at the given moment.
PhoneThought message(const Thought& thought, Date changedAt, bool deleted);

/// The list after taking in a message; absent when it changes nothing: the message is older than what is known, is
/// about the deletion of a thought that is not known, or has an identifier that is none. A thought that is known keeps
/// its place; a new one is sorted in by its creation, newest first.
std::optional<std::vector<Thought>> merging(const PhoneThought& message, std::vector<Thought> thoughts);

} // namespace velmorin
