#pragma once

#include <dirent.h>
#include <memory>
#include <string_view>

namespace velmorin {

/// Calls `visit(std::string_view name)` for each name in a folder, in no order; for none where it cannot be read.
template <class Visit>
void forEachEntry(const char* folder, Visit visit) {
    const std::unique_ptr<DIR, int (*)(DIR*)> entries{::opendir(folder), &::closedir};
    if (!entries) return;
    while (const auto* const entry = ::readdir(entries.get()))
        visit(std::string_view{entry->d_name});
}

} // namespace velmorin
