#include "core/phone/PhonePairing.h"

#include "core/phone/PhoneWire.h"

#include <utility>

namespace velmorin {

PhonePairing::PhonePairing(Bytes pairID, Bytes pairKey) : id{std::move(pairID)}, key{std::move(pairKey)} {}

PhonePairing& PhonePairing::operator=(const PhonePairing& other) {
    return *this = PhonePairing{other};
}

PhonePairing& PhonePairing::operator=(PhonePairing&& other) noexcept {
    // What this one held goes, and is overwritten, with the other.
    std::swap(id, other.id);
    std::swap(key, other.key);
    return *this;
}

PhonePairing::~PhonePairing() {
    wipe(id);
    wipe(key);
}

PhonePairing PhonePairing::generate(const ByteSource& source) {
    Bytes id = source(16);
    return {std::move(id), source(32)};
}

std::string PhonePairing::commandTopic() const {
    return "vlmr-" + PhoneWire::base64URL(id) + "-c";
}

std::string PhonePairing::statusTopic() const {
    return "vlmr-" + PhoneWire::base64URL(id) + "-s";
}

std::string PhonePairing::uri() const {
    return "velmorin://pair?v=1&id=" + PhoneWire::base64URL(id) + "&k=" + PhoneWire::base64URL(key);
}

} // namespace velmorin
