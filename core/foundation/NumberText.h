#pragma once

#include <array>
#include <string_view>

namespace velmorin {

/// Room for any number: the largest double has 309 digits.
using NumberBuffer = std::array<char, 400>;

/// The shortest decimal digits that read back as the same double, written into `buffer`. A whole number is written
/// in full, without a fraction or an exponent; infinities and the like have no digits to rely on.
std::string_view numberText(double value, NumberBuffer& buffer);

} // namespace velmorin
