#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace velmorin {

/// A file opened for writing. Closed at the latest when it goes; only `close` tells whether that went well.
class OutputFile {
public:
    virtual ~OutputFile() = default;

    /// Writes all of `bytes` at the current end; false when only a part or nothing was written.
    virtual bool write(std::string_view bytes) = 0;
    /// Returns when the content has reached the disk; false when that cannot be told.
    virtual bool sync() = 0;
    /// To be called once, and nothing after it.
    virtual bool close() = 0;
};

/// The files that a store works on. Every operation answers whether it succeeded and leaves the reason untold. All
/// are synchronous, on the calling thread.
class Files {
public:
    virtual ~Files() = default;

    /// Makes the directory and those above it; true also when it exists already.
    virtual bool makeDirectory(const std::filesystem::path& path) = 0;
    /// The whole content of a regular file; absent when there is none, it cannot be read, or it is above 1 GiB.
    virtual std::optional<std::string> read(const std::filesystem::path& path) = 0;
    /// The size of a file in bytes; absent when there is none.
    virtual std::optional<std::uint64_t> size(const std::filesystem::path& path) = 0;
    /// A new file, or an existing one emptied; in both cases readable and writable by its owner only, where the file
    /// system can do that. Null on failure.
    virtual std::unique_ptr<OutputFile> create(const std::filesystem::path& path) = 0;
    /// An existing file, to be written at its end. Null when it does not exist or cannot be opened.
    virtual std::unique_ptr<OutputFile> append(const std::filesystem::path& path) = 0;
    /// Puts `from` in the place of `to` at one blow: at every moment `to` is the old file or the new one.
    virtual bool rename(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
    /// Deletes a file; false also when there was none.
    virtual bool remove(const std::filesystem::path& path) = 0;
    /// Returns when the names in a directory have reached the disk; false when that cannot be told.
    virtual bool syncDirectory(const std::filesystem::path& path) = 0;
};

} // namespace velmorin
