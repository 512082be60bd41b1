#pragma once

#include "core/store/Files.h"

namespace velmorin {

/// The files of a POSIX system. Without state; any thread.
class PosixFiles final : public Files {
public:
    bool makeDirectory(const std::filesystem::path& path) override;
    std::optional<std::string> read(const std::filesystem::path& path) override;
    std::optional<std::uint64_t> size(const std::filesystem::path& path) override;
    std::unique_ptr<OutputFile> create(const std::filesystem::path& path) override;
    std::unique_ptr<OutputFile> append(const std::filesystem::path& path) override;
    bool rename(const std::filesystem::path& from, const std::filesystem::path& to) override;
    bool remove(const std::filesystem::path& path) override;
    bool syncDirectory(const std::filesystem::path& path) override;
};

} // namespace velmorin
