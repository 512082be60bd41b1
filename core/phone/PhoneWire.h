#pragma once

#include "core/foundation/Bytes.h"

#include <optional>
#include <string>
#include <string_view>

/// Seals a message into one line of text and opens such a line: AES-256-GCM with a nonce of 12 bytes and a tag of 16
/// (NIST SP 800-38D), laid out as nonce, ciphertext, tag. The direction is authenticated with it, so that a message
/// cannot be played back the other way. Every failure is an absent value and nothing tells why. Pure; any thread.
namespace velmorin::PhoneWire {

/// What the desktop sends.
inline constexpr std::string_view command = "c";
/// What the desktop receives.
inline constexpr std::string_view status = "s";

/// base64url without padding (RFC 4648, section 5).
std::string base64URL(const Bytes& bytes);

/// Reads base64url, with all of its padding or without any; absent for any other text.
std::optional<Bytes> data(std::string_view base64URLText);

/// A sealed message. A nonce that is absent or not of 12 bytes is drawn at random. Absent for a key of a length that
/// AES does not know.
std::optional<std::string> seal(const Bytes& plaintext, const Bytes& key, std::string_view direction,
                                const std::optional<Bytes>& nonce = std::nullopt);

/// The plaintext of a sealed message; absent when the key, the direction or any bit of it is not the right one.
std::optional<Bytes> open(std::string_view sealed, const Bytes& key, std::string_view direction);

} // namespace velmorin::PhoneWire
