#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// Binary data.
using Bytes = std::vector<std::uint8_t>;

/// Standard base64 with padding and without line breaks (RFC 4648, section 4).
std::string base64(const Bytes& bytes);

/// Reads strict standard base64 with padding; absent for any other text.
std::optional<Bytes> bytesFromBase64(std::string_view text);

/// Bytes from the system's cryptographic random source. Ends the program where that has none to give: everything
/// drawn from it has to be secret.
Bytes randomBytes(std::size_t count);

/// A source of random bytes.
using ByteSource = std::function<Bytes(std::size_t count)>;

/// A whole number from 0 up to, not including, `bound`, each as likely, from a source. `bound` is at least 1.
std::uint64_t randomBelow(std::uint64_t bound, const ByteSource& source = randomBytes);

/// Overwrites secret bytes, also where the compiler sees that nobody reads them again.
void wipe(Bytes& bytes);

} // namespace velmorin
