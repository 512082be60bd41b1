#include "tests/support/TestData.h"

#include <bit>
#include <cstdint>
#include <fstream>
#include <stdexcept>

namespace velmorin {

std::vector<std::string> testDataLines(std::string_view fileName) {
    std::ifstream file{std::string{VELMORIN_TEST_DATA} + "/" + std::string{fileName}};
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(std::move(line));
    if (lines.empty()) throw std::runtime_error{"no test data in " + std::string{fileName}};
    return lines;
}

std::vector<std::string> columns(std::string_view line) {
    std::vector<std::string> parts;
    for (;;) {
        const auto tab = line.find('\t');
        parts.emplace_back(line.substr(0, tab));
        if (tab == std::string_view::npos) return parts;
        line.remove_prefix(tab + 1);
    }
}

std::string bytesFromHex(std::string_view text) {
    std::string bytes;
    for (std::size_t position = 0; position + 1 < text.size(); position += 2) {
        bytes += static_cast<char>(std::stoi(std::string{text.substr(position, 2)}, nullptr, 16));
    }
    return bytes;
}

double doubleFromBits(std::string_view hex) {
    return std::bit_cast<double>(static_cast<std::uint64_t>(std::stoull(std::string{hex}, nullptr, 16)));
}

} // namespace velmorin
