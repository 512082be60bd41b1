#include "core/phone/PhoneWire.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <openssl/evp.h>
#include <span>

namespace velmorin::PhoneWire {

namespace {

constexpr std::size_t nonceLength = 12;
constexpr std::size_t tagLength = 16;

/// The library counts in ints; no message is nearly as long.
constexpr std::size_t longestMessage = std::size_t{1} << 30;

using Context = std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)>;

/// The cipher for a key; none for a length that AES does not know. Pairings make keys of 256 bits.
const EVP_CIPHER* cipherFor(const Bytes& key) {
    switch (key.size()) {
    case 16: return EVP_aes_128_gcm();
    case 24: return EVP_aes_192_gcm();
    case 32: return EVP_aes_256_gcm();
    default: return nullptr;
    }
}

/// The context overwrites the key when it goes.
Context newContext() {
    return {EVP_CIPHER_CTX_new(), &EVP_CIPHER_CTX_free};
}

int lengthOf(std::span<const std::uint8_t> bytes) {
    return static_cast<int>(bytes.size());
}

const std::uint8_t* authenticated(std::string_view direction) {
    return reinterpret_cast<const std::uint8_t*>(direction.data());
}

/// Fills `box`, which begins with the nonce and has room for the rest. An empty text is skipped: the library takes its
/// null pointer for another request.
bool encrypt(std::span<const std::uint8_t> plaintext, const Bytes& key, std::string_view direction, Bytes& box) {
    const Context context = newContext();
    auto* const nonce = box.data();
    auto* const ciphertext = nonce + nonceLength;
    auto* const tag = ciphertext + plaintext.size();
    int length = 0;
    return context && EVP_EncryptInit_ex(context.get(), cipherFor(key), nullptr, key.data(), nonce) == 1 &&
           EVP_EncryptUpdate(context.get(), nullptr, &length, authenticated(direction),
                             static_cast<int>(direction.size())) == 1 &&
           (plaintext.empty() ||
            EVP_EncryptUpdate(context.get(), ciphertext, &length, plaintext.data(), lengthOf(plaintext)) == 1) &&
           EVP_EncryptFinal_ex(context.get(), tag, &length) == 1 &&
           EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_GCM_GET_TAG, tagLength, tag) == 1;
}

bool decrypt(std::span<const std::uint8_t> box, const Bytes& key, std::string_view direction, Bytes& plaintext) {
    const Context context = newContext();
    const auto nonce = box.first(nonceLength);
    const auto ciphertext = box.subspan(nonceLength, box.size() - nonceLength - tagLength);
    Bytes tag{box.end() - tagLength, box.end()};
    int length = 0;
    std::uint8_t nothing = 0;
    return context && EVP_DecryptInit_ex(context.get(), cipherFor(key), nullptr, key.data(), nonce.data()) == 1 &&
           EVP_DecryptUpdate(context.get(), nullptr, &length, authenticated(direction),
                             static_cast<int>(direction.size())) == 1 &&
           (ciphertext.empty() || EVP_DecryptUpdate(context.get(), plaintext.data(), &length, ciphertext.data(),
                                                    lengthOf(ciphertext)) == 1) &&
           EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_GCM_SET_TAG, tagLength, tag.data()) == 1 &&
           EVP_DecryptFinal_ex(context.get(), &nothing, &length) == 1;
}

} // namespace

std::string base64URL(const Bytes& bytes) {
    std::string text = base64(bytes);
    std::ranges::replace(text, '+', '-');
    std::ranges::replace(text, '/', '_');
    text.erase(std::min(text.find('='), text.size()));
    return text;
}

std::optional<Bytes> data(std::string_view base64URLText) {
    const auto unpadded = base64URLText.substr(0, base64URLText.find('='));
    const auto missing = (4 - unpadded.size() % 4) % 4;
    const auto padding = base64URLText.substr(unpadded.size());
    if (!padding.empty() && padding != std::string_view{"=="}.substr(0, missing)) return std::nullopt;

    std::string text{unpadded};
    std::ranges::replace(text, '-', '+');
    std::ranges::replace(text, '_', '/');
    text.append(missing, '=');
    auto bytes = bytesFromBase64(text);
    // Only one text stands for these bytes: none of standard base64, and none with bits to spare.
    if (!bytes || base64URL(*bytes) != unpadded) return std::nullopt;
    return bytes;
}

std::optional<std::string> seal(const Bytes& plaintext, const Bytes& key, std::string_view direction,
                                const std::optional<Bytes>& nonce) {
    if (cipherFor(key) == nullptr || plaintext.size() > longestMessage) return std::nullopt;
    Bytes box = nonce && nonce->size() == nonceLength ? *nonce : randomBytes(nonceLength);
    box.resize(nonceLength + plaintext.size() + tagLength);
    if (!encrypt(plaintext, key, direction, box)) return std::nullopt;
    return base64URL(box);
}

std::optional<Bytes> open(std::string_view sealed, const Bytes& key, std::string_view direction) {
    if (sealed.size() > longestMessage) return std::nullopt;
    const auto box = data(sealed);
    if (!box || box->size() < nonceLength + tagLength || cipherFor(key) == nullptr) return std::nullopt;
    Bytes plaintext(box->size() - nonceLength - tagLength);
    if (decrypt(*box, key, direction, plaintext)) return plaintext;
    wipe(plaintext);
    return std::nullopt;
}

} // namespace velmorin::PhoneWire
