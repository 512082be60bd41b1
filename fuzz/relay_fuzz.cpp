// Any line of the relay's stream is a message or nothing.

#include "app/phone/RelayLine.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string line{data, data + size};
    const auto message = velmorin::RelayLine::parse(line);
    if (message && line.find("message") == std::string::npos && line.find('\\') == std::string::npos) std::abort();
    return 0;
}
