#include "tests/support/MemoryFiles.h"

#include <utility>

namespace velmorin {

namespace {

class MemoryOutputFile final : public OutputFile {
public:
    explicit MemoryOutputFile(std::string& content) : m_content{content} {}

    bool write(std::string_view bytes) override {
        m_content += bytes;
        return true;
    }
    bool sync() override { return true; }
    bool close() override { return true; }

private:
    std::string& m_content;
};

} // namespace

std::optional<std::string> MemoryFiles::read(const std::filesystem::path& path) {
    const auto found = contents.find(path);
    if (found == contents.end()) return std::nullopt;
    return found->second;
}

std::optional<std::uint64_t> MemoryFiles::size(const std::filesystem::path& path) {
    const auto found = contents.find(path);
    if (found == contents.end()) return std::nullopt;
    return found->second.size();
}

std::unique_ptr<OutputFile> MemoryFiles::create(const std::filesystem::path& path) {
    auto& content = contents[path];
    content.clear();
    return std::make_unique<MemoryOutputFile>(content);
}

std::unique_ptr<OutputFile> MemoryFiles::append(const std::filesystem::path& path) {
    const auto found = contents.find(path);
    if (found == contents.end()) return nullptr;
    return std::make_unique<MemoryOutputFile>(found->second);
}

bool MemoryFiles::rename(const std::filesystem::path& from, const std::filesystem::path& to) {
    auto moved = contents.extract(from);
    if (moved.empty()) return false;
    contents[to] = std::move(moved.mapped());
    return true;
}

bool MemoryFiles::remove(const std::filesystem::path& path) {
    return contents.erase(path) == 1;
}

} // namespace velmorin
