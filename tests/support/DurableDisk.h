#pragma once

#include "core/store/Files.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace velmorin {

/// Files on a disk that keeps only what it was told to keep: when the power fails, the content of a file may be what
/// it was at its last `sync` or anything written since, and names may be what they were at the last `syncDirectory`
/// or have changed up to any later point.
class DurableDisk final : public Files {
public:
    using Contents = std::map<std::string, std::string>;

    bool makeDirectory(const std::filesystem::path&) override { return true; }
    std::optional<std::string> read(const std::filesystem::path& path) override;
    std::optional<std::uint64_t> size(const std::filesystem::path& path) override;
    std::unique_ptr<OutputFile> create(const std::filesystem::path& path) override;
    std::unique_ptr<OutputFile> append(const std::filesystem::path& path) override;
    bool rename(const std::filesystem::path& from, const std::filesystem::path& to) override;
    bool remove(const std::filesystem::path& path) override;
    bool syncDirectory(const std::filesystem::path& path) override;

    /// The control side: everything that may be on the disk after a power failure at this moment.
    std::vector<Contents> afterPowerFailure() const;

    struct Node {
        std::string synced;
        std::string current;
    };

private:
    using Names = std::map<std::string, std::shared_ptr<Node>>;

    Names& currentNames() { return m_names.back(); }

    /// The names at the last `syncDirectory`, and after each change since.
    std::vector<Names> m_names{1};
};

} // namespace velmorin
