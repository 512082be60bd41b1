#include "app/platform/linux/browsers/HostInstallation.h"

#include "app/platform/linux/browsers/HostManifest.h"
#include "core/foundation/JSONArguments.h"
#include "tests/support/TemporaryDirectory.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace velmorin {
namespace {

using Family = KnownBrowser::Family;

TEST(HostManifestTest, eachFamilyIsToldOfTheExtensionInItsWay) {
    const JSONArguments chromium{HostManifest::content(Family::chromium, "/opt/a \"b\\/host")};
    EXPECT_EQ(chromium.get<std::string>("name"), "com.kestrava.velmorin");
    EXPECT_EQ(chromium.get<std::string>("path"), "/opt/a \"b\\/host");
    EXPECT_EQ(chromium.get<std::string>("type"), "stdio");
    EXPECT_EQ(chromium.get<std::vector<std::string>>("allowed_origins"),
              std::vector<std::string>{"chrome-extension://cjoplcghhhecbifmooggfhblnfgmeopm/"});
    const JSONArguments firefox{HostManifest::content(Family::firefox, "/opt/host")};
    EXPECT_EQ(firefox.get<std::vector<std::string>>("allowed_extensions"),
              std::vector<std::string>{"velmorin@kestrava.com"});
    EXPECT_FALSE(firefox.has("allowed_origins"));
}

TEST(HostManifestTest, aPathThatNoManifestCanHoldGivesNone) {
    for (const auto* const path : {"", "host", "./host", "/a\nb"})
        EXPECT_EQ(HostManifest::content(Family::chromium, path), "") << path;
}

TEST(HostManifestTest, theArgumentsOfBothBrowsersAreKnown) {
    EXPECT_TRUE(HostManifest::isStartedFor("chrome-extension://cjoplcghhhecbifmooggfhblnfgmeopm/", ""));
    EXPECT_TRUE(HostManifest::isStartedFor("/home/a/.mozilla/x.json", "velmorin@kestrava.com"));
    EXPECT_FALSE(HostManifest::isStartedFor("chrome-extension://aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa/", ""));
    EXPECT_FALSE(HostManifest::isStartedFor("/home/a/.mozilla/x.json", "another@example.com"));
    EXPECT_FALSE(HostManifest::isStartedFor("", ""));
}

class HostInstallationTest : public testing::Test {
protected:
    static std::string contentOf(const std::filesystem::path& path) {
        std::ifstream stream{path};
        return {std::istreambuf_iterator<char>{stream}, {}};
    }
    UserFolders folders() const { return {m_directory.path(), m_directory.path() / ".config"}; }
    ManifestPlace place() const { return manifestPlace(m_directory.path() / "profile"); }

    TemporaryDirectory m_directory;
};

TEST_F(HostInstallationTest, theCommonBrowsersAndThoseInUseHaveAPlace) {
    std::filesystem::create_directories(folders().configuration / "vivaldi");
    std::vector<std::string> files;
    for (const auto& each : manifestPlaces(folders()))
        files.push_back(std::filesystem::relative(each.file, m_directory.path()));
    EXPECT_EQ(files, (std::vector<std::string>{
                         ".config/chromium/NativeMessagingHosts/com.kestrava.velmorin.json",
                         ".config/google-chrome/NativeMessagingHosts/com.kestrava.velmorin.json",
                         ".config/vivaldi/NativeMessagingHosts/com.kestrava.velmorin.json",
                         ".mozilla/native-messaging-hosts/com.kestrava.velmorin.json",
                     }));
}

TEST_F(HostInstallationTest, aManifestIsWrittenReplacedAndRemoved) {
    EXPECT_FALSE(installManifest(place(), "/opt/old"));
    EXPECT_FALSE(installManifest(place(), "/opt/new"));
    EXPECT_EQ(contentOf(place().file), HostManifest::content(Family::chromium, "/opt/new"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator{place().file.parent_path()}, {}), 1);
    EXPECT_FALSE(removeManifest(place()));
    EXPECT_FALSE(std::filesystem::exists(place().file));
    EXPECT_FALSE(removeManifest(place())) << "there is nothing to remove";
}

TEST_F(HostInstallationTest, whatCannotBeWrittenIsTold) {
    std::ofstream{m_directory.path() / "profile"} << "a file where a folder should be";
    EXPECT_TRUE(installManifest(place(), "/opt/host"));
    EXPECT_TRUE(installManifest(manifestPlace(m_directory.path() / "other"), "host")) << "no absolute path";
}

} // namespace
} // namespace velmorin
