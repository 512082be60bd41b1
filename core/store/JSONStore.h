#pragma once

#include "core/foundation/JSONCoding.h"
#include "core/store/Files.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace velmorin {

/// The one directory with everything the program remembers, and the only code that touches it. Forgiving: nothing
/// throws but for want of memory, and a missing file, a damaged file and a full disk all come down to an absent value
/// or false. Each file is written whole, so that a crash at any moment leaves the old file or the new one. Main thread
/// only.
class JSONStore {
public:
    /// Makes the directory, with those above it, if it can. `files` must outlive the store.
    JSONStore(std::filesystem::path directory, Files& files);

    /// The program's own folder inside the system's folder for application data.
    static std::filesystem::path defaultDirectory(const std::filesystem::path& applicationData) {
        return applicationData / "Velmorin";
    }

    const std::filesystem::path& directory() const { return m_directory; }

    /// The value in a file. Absent when there is no such file or it does not hold exactly such a value; a damaged
    /// file stays as it is until the next `save` under its name.
    template <class Value>
    std::optional<Value> load(std::string_view fileName) const {
        std::optional<std::string> text = read(fileName);
        return text ? decodeJSON<Value>(std::move(*text)) : std::nullopt;
    }

    /// Replaces a file by the value. False when the value has no JSON form or the file could not be written all the
    /// way to the disk.
    template <class Value>
    bool save(const Value& value, std::string_view fileName) const {
        const std::optional<std::string> text = encodeJSON(value);
        return text && replace(fileName, *text);
    }

    /// Deletes a file, if it is there.
    void remove(std::string_view fileName) const;

    /// Adds `line` and a line feed at the end of a file, which is made when it is missing. A line that is not UTF-8
    /// is dropped, as is one that cannot be written.
    void appendLine(std::string_view line, std::string_view fileName) const;

    /// Deletes a file that holds more than this many bytes.
    void removeIfLarger(std::string_view fileName, std::uint64_t bytes) const;

private:
    std::optional<std::string> read(std::string_view fileName) const;
    bool replace(std::string_view fileName, std::string_view bytes) const;

    std::filesystem::path m_directory;
    Files& m_files;
};

} // namespace velmorin
