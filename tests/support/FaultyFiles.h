#pragma once

#include "core/store/Files.h"

#include <cstddef>
#include <functional>

namespace velmorin {

/// Passes every operation on to other files, and lets one, or all from one on, go wrong. Operations are numbered from
/// 0 in the order in which they are called, those of an open file included.
class FaultyFiles final : public Files {
public:
    enum class Fault {
        none,
        failsOnce, ///< that operation does nothing and fails; a write puts down its first half
        failsOn,   ///< the same for all that follow: the disk is gone
    };

    explicit FaultyFiles(Files& files) : m_files{files} {}

    bool makeDirectory(const std::filesystem::path& path) override;
    std::optional<std::string> read(const std::filesystem::path& path) override;
    std::optional<std::uint64_t> size(const std::filesystem::path& path) override;
    std::unique_ptr<OutputFile> create(const std::filesystem::path& path) override;
    std::unique_ptr<OutputFile> append(const std::filesystem::path& path) override;
    bool rename(const std::filesystem::path& from, const std::filesystem::path& to) override;
    bool remove(const std::filesystem::path& path) override;
    bool syncDirectory(const std::filesystem::path& path) override;

    /// The control side. Counting starts anew.
    void inject(Fault fault, std::size_t operation);
    /// Called before each operation with its number.
    void setBefore(std::function<void(std::size_t)> before) { m_before = std::move(before); }
    std::size_t operationCount() const { return m_count; }

    /// Counts an operation; whether it may go on.
    bool next();

private:
    Files& m_files;
    Fault m_fault = Fault::none;
    std::size_t m_faultyOperation = 0;
    std::size_t m_count = 0;
    std::function<void(std::size_t)> m_before;
};

} // namespace velmorin
