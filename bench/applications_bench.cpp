// What a Linux desktop is asked when a window comes up: 500 desktop entries, each with forty translations.

#include "app/platform/linux/applications/ApplicationIdentities.h"
#include "app/platform/linux/applications/IdentityTable.h"
#include "app/platform/linux/applications/ProcFS.h"
#include "tests/support/TemporaryDirectory.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace velmorin {
namespace {

class Folder {
public:
    static constexpr int count = 500;

    Folder() {
        std::filesystem::create_directories(m_directory.path() / "applications");
        for (int index = 0; index < count; ++index)
            write(std::to_string(index));
    }

    DesktopEntries::Surroundings surroundings() const {
        return {{m_directory.path()}, {"/usr/local/bin", "/usr/bin", "/bin"}, {"GNOME"}};
    }

private:
    void write(const std::string& number) const {
        std::ofstream file{m_directory.path() / "applications" / ("org.example.Application" + number + ".desktop")};
        file << "[Desktop Entry]\nType=Application\nName=Application " << number << '\n';
        for (int language = 0; language < 40; ++language) {
            const auto code =
                std::string{static_cast<char>('a' + language / 26), static_cast<char>('a' + language % 26)};
            file << "Name[" << code << "]=Application " << number << " in another language\n";
            file << "Comment[" << code << "]=What this application is good for, told at some length\n";
            file << "Keywords[" << code << "]=application;example;benchmark;\n";
        }
        file << "Exec=" << (number.size() % 2 == 0 ? "env " : "sh ") << "%U\nIcon=application-" << number
             << "\nStartupWMClass=Class" << number << '\n';
    }

    TemporaryDirectory m_directory;
};

const Folder& folder() {
    static const Folder result;
    return result;
}

void readEntries(benchmark::State& state) {
    const auto surroundings = folder().surroundings();
    for (auto _ : state)
        benchmark::DoNotOptimize(DesktopEntries{surroundings}.all().size());
}
BENCHMARK(readEntries)->Unit(benchmark::kMillisecond);

void lookUp(benchmark::State& state) {
    const DesktopEntries entries{folder().surroundings()};
    for (auto _ : state) {
        benchmark::DoNotOptimize(entries.withWindowClass("CLASS321"));
        benchmark::DoNotOptimize(entries.withID("org.example.Application99"));
        benchmark::DoNotOptimize(entries.running("/usr/bin/missing"));
    }
}
BENCHMARK(lookUp);

void lookAtProcess(benchmark::State& state) {
    const ProcFS processes;
    for (auto _ : state)
        benchmark::DoNotOptimize(processes.facts(::getppid()));
}
BENCHMARK(lookAtProcess);

void identify(benchmark::State& state) {
    const DesktopEntries entries{folder().surroundings()};
    const ProcFS processes;
    const ApplicationIdentities identities{entries, processes};
    const WindowFacts window{::getppid(), "class321", "Class321"};
    for (auto _ : state)
        benchmark::DoNotOptimize(identities.identify(window));
}
BENCHMARK(identify);

} // namespace
} // namespace velmorin
