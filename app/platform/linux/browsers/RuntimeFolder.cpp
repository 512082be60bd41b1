#include "app/platform/linux/browsers/RuntimeFolder.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

namespace velmorin {

namespace {

constexpr mode_t forOthers = S_IRWXG | S_IRWXO;
constexpr mode_t writableForOthers = S_IWGRP | S_IWOTH;

/// A way down into folders that belong to this user.
class Descent {
public:
    explicit Descent(std::string path) : m_path{std::move(path)} {
        m_folder = Descriptor{::open(m_path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
        if (!m_folder.isOpen()) fail(std::strerror(errno));
    }

    /// Makes the folder where it is missing.
    void enter(const std::string& name) {
        if (!m_folder.isOpen()) return;
        m_path += '/' + name;
        ::mkdirat(m_folder.number(), name.c_str(), S_IRWXU); // what is there is looked at below
        // A link would lead to where somebody else likes.
        Descriptor folder{::openat(m_folder.number(), name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)};
        if (folder.isOpen())
            m_folder = std::move(folder);
        else
            fail(std::strerror(errno));
    }

    /// Nobody else may have any of these rights.
    void demand(mode_t refused) {
        struct stat status {};
        if (!m_folder.isOpen()) return;
        if (::fstat(m_folder.number(), &status) != 0) return fail(std::strerror(errno));
        if (status.st_uid != ::geteuid()) return fail("it belongs to another user");
        if ((status.st_mode & refused) != 0) fail("other users have access to it");
    }

    Descriptor& folder() { return m_folder; }
    std::string& error() { return m_error; }

private:
    void fail(const char* reason) {
        m_error = "the folder " + m_path + " cannot be used: " + reason;
        m_folder.close();
    }

    std::string m_path;
    Descriptor m_folder;
    std::string m_error;
};

} // namespace

RuntimeFolder RuntimeFolder::open() {
    const char* const directory = std::getenv("XDG_RUNTIME_DIR"); // NOLINT(concurrency-mt-unsafe)
    return open(directory != nullptr ? directory : "");
}

RuntimeFolder RuntimeFolder::open(std::string_view runtimeDirectory) {
    // Only an absolute path counts, as the directories' standard wants it.
    const bool hasDirectory = runtimeDirectory.starts_with('/');
    Descent descent{hasDirectory ? std::string{runtimeDirectory} : "/tmp"};
    if (hasDirectory) {
        descent.demand(writableForOthers);
        descent.enter("velmorin");
        descent.demand(writableForOthers);
    } else {
        descent.enter("velmorin-" + std::to_string(::geteuid()));
        descent.demand(forOthers);
    }
    descent.enter("browsers");
    descent.demand(forOthers);
    if (!descent.folder().isOpen()) return RuntimeFolder{std::move(descent.error())};
    return RuntimeFolder{std::move(descent.folder())};
}

std::string RuntimeFolder::pathTo(std::string_view name) const {
    return "/proc/self/fd/" + std::to_string(number()) + '/' + std::string{name};
}

} // namespace velmorin
