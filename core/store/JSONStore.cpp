#include "core/store/JSONStore.h"

#include "core/foundation/Text.h"
#include "core/store/AtomicFile.h"

#include <utility>

namespace velmorin {

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
    return replaceFile(m_files, m_directory / fileName, bytes);
}

} // namespace velmorin
