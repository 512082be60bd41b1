// Whatever the phone says: a thought that is read is written and read again unchanged, and merging it twice is merging
// it once.

#include "core/phone/PhoneStatus.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <variant>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velmorin;
    const auto status = PhoneStatus::decode(std::string{data, data + size});
    if (!status || !std::holds_alternative<PhoneThought>(*status)) return 0;
    const auto& thought = std::get<PhoneThought>(*status);
    const auto text = thought.encoded();
    if (!text) std::abort();
    // Moments lose their last digits on the way from one epoch to the other, but only once.
    const auto again = PhoneStatus::decode(*text);
    if (!again || std::get<PhoneThought>(*again).text != thought.text) std::abort();
    const auto merged = merging(thought, {});
    if (!merged) return 0;
    if (merging(thought, *merged) != merged) std::abort();
    return 0;
}
