// The contract of shortcuts, kept by a folder of real executables.

#include "app/platform/linux/services/LinuxShortcuts.h"
#include "app/platform/posix/PosixChildProcesses.h"
#include "tests/contracts/ShortcutsContract.h"
#include "tests/support/LoopRunner.h"
#include "tests/support/TemporaryDirectory.h"

#include <filesystem>
#include <fstream>
#include <string>

namespace velmorin {
namespace {

class LinuxShortcutsBench final : public ShortcutsBench {
public:
    void settle() override { m_runner.settle(); }
    void wait(double seconds) override { m_runner.run(seconds); }
    Shortcuts& shortcuts() override { return m_shortcuts; }
    void prepare(const std::string& name) override {
        std::filesystem::create_directories(folder());
        std::ofstream{folder() / name} << "#!/bin/sh\nbasename \"$0\" >> '" << trace().string() << "'\n";
        std::filesystem::permissions(folder() / name, std::filesystem::perms::owner_all);
    }
    std::vector<std::string> runs() override {
        std::vector<std::string> names;
        std::ifstream file{trace()};
        for (std::string name; std::getline(file, name);)
            names.push_back(name);
        return names;
    }

private:
    std::filesystem::path folder() const { return m_directory.path() / "shortcuts"; }
    std::filesystem::path trace() const { return m_directory.path() / "trace"; }

    TemporaryDirectory m_directory;
    LoopRunner m_runner;
    PosixChildProcesses m_childProcesses{[this](std::function<void()> call) { m_runner.loop().post(std::move(call)); }};
    LinuxShortcuts m_shortcuts{folder(), m_childProcesses};
};

INSTANTIATE_TEST_SUITE_P(Contracts, ShortcutsContract,
                         (::testing::Values(BenchMaker<ShortcutsBench>{
                             "Linux", [] { return std::make_unique<LinuxShortcutsBench>(); }})),
                         nameOfMaker<ShortcutsBench>);

} // namespace
} // namespace velmorin
