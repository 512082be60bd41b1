#include "app/platform/simulated/SimulatedDisk.h"

#include "core/store/EventLog.h"

#include <utility>

namespace velmorin {

namespace {

constexpr std::string_view temporarySuffix = ".tmp";

bool isTemporary(const std::filesystem::path& path) {
    return path.extension() == temporarySuffix;
}

/// The file that a temporary one is to replace.
std::filesystem::path target(const std::filesystem::path& path) {
    return isTemporary(path) ? path.parent_path() / path.stem() : path;
}

bool isLog(const std::filesystem::path& path) {
    return target(path).filename() == EventLog::fileName;
}

} // namespace

/// A file that keeps in mind what was written, for the journal.
class SimulatedDisk::Writing final : public OutputFile {
public:
    Writing(SimulatedDisk& disk, std::filesystem::path path, std::unique_ptr<OutputFile> file)
        : m_disk{disk}, m_path{std::move(path)}, m_file{std::move(file)} {}

    bool write(std::string_view bytes) override {
        const std::string text{bytes};
        const bool isWritten = !m_disk.isFull && m_file->write(bytes);
        if (isLog(m_path)) m_disk.tellLog(text, !isWritten);
        m_disk.m_written = text;
        return isWritten;
    }
    bool sync() override { return true; }
    bool close() override { return m_file->close(); }

private:
    SimulatedDisk& m_disk;
    std::filesystem::path m_path;
    std::unique_ptr<OutputFile> m_file;
};

std::unique_ptr<OutputFile> SimulatedDisk::create(const std::filesystem::path& path) {
    auto file = m_files.create(path);
    return file ? std::make_unique<Writing>(*this, path, std::move(file)) : nullptr;
}

std::unique_ptr<OutputFile> SimulatedDisk::append(const std::filesystem::path& path) {
    auto file = m_files.append(path);
    return file ? std::make_unique<Writing>(*this, path, std::move(file)) : nullptr;
}

bool SimulatedDisk::rename(const std::filesystem::path& from, const std::filesystem::path& to) {
    const bool isDone = m_files.rename(from, to);
    if (isDone && !isLog(to)) tellSave("save", to, &m_written);
    return isDone;
}

bool SimulatedDisk::remove(const std::filesystem::path& path) {
    // A save that failed takes its temporary file away.
    if (!isTemporary(path)) {
        tellSave("remove", path, nullptr);
    } else if (!isLog(path)) {
        tellSave("saveFailed", target(path), nullptr);
    }
    return m_files.remove(path);
}

void SimulatedDisk::tellSave(std::string_view event, const std::filesystem::path& path, const std::string* text) const {
    m_journal.tell(event, [&](JSONOutput& output) {
        output.key("file");
        output.write(path.filename().string());
        if (!text) return;
        output.key("text");
        output.write(*text);
    });
}

void SimulatedDisk::tellLog(const std::string& line, bool isLost) const {
    // The date before the first blank is the clock's, and the line end nobody's.
    const auto start = line.find(' ') + 1;
    const std::string text = line.substr(start, line.size() - start - 1);
    m_journal.tell("log", [&](JSONOutput& output) {
        output.key("text");
        output.write(text);
        if (!isLost) return;
        output.key("lost");
        output.write(true);
    });
}

} // namespace velmorin
