// No line from the relay opens unless it was sealed with the key, and one that reads as bytes is their only text.

#include "core/phone/PhoneWire.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmorin;
    static const Bytes key(32, 7);
    const std::string text{data, data + size};
    if (PhoneWire::open(text, key, PhoneWire::status)) std::abort();
    if (const auto bytes = PhoneWire::data(text)) {
        if (PhoneWire::base64URL(*bytes) != text.substr(0, text.find('='))) std::abort();
    }
    const Bytes message{data, data + size};
    const auto sealed = PhoneWire::seal(message, key, PhoneWire::command, Bytes(12, 1));
    if (!sealed || PhoneWire::open(*sealed, key, PhoneWire::command) != message) std::abort();
    return 0;
}
