#include "app/platform/linux/browsers/LinuxBrowserSetup.h"

#include "tests/support/TemporaryDirectory.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace velmorin {
namespace {

class LinuxBrowserSetupTest : public testing::Test {
protected:
    LinuxBrowserSetupTest() {
        ::setenv("HOME", home.path().c_str(), 1); // NOLINT(concurrency-mt-unsafe)
        ::unsetenv("XDG_CONFIG_HOME");            // NOLINT(concurrency-mt-unsafe)
    }

    static std::string contentOf(const std::filesystem::path& path) {
        std::ifstream stream{path};
        return {std::istreambuf_iterator<char>{stream}, {}};
    }

    TemporaryDirectory home;
    std::filesystem::path host = home.path() / "velmorin-browser-host";
    LinuxBrowserSetup setup{host, "/usr/share/velmorin/browser-extension"};
};

TEST_F(LinuxBrowserSetupTest, aChromiumIsToldWhereItsExtensionIsAndWhereToAddIt) {
    EXPECT_EQ(setup.pageAddress(BrowserKind::chrome), "chrome://extensions");
    EXPECT_EQ(setup.folder(BrowserKind::chrome), "/usr/share/velmorin/browser-extension/chromium");
}

TEST_F(LinuxBrowserSetupTest, introducingWritesTheManifestsAlsoTwice) {
    std::ofstream{host} << "a program";
    EXPECT_TRUE(setup.introduce(BrowserKind::chrome));
    EXPECT_TRUE(setup.introduce(BrowserKind::chrome));
    for (const auto* const folder : {".config/chromium", ".config/google-chrome"}) {
        const auto manifest = home.path() / folder / "NativeMessagingHosts/com.kestrava.velmorin.json";
        EXPECT_NE(contentOf(manifest).find(host.string()), std::string::npos) << manifest;
    }
    EXPECT_FALSE(std::filesystem::exists(home.path() / ".mozilla"));
}

TEST_F(LinuxBrowserSetupTest, withoutTheHostNothingIsIntroduced) {
    EXPECT_FALSE(setup.introduce(BrowserKind::chrome));
    EXPECT_FALSE(std::filesystem::exists(home.path() / ".config"));
}

TEST_F(LinuxBrowserSetupTest, aFolderThatCannotBeWrittenIsTold) {
    std::ofstream{host} << "a program";
    std::ofstream{home.path() / ".config"} << "a file in the way";
    EXPECT_FALSE(setup.introduce(BrowserKind::chrome));
}

} // namespace
} // namespace velmorin
