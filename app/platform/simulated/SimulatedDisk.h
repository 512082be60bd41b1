#pragma once

#include "app/platform/simulated/Journal.h"
#include "core/store/Files.h"

#include <filesystem>
#include <memory>
#include <string>

namespace velmorin {

/// Files that tell what is saved, removed and logged, and that fill up when they are told to. What they hold lies in
/// other files; nothing is flushed to a real disk, since no power is lost here.
class SimulatedDisk final : public Files {
public:
    /// Both must outlive this.
    SimulatedDisk(Files& files, const Journal& journal) : m_files{files}, m_journal{journal} {}

    bool makeDirectory(const std::filesystem::path& path) override { return m_files.makeDirectory(path); }
    std::optional<std::string> read(const std::filesystem::path& path) override { return m_files.read(path); }
    std::optional<std::uint64_t> size(const std::filesystem::path& path) override { return m_files.size(path); }
    std::unique_ptr<OutputFile> create(const std::filesystem::path& path) override;
    std::unique_ptr<OutputFile> append(const std::filesystem::path& path) override;
    bool rename(const std::filesystem::path& from, const std::filesystem::path& to) override;
    bool remove(const std::filesystem::path& path) override;
    bool syncDirectory(const std::filesystem::path&) override { return true; }

    // The control side.

    bool isFull = false; ///< every write fails

private:
    class Writing;

    void tellSave(std::string_view event, const std::filesystem::path& path, const std::string* text) const;
    void tellLog(const std::string& line, bool isLost) const;

    Files& m_files;
    const Journal& m_journal;
    std::string m_written; ///< what the last file that was created holds
};

} // namespace velmorin
