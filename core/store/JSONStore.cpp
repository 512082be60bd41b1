#include "core/store/JSONStore.h"

#include "core/foundation/Text.h"

#include <memory>
#include <utility>

namespace velmorin {

namespace {

/// Writes, flushes and closes a file; its bytes are on the disk when this answers true.
bool writeWhole(OutputFile& file, std::string_view bytes) {
    const bool isWritten = file.write(bytes) && file.sync();
    return file.close() && isWritten;
}

} // namespace

JSONStore::JSONStore(std::filesystem::path directory, Files& files)
    : m_directory{std::move(directory)}, m_files{files} {
    m_files.makeDirectory(m_directory);
}

void JSONStore::remove(std::string_view fileName) const {
    m_files.remove(m_directory / fileName);
}

void JSONStore::appendLine(std::string_view line, std::string_view fileName) const {
    if (!isUTF8(line)) return;
    const std::string bytes = std::string{line} + "\n";
    if (const auto file = m_files.append(m_directory / fileName)) {
        file->write(bytes);
        file->close();
    } else {
        replace(fileName, bytes);
    }
}

void JSONStore::removeIfLarger(std::string_view fileName, std::uint64_t bytes) const {
    const auto size = m_files.size(m_directory / fileName);
    if (size && *size > bytes) remove(fileName);
}

std::optional<std::string> JSONStore::read(std::string_view fileName) const {
    return m_files.read(m_directory / fileName);
}

bool JSONStore::replace(std::string_view fileName, std::string_view bytes) const {
    const auto target = m_directory / fileName;
    // Always the same name, so that what a crash leaves behind is used up by the next save.
    auto temporary = target;
    temporary += ".tmp";
    const auto file = m_files.create(temporary);
    if (!file) return false;
    if (!writeWhole(*file, bytes) || !m_files.rename(temporary, target)) {
        m_files.remove(temporary);
        return false;
    }
    return m_files.syncDirectory(m_directory);
}

} // namespace velmorin
