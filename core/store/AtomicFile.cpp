#include "core/store/AtomicFile.h"

#include <memory>

namespace velmorin {

namespace {

/// Writes, flushes and closes a file; its bytes are on the disk when this answers true.
bool writeWhole(OutputFile& file, std::string_view bytes) {
    const bool isWritten = file.write(bytes) && file.sync();
    return file.close() && isWritten;
}

} // namespace

bool replaceFile(Files& files, const std::filesystem::path& target, std::string_view bytes) {
    // Always the same name, so that what a crash leaves behind is used up by the next save.
    auto temporary = target;
    temporary += ".tmp";
    const auto file = files.create(temporary);
    if (!file) return false;
    if (!writeWhole(*file, bytes) || !files.rename(temporary, target)) {
        files.remove(temporary);
        return false;
    }
    return files.syncDirectory(target.parent_path());
}

} // namespace velmorin
