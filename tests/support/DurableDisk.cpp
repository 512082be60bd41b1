#include "tests/support/DurableDisk.h"

#include <utility>

namespace velmorin {

namespace {

class DurableOutputFile final : public OutputFile {
public:
    explicit DurableOutputFile(std::shared_ptr<DurableDisk::Node> node) : m_node{std::move(node)} {}

    bool write(std::string_view bytes) override {
        m_node->current += bytes;
        return true;
    }
    bool sync() override {
        m_node->synced = m_node->current;
        return true;
    }
    bool close() override { return true; }

private:
    std::shared_ptr<DurableDisk::Node> m_node;
};

/// What a file may hold after a power failure: what was synced, all that was written, or half of it.
std::vector<std::string> possibleContents(const DurableDisk::Node& node) {
    return {node.synced, node.current, node.current.substr(0, (node.synced.size() + node.current.size()) / 2)};
}

} // namespace

std::optional<std::string> DurableDisk::read(const std::filesystem::path& path) {
    const auto found = currentNames().find(path.filename());
    if (found == currentNames().end()) return std::nullopt;
    return found->second->current;
}

std::optional<std::uint64_t> DurableDisk::size(const std::filesystem::path& path) {
    const auto content = read(path);
    if (!content) return std::nullopt;
    return content->size();
}

std::unique_ptr<OutputFile> DurableDisk::create(const std::filesystem::path& path) {
    const auto found = currentNames().find(path.filename());
    if (found != currentNames().end()) {
        found->second->current.clear();
        return std::make_unique<DurableOutputFile>(found->second);
    }
    Names names = currentNames();
    const auto node = std::make_shared<Node>();
    names[path.filename()] = node;
    m_names.push_back(std::move(names));
    return std::make_unique<DurableOutputFile>(node);
}

std::unique_ptr<OutputFile> DurableDisk::append(const std::filesystem::path& path) {
    const auto found = currentNames().find(path.filename());
    if (found == currentNames().end()) return nullptr;
    return std::make_unique<DurableOutputFile>(found->second);
}

bool DurableDisk::rename(const std::filesystem::path& from, const std::filesystem::path& to) {
    Names names = currentNames();
    auto moved = names.extract(from.filename().string());
    if (moved.empty()) return false;
    names[to.filename()] = moved.mapped();
    m_names.push_back(std::move(names));
    return true;
}

bool DurableDisk::remove(const std::filesystem::path& path) {
    Names names = currentNames();
    if (names.erase(path.filename()) == 0) return false;
    m_names.push_back(std::move(names));
    return true;
}

bool DurableDisk::syncDirectory(const std::filesystem::path&) {
    m_names = {currentNames()};
    return true;
}

std::vector<DurableDisk::Contents> DurableDisk::afterPowerFailure() const {
    std::vector<Contents> outcomes;
    for (const auto& names : m_names) {
        for (std::size_t choice = 0; choice < 3; ++choice) {
            Contents contents;
            for (const auto& [name, node] : names)
                contents[name] = possibleContents(*node)[choice];
            outcomes.push_back(std::move(contents));
        }
    }
    return outcomes;
}

} // namespace velmorin
