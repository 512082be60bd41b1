// Runs a fuzz target once over each file of a corpus.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: " << arguments[0] << " CORPUS\n";
        return 2;
    }
    std::vector<std::filesystem::path> files;
    std::error_code failure; // a folder that cannot be read has no inputs
    for (const auto& entry : std::filesystem::directory_iterator{arguments[1], failure})
        files.push_back(entry.path());
    std::ranges::sort(files);
    for (const auto& path : files) {
        std::cerr << path.filename().string() << std::endl; // the last one said is the one that failed
        std::ifstream file{path, std::ios::binary};
        const std::vector<char> bytes{std::istreambuf_iterator<char>{file}, {}};
        const std::vector<std::uint8_t> data{bytes.begin(), bytes.end()};
        LLVMFuzzerTestOneInput(data.data(), data.size());
    }
    std::cout << files.size() << " inputs replayed\n";
    return files.empty() ? 1 : 0;
}
