// Whatever goes wrong during a save, the file is the old one or the new one.

#include "core/session/SessionRecord.h"
#include "core/store/JSONStore.h"
#include "core/store/PosixFiles.h"
#include "tests/support/DurableDisk.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/SampleHistory.h"
#include "tests/support/TemporaryDirectory.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmorin {
namespace {

using History = std::vector<SessionRecord>;
using Fault = FaultyFiles::Fault;

constexpr const char* fileName = "history.json";

const History& oldHistory() {
    static const History history = sampleHistory(20);
    return history;
}

const History& newHistory() {
    static const History history = sampleHistory(40);
    return history;
}

/// How many operations a save takes that nothing disturbs: made, written, flushed, closed, renamed, folder flushed.
std::size_t operationsOfASave() {
    MemoryFiles memory;
    FaultyFiles files{memory};
    const JSONStore store{"", files};
    files.inject(Fault::none, 0);
    store.save(newHistory(), fileName);
    return files.operationCount();
}

TEST(AtomicSaveTest, aSaveIsSixOperations) {
    EXPECT_EQ(operationsOfASave(), 6U);
}

class FailingSave : public testing::TestWithParam<Fault> {};

TEST_P(FailingSave, leavesTheOldFileOrTheNewOneWhicheverOperationFails) {
    for (std::size_t operation = 0; operation < operationsOfASave(); ++operation) {
        const TemporaryDirectory directory;
        PosixFiles real;
        FaultyFiles files{real};
        const JSONStore store{directory.path(), files};
        ASSERT_TRUE(store.save(oldHistory(), fileName));

        files.inject(GetParam(), operation);
        EXPECT_FALSE(store.save(newHistory(), fileName)) << operation;

        const auto found = JSONStore{directory.path(), real}.load<History>(fileName);
        // Only the flush of the folder comes after the new file has taken its place.
        EXPECT_EQ(found, operation + 1 < operationsOfASave() ? oldHistory() : newHistory()) << operation;

        files.inject(Fault::none, 0);
        EXPECT_TRUE(store.save(newHistory(), fileName));
        EXPECT_EQ(store.load<History>(fileName), newHistory());
        const std::filesystem::directory_iterator entries{directory.path()};
        EXPECT_EQ(std::distance(begin(entries), end(entries)), 1) << "nothing is left behind";
    }
}

INSTANTIATE_TEST_SUITE_P(AtomicSave, FailingSave, testing::Values(Fault::failsOnce, Fault::failsOn),
                         [](const auto& instance) {
                             return instance.param == Fault::failsOnce ? "theDiskRecovers" : "theDiskIsGone";
                         });

/// Saves in a process of its own that is killed just before the given operation.
void saveAndBeKilled(const std::filesystem::path& directory, std::size_t operation) {
    const pid_t child = ::fork();
    ASSERT_NE(child, -1);
    if (child == 0) {
        PosixFiles real;
        FaultyFiles files{real};
        const JSONStore store{directory, files};
        files.inject(Fault::none, 0);
        files.setBefore([operation](std::size_t next) {
            if (next == operation) ::raise(SIGKILL);
        });
        store.save(newHistory(), fileName);
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_EQ(WIFSIGNALED(status), operation < operationsOfASave());
}

TEST(AtomicSaveTest, aProcessKilledBetweenAnyTwoOperationsLeavesTheOldFileOrTheNewOne) {
    for (std::size_t operation = 0; operation <= operationsOfASave(); ++operation) {
        const TemporaryDirectory directory;
        PosixFiles files;
        const JSONStore store{directory.path(), files};
        ASSERT_TRUE(store.save(oldHistory(), fileName));
        saveAndBeKilled(directory.path(), operation);
        EXPECT_EQ(store.load<History>(fileName), operation + 1 < operationsOfASave() ? oldHistory() : newHistory())
            << operation;
        EXPECT_TRUE(store.save(newHistory(), fileName)) << "what the killed process left is in nobody's way";
        EXPECT_EQ(store.load<History>(fileName), newHistory());
    }
}

TEST(AtomicSaveTest, aPowerFailureAtAnyPointLeavesTheOldFileOrTheNewOne) {
    for (std::size_t operation = 0; operation <= operationsOfASave(); ++operation) {
        DurableDisk disk;
        FaultyFiles files{disk};
        const JSONStore store{"", files};
        ASSERT_TRUE(store.save(oldHistory(), fileName));
        files.inject(Fault::failsOn, operation);
        const bool isSaved = store.save(newHistory(), fileName);
        for (const auto& contents : disk.afterPowerFailure()) {
            ASSERT_TRUE(contents.contains(fileName)) << operation;
            const auto found = decodeJSON<History>(contents.at(fileName));
            EXPECT_TRUE(found == newHistory() || (found == oldHistory() && !isSaved)) << operation;
        }
    }
}

TEST(AtomicSaveTest, aLogSurvivesEveryFailureOfAnAppend) {
    for (std::size_t operation = 0; operation < 3; ++operation) {
        MemoryFiles memory;
        FaultyFiles files{memory};
        const JSONStore store{"", files};
        store.appendLine("first", "events.log");
        files.inject(Fault::failsOn, operation);
        store.appendLine("second", "events.log");
        EXPECT_TRUE(memory.contents["events.log"].starts_with("first\n")) << operation;
    }
}

} // namespace
} // namespace velmorin
