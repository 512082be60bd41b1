#pragma once

#include "core/foundation/UUID.h"
#include "core/phone/PhoneThought.h"

#include <optional>
#include <string>
#include <variant>

/// What the phone tells the desktop. Read only, never written here.
namespace velmorin::PhoneStatus {

/// The phone is locked for this session.
struct Locked {
    UUID id;
    bool operator==(const Locked&) const = default;
};

/// The user on the phone got out before the end of this session.
struct Released {
    UUID id;
    bool operator==(const Released&) const = default;
};

/// The phone could not lock for this session.
struct NotReady {
    UUID id;
    bool operator==(const NotReady&) const = default;
};

/// The phone has taken up the pairing.
struct Hello {
    bool operator==(const Hello&) const = default;
};

using Status = std::variant<Locked, Released, NotReady, PhoneThought, Hello>;

/// Reads a message. Absent for anything malformed, and for a type that is not known, as a newer phone may send it.
std::optional<Status> decode(std::string text);

} // namespace velmorin::PhoneStatus
