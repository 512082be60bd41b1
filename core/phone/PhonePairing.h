#pragma once

#include "core/foundation/Bytes.h"
#include "core/foundation/Fields.h"

#include <string>
#include <tuple>
#include <type_traits>

namespace velmorin {

/// The secret that a pairing with a phone creates. Its bytes are overwritten when it goes.
struct PhonePairing {
    Bytes id;  ///< 16 bytes; the names of the topics are made from it
    Bytes key; ///< 32 bytes, for both directions

    PhonePairing() = default;
    PhonePairing(Bytes pairID, Bytes pairKey);
    PhonePairing(const PhonePairing&) = default;
    PhonePairing(PhonePairing&&) noexcept = default;
    PhonePairing& operator=(const PhonePairing& other);
    PhonePairing& operator=(PhonePairing&& other) noexcept;
    ~PhonePairing();

    /// A new pairing, from the system's cryptographic random source unless another is given.
    static PhonePairing generate(const ByteSource& source = randomBytes);

    /// Where the desktop writes and the phone reads.
    std::string commandTopic() const;
    /// Where the phone writes and the desktop reads.
    std::string statusTopic() const;
    /// The address that carries the pairing to the phone as a QR code.
    std::string uri() const;

    bool operator==(const PhonePairing&) const = default;
};

constexpr auto fields(std::type_identity<PhonePairing>) {
    return std::tuple{field("id", &PhonePairing::id), field("key", &PhonePairing::key)};
}

} // namespace velmorin
