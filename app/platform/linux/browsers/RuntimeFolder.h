#pragma once

#include "core/store/Descriptor.h"

#include <string>
#include <string_view>

namespace velmorin {

/// The folder with the sockets of the hosts: `velmorin/browsers` in the user's runtime directory, or in a folder of the
/// user's own below `/tmp` where there is no such directory. One thread.
class RuntimeFolder {
public:
    /// Opens the folder, and makes what is missing of it. It is refused, with `error` set, where it or a folder of ours
    /// above it belongs to somebody else or lets others in.
    static RuntimeFolder open();
    /// The same in a runtime directory that is not asked of the environment; empty where there is none.
    static RuntimeFolder open(std::string_view runtimeDirectory);

    bool isOpen() const { return m_folder.isOpen(); }
    int number() const { return m_folder.number(); }
    /// Why it is not open, for people.
    const std::string& error() const { return m_error; }
    /// A path to a file in this very folder, whatever becomes of its name; short enough for a socket's address.
    std::string pathTo(std::string_view name) const;

private:
    explicit RuntimeFolder(Descriptor folder) : m_folder{std::move(folder)} {}
    explicit RuntimeFolder(std::string error) : m_error{std::move(error)} {}

    Descriptor m_folder;
    std::string m_error;
};

} // namespace velmorin
