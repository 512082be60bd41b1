#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// The lines of a file in tests/data. Throws when it cannot be read or is empty: a test without data tests nothing.
std::vector<std::string> testDataLines(std::string_view fileName);

/// The columns of a line, separated by tabs.
std::vector<std::string> columns(std::string_view line);

/// The bytes of a text of hexadecimal digits.
std::string bytesFromHex(std::string_view text);

/// The double with these bits, given as 16 hexadecimal digits.
double doubleFromBits(std::string_view hex);

} // namespace velmorin
