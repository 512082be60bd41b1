// The contract of the installed applications, kept by desktop entries in a folder of a test's own.

#include "app/platform/linux/applications/LinuxInstalledApplications.h"
#include "tests/contracts/InstalledApplicationsContract.h"
#include "tests/support/LoopRunner.h"
#include "tests/support/TemporaryDirectory.h"

#include <filesystem>
#include <fstream>

namespace velmorin {
namespace {

class LinuxInstalledApplicationsBench final : public InstalledApplicationsBench {
public:
    void settle() override { m_runner.settle(); }
    void wait(double seconds) override { m_runner.run(seconds); }

    InstalledApplications& applications() override { return m_applications; }
    std::string install(const std::string& bundleID, const std::string& name, Picture picture) override {
        const auto path = m_folder / "applications" / (bundleID + ".desktop");
        if (picture == Picture::withOne) write(m_folder / "icons" / (bundleID + ".png"), "picture");
        write(path, "[Desktop Entry]\nType=Application\nExec=/bin/true\nName=" + name + "\nIcon=" + bundleID + "\n");
        return path.string();
    }
    void remove(const std::string& path) override { std::filesystem::remove(path); }
    void spoil(const std::string& path) override { write(path, "\xff\xfe not an entry"); }

private:
    static void write(const std::filesystem::path& path, const std::string& text) {
        std::filesystem::create_directories(path.parent_path());
        std::ofstream{path, std::ios::binary} << text;
    }

    TemporaryDirectory m_directory;
    std::filesystem::path m_folder = m_directory.path() / "data";
    LoopRunner m_runner;
    DesktopEntries m_entries{{{m_folder.string()}, {"/bin"}, {}}};
    IconTheme m_icons{{{(m_folder / "icons").string()}, {}, {}}};
    LinuxInstalledApplications m_applications{m_entries, m_icons};
};

INSTANTIATE_TEST_SUITE_P(Contracts, InstalledApplicationsContract,
                         (::testing::Values(BenchMaker<InstalledApplicationsBench>{
                             "Linux", [] { return std::make_unique<LinuxInstalledApplicationsBench>(); }})),
                         nameOfMaker<InstalledApplicationsBench>);

} // namespace
} // namespace velmorin
