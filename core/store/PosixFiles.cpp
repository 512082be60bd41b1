#include "core/store/PosixFiles.h"

#include "core/store/Descriptor.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace velmorin {

namespace {

constexpr std::uint64_t largestFile = std::uint64_t{1} << 30;

/// Parsers look a little past the end of a text; with room for it they need not copy the whole.
constexpr std::size_t roomForParser = 128;

/// Owner only: what the user thinks and does is nobody else's business.
constexpr mode_t ownerReadWrite = S_IRUSR | S_IWUSR;

Descriptor open(const std::filesystem::path& path, int flags) {
    return Descriptor{uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, ownerReadWrite); })};
}

/// Nothing but a regular file: a pipe, for instance, could keep its reader or writer waiting for ever.
Descriptor openRegular(const std::filesystem::path& path, int flags) {
    Descriptor descriptor = open(path, flags | O_NONBLOCK);
    struct stat attributes {};
    const bool isRegular =
        descriptor.isOpen() && ::fstat(descriptor.number(), &attributes) == 0 && S_ISREG(attributes.st_mode);
    if (!isRegular) descriptor.close();
    return descriptor;
}

bool flush(const Descriptor& file) {
    return uninterrupted([&file] { return ::fsync(file.number()); }) == 0;
}

class PosixOutputFile final : public OutputFile {
public:
    explicit PosixOutputFile(Descriptor descriptor) : m_descriptor{std::move(descriptor)} {}

    bool write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const auto written =
                uninterrupted([&] { return ::write(m_descriptor.number(), bytes.data(), bytes.size()); });
            if (written <= 0) return false;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return true;
    }
    bool sync() override { return flush(m_descriptor); }
    bool close() override { return m_descriptor.close(); }

private:
    Descriptor m_descriptor;
};

std::unique_ptr<OutputFile> outputFile(Descriptor descriptor) {
    return descriptor.isOpen() ? std::make_unique<PosixOutputFile>(std::move(descriptor)) : nullptr;
}

bool readToEnd(const Descriptor& file, std::string& content) {
    for (std::size_t used = 0;;) {
        if (used == content.size()) content.resize(used + used / 2 + 4096);
        const auto count =
            uninterrupted([&] { return ::read(file.number(), content.data() + used, content.size() - used); });
        if (count < 0) return false;
        used += static_cast<std::size_t>(count);
        if (count == 0 || used > largestFile) {
            content.resize(used);
            return count == 0;
        }
    }
}

} // namespace

bool PosixFiles::makeDirectory(const std::filesystem::path& path) {
    std::error_code error;
    std::filesystem::create_directories(path, error);
    return !error && std::filesystem::is_directory(path, error);
}

std::optional<std::string> PosixFiles::read(const std::filesystem::path& path) {
    const Descriptor file = openRegular(path, O_RDONLY);
    struct stat attributes {};
    if (!file.isOpen() || ::fstat(file.number(), &attributes) != 0) return std::nullopt;
    const auto expected = static_cast<std::uint64_t>(attributes.st_size);
    if (expected > largestFile) return std::nullopt;

    std::string content;
    content.reserve(expected + roomForParser);
    // One byte more than is there finds the end without growing.
    content.resize(expected + 1);
    if (!readToEnd(file, content)) return std::nullopt;
    return content;
}

std::optional<std::uint64_t> PosixFiles::size(const std::filesystem::path& path) {
    struct stat attributes {};
    if (::stat(path.c_str(), &attributes) != 0) return std::nullopt;
    return static_cast<std::uint64_t>(attributes.st_size);
}

std::unique_ptr<OutputFile> PosixFiles::create(const std::filesystem::path& path) {
    Descriptor descriptor = openRegular(path, O_WRONLY | O_CREAT | O_TRUNC);
    // One that was there already may have been open to others. Not every file system can tell them apart.
    if (descriptor.isOpen()) (void)::fchmod(descriptor.number(), ownerReadWrite);
    return outputFile(std::move(descriptor));
}

std::unique_ptr<OutputFile> PosixFiles::append(const std::filesystem::path& path) {
    return outputFile(openRegular(path, O_WRONLY | O_APPEND));
}

bool PosixFiles::rename(const std::filesystem::path& from, const std::filesystem::path& to) {
    return std::rename(from.c_str(), to.c_str()) == 0;
}

bool PosixFiles::remove(const std::filesystem::path& path) {
    return ::unlink(path.c_str()) == 0;
}

bool PosixFiles::syncDirectory(const std::filesystem::path& path) {
    const Descriptor directory = open(path, O_RDONLY | O_DIRECTORY);
    // Some file systems keep names without being asked and know no such request.
    return directory.isOpen() && (flush(directory) || errno == EINVAL || errno == ENOTSUP);
}

} // namespace velmorin
