#pragma once

#include "core/store/Files.h"

#include <map>
#include <string>

namespace velmorin {

/// Files in memory, in one directory that is always there.
class MemoryFiles final : public Files {
public:
    bool makeDirectory(const std::filesystem::path&) override { return true; }
    std::optional<std::string> read(const std::filesystem::path& path) override;
    std::optional<std::uint64_t> size(const std::filesystem::path& path) override;
    std::unique_ptr<OutputFile> create(const std::filesystem::path& path) override;
    std::unique_ptr<OutputFile> append(const std::filesystem::path& path) override;
    bool rename(const std::filesystem::path& from, const std::filesystem::path& to) override;
    bool remove(const std::filesystem::path& path) override;
    bool syncDirectory(const std::filesystem::path&) override { return true; }

    /// The control side: what is there.
    std::map<std::filesystem::path, std::string> contents;
};

} // namespace velmorin
