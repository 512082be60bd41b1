#pragma once

#include "app/platform/linux/applications/DesktopEntries.h"
#include "tests/support/TemporaryDirectory.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace velmorin {

/// Two data folders with desktop entries, the user's and the system's, and a folder with programs.
class EntriesFixture : public testing::Test {
protected:
    std::string userFolder() const { return path("user"); }
    std::string systemFolder() const { return path("system"); }
    std::string path(const std::string& name) const { return (m_directory.path() / name).string(); }

    DesktopEntries::Surroundings surroundings(std::vector<std::string> desktops = {}) const {
        return {{userFolder(), systemFolder()}, {path("bin")}, std::move(desktops)};
    }

    /// A program that counts as a binary, and one that is a script. Gives its path.
    std::string program(const std::string& name) const {
        return write("bin/" + name, "\x7f"
                                    "ELF");
    }
    std::string script(const std::string& name, const std::string& text = "exec true\n") const {
        return write("bin/" + name, "#!/bin/sh\n" + text);
    }

    /// An entry of the system that runs a command, with further lines. Gives its path.
    std::string entry(const std::string& id, const std::string& exec, const std::string& more = {}) const {
        return writeEntry("system", id, exec, more);
    }
    std::string userEntry(const std::string& id, const std::string& exec, const std::string& more = {}) const {
        return writeEntry("user", id, exec, more);
    }

    std::string write(const std::string& name, std::string_view text) const {
        const auto file = m_directory.path() / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream{file, std::ios::binary} << text;
        std::filesystem::permissions(file, std::filesystem::perms{0755});
        return std::filesystem::canonical(file).string();
    }

private:
    std::string writeEntry(const std::string& folder, const std::string& id, const std::string& exec,
                           const std::string& more) const {
        return write(folder + "/applications/" + id + ".desktop",
                     "[Desktop Entry]\nType=Application\nName=" + id + " the Application\nExec=" + exec + "\n" + more);
    }

    TemporaryDirectory m_directory;
};

} // namespace velmorin
