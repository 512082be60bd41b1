#include "core/foundation/Bytes.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/rand.h>

namespace velmorin {

namespace {

constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// Groups of four characters of the alphabet, the last with up to two signs of padding. The library's reader also
/// takes white space and padding elsewhere.
bool isStrictBase64(std::string_view text) {
    if (text.size() % 4 != 0) return false;
    const auto characters = std::min(text.find_first_not_of(alphabet), text.size());
    const auto padding = text.substr(characters);
    return padding.empty() || padding == "=" || padding == "==";
}

} // namespace

std::string base64(const Bytes& bytes) {
    std::string text((bytes.size() + 2) / 3 * 4 + 1, '\0'); // the library adds an end mark
    const int length =
        EVP_EncodeBlock(reinterpret_cast<unsigned char*>(text.data()), bytes.data(), static_cast<int>(bytes.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::optional<Bytes> bytesFromBase64(std::string_view text) {
    if (!isStrictBase64(text)) return std::nullopt;
    Bytes bytes(text.size() / 4 * 3);
    const int length = EVP_DecodeBlock(bytes.data(), reinterpret_cast<const unsigned char*>(text.data()),
                                       static_cast<int>(text.size()));
    if (length < 0) return std::nullopt;
    const auto padding = static_cast<std::size_t>(std::ranges::count(text, '='));
    bytes.resize(static_cast<std::size_t>(length) - padding);
    return bytes;
}

Bytes randomBytes(std::size_t count) {
    Bytes bytes(count);
    if (RAND_bytes(bytes.data(), static_cast<int>(count)) != 1) std::abort();
    return bytes;
}

std::uint64_t randomBelow(std::uint64_t bound, const ByteSource& source) {
    // The last, incomplete run of numbers would make the first ones likelier.
    const std::uint64_t incomplete = (0 - bound) % bound;
    for (;;) {
        std::uint64_t drawn = 0;
        const Bytes bytes = source(sizeof drawn);
        std::memcpy(&drawn, bytes.data(), sizeof drawn);
        if (drawn >= incomplete) return drawn % bound;
    }
}

void wipe(Bytes& bytes) {
    if (!bytes.empty()) OPENSSL_cleanse(bytes.data(), bytes.size());
}

} // namespace velmorin
