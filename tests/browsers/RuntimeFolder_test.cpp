#include "app/platform/linux/browsers/RuntimeFolder.h"

#include "tests/support/TemporaryDirectory.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmorin {
namespace {

class RuntimeFolderTest : public testing::Test {
protected:
    RuntimeFolderTest() { ::chmod(base().c_str(), 0700); }

    std::filesystem::path base() const { return m_directory.path(); }
    std::filesystem::path ours() const { return base() / "velmorin"; }
    std::filesystem::path browsers() const { return ours() / "browsers"; }
    RuntimeFolder open() const { return RuntimeFolder::open(base().string()); }
    void expectRefused() const {
        const auto folder = open();
        EXPECT_FALSE(folder.isOpen());
        EXPECT_NE(folder.error().find(base().string()), std::string::npos) << folder.error();
    }

private:
    TemporaryDirectory m_directory;
};

mode_t modeOf(const std::filesystem::path& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 0777;
}

TEST_F(RuntimeFolderTest, itIsMadeForThisUserAlone) {
    const auto before = ::umask(0);
    EXPECT_TRUE(open().isOpen());
    ::umask(before);
    EXPECT_EQ(modeOf(ours()), 0700U);
    EXPECT_EQ(modeOf(browsers()), 0700U);
    EXPECT_TRUE(open().isOpen()) << "a second time";
}

TEST_F(RuntimeFolderTest, aPathLeadsIntoIt) {
    const auto folder = open();
    std::ofstream{folder.pathTo("file")} << "x";
    EXPECT_TRUE(std::filesystem::exists(browsers() / "file"));
}

TEST_F(RuntimeFolderTest, oneThatLetsOthersInIsRefused) {
    std::filesystem::create_directories(browsers());
    ::chmod(ours().c_str(), 0700);
    for (const mode_t mode : {0701U, 0710U, 0740U, 0777U}) {
        ::chmod(browsers().c_str(), mode);
        expectRefused();
    }
    ::chmod(browsers().c_str(), 0700);
    EXPECT_TRUE(open().isOpen());
}

TEST_F(RuntimeFolderTest, oneInAFolderThatOthersCanWriteToIsRefused) {
    EXPECT_TRUE(open().isOpen());
    ::chmod(ours().c_str(), 0770);
    expectRefused();
    ::chmod(ours().c_str(), 0755);
    EXPECT_TRUE(open().isOpen());
    ::chmod(base().c_str(), 0722);
    expectRefused();
}

TEST_F(RuntimeFolderTest, aLinkIsNotFollowed) {
    std::filesystem::create_directories(ours());
    std::filesystem::create_directory(base() / "elsewhere");
    ::chmod((base() / "elsewhere").c_str(), 0700);
    std::filesystem::create_directory_symlink(base() / "elsewhere", browsers());
    expectRefused();
}

TEST_F(RuntimeFolderTest, aFileInItsPlaceIsRefused) {
    std::ofstream{ours()} << "x";
    expectRefused();
}

TEST_F(RuntimeFolderTest, aFolderOfAnotherUserIsRefused) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can give a folder away";
    EXPECT_TRUE(open().isOpen());
    ASSERT_EQ(::chown(browsers().c_str(), 65534, 65534), 0);
    expectRefused();
    ASSERT_EQ(::chown(browsers().c_str(), 0, 0), 0);
    ASSERT_EQ(::chown(base().c_str(), 65534, 65534), 0);
    expectRefused();
}

TEST_F(RuntimeFolderTest, aMissingRuntimeDirectoryIsRefused) {
    EXPECT_FALSE(RuntimeFolder::open((base() / "missing").string()).isOpen());
}

TEST_F(RuntimeFolderTest, withoutARuntimeDirectoryItIsBelowTheTemporaryOne) {
    const auto fallback = "/tmp/velmorin-" + std::to_string(::geteuid());
    const bool wasThere = std::filesystem::exists(fallback);
    for (const auto* const none : {"", "relative"}) {
        const auto folder = RuntimeFolder::open(none);
        EXPECT_TRUE(folder.isOpen()) << folder.error();
        EXPECT_EQ(modeOf(fallback), 0700U);
    }
    if (!wasThere) std::filesystem::remove_all(fallback);
}

} // namespace
} // namespace velmorin
