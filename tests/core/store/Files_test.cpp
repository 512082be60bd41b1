// What every kind of files must do, shown on the system's own and on those that tests stand in for them.

#include "core/store/Files.h"

#include "core/store/PosixFiles.h"
#include "tests/support/DurableDisk.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/TemporaryDirectory.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace velmorin {
namespace {

template <class Kind>
class FilesContract : public testing::Test {
protected:
    bool put(const char* name, std::string_view bytes) {
        const auto file = files.create(path(name));
        return file && file->write(bytes) && file->sync() && file->close();
    }
    std::filesystem::path path(const char* name) const { return directory.path() / name; }

    TemporaryDirectory directory;
    Kind files;
};

using Kinds = testing::Types<PosixFiles, MemoryFiles, DurableDisk>;
TYPED_TEST_SUITE(FilesContract, Kinds);

TYPED_TEST(FilesContract, aFileReadsBackAsWritten) {
    const std::string bytes("a\0b\n\xFF", 5);
    ASSERT_TRUE(this->put("file", bytes));
    EXPECT_EQ(this->files.read(this->path("file")), bytes);
    EXPECT_EQ(this->files.size(this->path("file")), 5U);
}

TYPED_TEST(FilesContract, anEmptyFileIsThereAndEmpty) {
    ASSERT_TRUE(this->put("file", ""));
    EXPECT_EQ(this->files.read(this->path("file")), "");
    EXPECT_EQ(this->files.size(this->path("file")), 0U);
}

TYPED_TEST(FilesContract, aMissingFileHasNoContentAndNoSize) {
    EXPECT_FALSE(this->files.read(this->path("none")));
    EXPECT_FALSE(this->files.size(this->path("none")));
}

TYPED_TEST(FilesContract, creatingAnExistingFileEmptiesIt) {
    ASSERT_TRUE(this->put("file", "a long text"));
    ASSERT_TRUE(this->put("file", "short"));
    EXPECT_EQ(this->files.read(this->path("file")), "short");
}

TYPED_TEST(FilesContract, appendingAddsAtTheEndOfAnExistingFileOnly) {
    EXPECT_EQ(this->files.append(this->path("file")), nullptr);
    ASSERT_TRUE(this->put("file", "one "));
    const auto file = this->files.append(this->path("file"));
    ASSERT_NE(file, nullptr);
    EXPECT_TRUE(file->write("two"));
    EXPECT_TRUE(file->close());
    EXPECT_EQ(this->files.read(this->path("file")), "one two");
}

TYPED_TEST(FilesContract, renamingTakesThePlaceOfTheTarget) {
    ASSERT_TRUE(this->put("from", "new"));
    ASSERT_TRUE(this->put("to", "old"));
    EXPECT_TRUE(this->files.rename(this->path("from"), this->path("to")));
    EXPECT_EQ(this->files.read(this->path("to")), "new");
    EXPECT_FALSE(this->files.read(this->path("from")));
    EXPECT_FALSE(this->files.rename(this->path("from"), this->path("to")));
    EXPECT_TRUE(this->files.syncDirectory(this->directory.path()));
}

TYPED_TEST(FilesContract, removingAnswersWhetherItWasThere) {
    ASSERT_TRUE(this->put("file", "x"));
    EXPECT_TRUE(this->files.remove(this->path("file")));
    EXPECT_FALSE(this->files.remove(this->path("file")));
    EXPECT_FALSE(this->files.read(this->path("file")));
}

TYPED_TEST(FilesContract, makingADirectoryThatIsThereSucceeds) {
    EXPECT_TRUE(this->files.makeDirectory(this->directory.path()));
}

class PosixFilesTest : public testing::Test {
protected:
    TemporaryDirectory directory;
    PosixFiles files;
};

TEST_F(PosixFilesTest, makesADirectoryWithThoseAboveIt) {
    const auto deep = directory.path() / "a" / "b" / "c";
    EXPECT_TRUE(files.makeDirectory(deep));
    EXPECT_TRUE(std::filesystem::is_directory(deep));
}

TEST_F(PosixFilesTest, aFileInTheWayOfADirectoryIsAFailure) {
    ASSERT_NE(files.create(directory.path() / "file"), nullptr);
    EXPECT_FALSE(files.makeDirectory(directory.path() / "file"));
    EXPECT_FALSE(files.makeDirectory(directory.path() / "file" / "below"));
}

TEST_F(PosixFilesTest, aNewFileIsForItsOwnerOnly) {
    ASSERT_NE(files.create(directory.path() / "file"), nullptr);
    struct stat attributes {};
    ASSERT_EQ(::stat((directory.path() / "file").c_str(), &attributes), 0);
    EXPECT_EQ(attributes.st_mode & 0777U, 0600U);
}

TEST_F(PosixFilesTest, anExistingFileIsForItsOwnerOnlyOnceItIsCreatedAnew) {
    const auto path = directory.path() / "file";
    ASSERT_NE(files.create(path), nullptr);
    ASSERT_EQ(::chmod(path.c_str(), 0644), 0);
    ASSERT_NE(files.create(path), nullptr);
    struct stat attributes {};
    ASSERT_EQ(::stat(path.c_str(), &attributes), 0);
    EXPECT_EQ(attributes.st_mode & 0777U, 0600U);
}

TEST_F(PosixFilesTest, aPipeOrADirectoryIsNoFileAndKeepsNobodyWaiting) {
    ASSERT_EQ(::mkfifo((directory.path() / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(files.read(directory.path() / "pipe"));
    EXPECT_FALSE(files.read(directory.path()));
    EXPECT_EQ(files.create(directory.path() / "pipe"), nullptr);
    EXPECT_EQ(files.append(directory.path() / "pipe"), nullptr);
    EXPECT_EQ(files.create(directory.path()), nullptr);
}

TEST_F(PosixFilesTest, aFileAboveTheLimitIsNotRead) {
    const auto path = directory.path() / "sparse";
    ASSERT_NE(files.create(path), nullptr);
    std::filesystem::resize_file(path, (std::uintmax_t{1} << 30) + 1);
    EXPECT_FALSE(files.read(path));
}

TEST_F(PosixFilesTest, manyOpeningsLeaveNoDescriptorBehind) {
    const auto openDescriptors = [] {
        const std::filesystem::directory_iterator descriptors{"/dev/fd"};
        return std::distance(begin(descriptors), end(descriptors));
    };
    const auto before = openDescriptors();
    for (int round = 0; round < 50; ++round) {
        const auto path = directory.path() / "file";
        const auto file = files.create(path);
        ASSERT_TRUE(file->write("x"));
        ASSERT_TRUE(files.append(path)->close());
        ASSERT_TRUE(files.read(path));
        ASSERT_TRUE(files.syncDirectory(directory.path()));
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST(FaultyFilesTest, theChosenOperationFailsAndAWriteIsTorn) {
    MemoryFiles memory;
    FaultyFiles files{memory};
    files.inject(FaultyFiles::Fault::failsOnce, 1);
    const auto file = files.create("file");
    ASSERT_NE(file, nullptr);
    EXPECT_FALSE(file->write("12345678"));
    EXPECT_TRUE(file->write("next"));
    EXPECT_EQ(memory.contents["file"], "1234next");
    files.inject(FaultyFiles::Fault::failsOn, 1);
    EXPECT_TRUE(files.read("file"));
    EXPECT_FALSE(files.read("file"));
    EXPECT_FALSE(files.remove("file"));
}

TEST(DurableDiskTest, whatWasNotSyncedMayBeLost) {
    DurableDisk disk;
    const auto file = disk.create("new");
    file->write("content");
    disk.rename("new", "file");
    const auto outcomes = disk.afterPowerFailure();
    const auto holds = [&outcomes](const DurableDisk::Contents& contents) {
        return std::ranges::find(outcomes, contents) != outcomes.end();
    };
    EXPECT_TRUE(holds({}));
    EXPECT_TRUE(holds({{"file", ""}}));
    EXPECT_TRUE(holds({{"file", "con"}}));
    EXPECT_TRUE(holds({{"file", "content"}}));
}

TEST(DurableDiskTest, whatWasSyncedStays) {
    DurableDisk disk;
    const auto file = disk.create("file");
    file->write("content");
    file->sync();
    disk.syncDirectory("");
    for (const auto& contents : disk.afterPowerFailure()) {
        EXPECT_EQ(contents, (DurableDisk::Contents{{"file", "content"}}));
    }
}

} // namespace
} // namespace velmorin
