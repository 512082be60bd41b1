#pragma once

#include <filesystem>
#include <string>

namespace velmorin {

/// Where things lie for this user and this program. All paths are absolute; an empty one is not there.
struct LinuxPlaces {
    std::filesystem::path program;       ///< the executable itself
    std::filesystem::path data;          ///< $XDG_DATA_HOME
    std::filesystem::path configuration; ///< $XDG_CONFIG_HOME
    std::filesystem::path runtime;       ///< $XDG_RUNTIME_DIR

    static LinuxPlaces ofThisProcess();

    /// A program of ours: beside this one, as in a build tree, or where the installation puts what nobody calls by
    /// hand.
    std::filesystem::path companion(const std::string& name) const;
    /// A folder of what comes with the program: where an installation has it, else the source tree's, as for a program
    /// in its build tree.
    std::filesystem::path resources(const std::string& name) const;
    /// The folder of the extension for browsers: the installed one, else the build tree's.
    std::filesystem::path browserExtension() const;
};

} // namespace velmorin
