#include "core/foundation/NumberText.h"

#include <charconv>
#include <cmath>
#include <cstdint>

namespace velmorin {

std::string_view numberText(double value, NumberBuffer& buffer) {
    char* const first = buffer.data();
    char* const last = first + buffer.size();
    if (value != std::trunc(value)) return {first, std::to_chars(first, last, value).ptr};

    // Up to here every whole double is the integer itself, whose digits are found sooner; a negative zero is none.
    constexpr double exact = 9'007'199'254'740'992.0;
    if (std::abs(value) <= exact && !(value == 0 && std::signbit(value))) {
        return {first, std::to_chars(first, last, static_cast<std::int64_t>(value)).ptr};
    }
    return {first, std::to_chars(first, last, value, std::chars_format::fixed).ptr};
}

} // namespace velmorin
