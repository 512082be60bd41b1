#include "core/store/JSONStore.h"

#include "core/session/ActiveSession.h"
#include "core/session/AppSettings.h"
#include "core/session/Profile.h"
#include "core/session/SessionRecord.h"
#include "core/session/Thought.h"
#include "core/store/PosixFiles.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/SampleHistory.h"
#include "tests/support/TemporaryDirectory.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <sys/stat.h>

namespace velmorin {
namespace {

using Profiles = std::vector<Profile>;
using History = std::vector<SessionRecord>;

class JSONStoreTest : public testing::Test {
protected:
    void put(const char* name, const std::string& text) {
        std::ofstream{directory.path() / name, std::ios::binary} << text;
    }
    std::optional<std::string> content(const char* name) { return files.read(directory.path() / name); }

    std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator{directory.path()}) {
            names.push_back(entry.path().filename());
        }
        std::ranges::sort(names);
        return names;
    }

    TemporaryDirectory directory;
    PosixFiles files;
    JSONStore store{directory.path(), files};
};

TEST_F(JSONStoreTest, aNewStoreMakesItsDirectoryAndNoFile) {
    const auto path = directory.path() / "data" / "Velmorin";
    const JSONStore fresh{path, files};
    EXPECT_TRUE(std::filesystem::is_directory(path));
    EXPECT_TRUE(std::filesystem::is_empty(path));
    EXPECT_EQ(fresh.directory(), path);
    EXPECT_EQ(JSONStore::defaultDirectory(directory.path() / "data"), path);
}

TEST_F(JSONStoreTest, aDirectoryThatCannotBeMadeOnlyMakesEverythingFail) {
    put("file", "in the way");
    const JSONStore barred{directory.path() / "file" / "below", files};
    EXPECT_FALSE(barred.save(AppSettings{}, "settings.json"));
    EXPECT_FALSE(barred.load<AppSettings>("settings.json"));
    barred.appendLine("line", "events.log");
    barred.remove("settings.json");
    EXPECT_EQ(content("file"), "in the way");
}

TEST_F(JSONStoreTest, aMissingFileHasNoValue) {
    EXPECT_FALSE(store.load<AppSettings>("settings.json"));
    EXPECT_TRUE(names().empty());
}

TEST_F(JSONStoreTest, whatIsSavedIsLoaded) {
    const auto history = sampleHistory(50);
    EXPECT_TRUE(store.save(history, "history.json"));
    EXPECT_EQ(store.load<History>("history.json"), history);
    EXPECT_EQ(names(), std::vector<std::string>{"history.json"});
}

TEST_F(JSONStoreTest, aSaveReplacesALongerFileWhole) {
    ASSERT_TRUE(store.save(sampleHistory(50), "history.json"));
    ASSERT_TRUE(store.save(History{}, "history.json"));
    EXPECT_EQ(content("history.json"), "[]");
}

TEST_F(JSONStoreTest, oneDamagedRecordFailsTheWholeFileAndLeavesItAsItIs) {
    std::string text = *encodeJSON(sampleHistory(3));
    text.replace(text.rfind("\"returns\""), 9, "\"Returns\"");
    put("history.json", text);
    EXPECT_FALSE(store.load<History>("history.json"));
    EXPECT_EQ(content("history.json"), text);
}

TEST_F(JSONStoreTest, oneProfileLackingItsDeepTimingsFailsTheWholeFile) {
    std::string text = *encodeJSON(Profiles{{"زبان", SessionMode::deep}, {"کار", SessionMode::pomodoro}});
    put("profiles.json", text);
    EXPECT_TRUE(store.load<Profiles>("profiles.json"));
    text.replace(text.rfind("\"deep\":{"), 8, "\"Deep\":{");
    put("profiles.json", text);
    EXPECT_FALSE(store.load<Profiles>("profiles.json"));
}

TEST_F(JSONStoreTest, settingsWithAnUnknownLanguageStillLoad) {
    put("settings.json", R"({"language":"tlh","lockPhoneToo":true})");
    AppSettings expected;
    expected.lockPhoneToo = true;
    EXPECT_EQ(store.load<AppSettings>("settings.json"), expected);
}

TEST_F(JSONStoreTest, aValueWithoutAJSONFormIsNotSavedAndTheOldFileStays) {
    auto history = sampleHistory(2);
    ASSERT_TRUE(store.save(history, "history.json"));
    history[0].focusedSeconds = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(store.save(history, "history.json"));
    history[0].focusedSeconds = 0;
    history[0].intent = "\xC3";
    EXPECT_FALSE(store.save(history, "history.json"));
    EXPECT_EQ(store.load<History>("history.json"), sampleHistory(2));
}

TEST_F(JSONStoreTest, removingAFileThatIsNotThereDoesNothing) {
    store.remove("active-session.json");
    ASSERT_TRUE(store.save(AppSettings{}, "settings.json"));
    store.remove("settings.json");
    EXPECT_TRUE(names().empty());
}

TEST_F(JSONStoreTest, aDirectoryInThePlaceOfAFileFailsEveryOperationAndStays) {
    std::filesystem::create_directory(directory.path() / "settings.json");
    EXPECT_FALSE(store.load<AppSettings>("settings.json"));
    EXPECT_FALSE(store.save(AppSettings{}, "settings.json"));
    store.appendLine("line", "settings.json");
    store.remove("settings.json");
    EXPECT_EQ(names(), std::vector<std::string>{"settings.json"});
}

TEST_F(JSONStoreTest, appendingToAMissingFileMakesItWithJustThatLine) {
    store.appendLine("first", "events.log");
    EXPECT_EQ(content("events.log"), "first\n");
}

TEST_F(JSONStoreTest, appendingAddsALineAndRewritesNothing) {
    put("events.log", "first\n");
    const auto node = std::filesystem::path{directory.path() / "events.log"};
    struct stat before {};
    struct stat after {};
    ASSERT_EQ(::stat(node.c_str(), &before), 0);
    FaultyFiles counted{files};
    const JSONStore counting{directory.path(), counted};
    counted.inject(FaultyFiles::Fault::none, 0);
    counting.appendLine("second", "events.log");
    EXPECT_EQ(counted.operationCount(), 3U) << "opened at its end, written, closed";
    ASSERT_EQ(::stat(node.c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino) << "still the same file";
    EXPECT_EQ(content("events.log"), "first\nsecond\n");
}

TEST_F(JSONStoreTest, aLineThatIsNotUTF8IsDropped) {
    store.appendLine("\xFF", "events.log");
    EXPECT_FALSE(content("events.log"));
    store.appendLine("fine", "events.log");
    store.appendLine("\xC0\x80", "events.log");
    EXPECT_EQ(content("events.log"), "fine\n");
}

TEST_F(JSONStoreTest, nothingIsWrittenBeyondTheFilesThemselves) {
    ASSERT_TRUE(store.save(AppSettings{}, "settings.json"));
    ASSERT_TRUE(store.save(Profiles{}, "profiles.json"));
    store.appendLine("line", "events.log");
    EXPECT_EQ(names(), (std::vector<std::string>{"events.log", "profiles.json", "settings.json"}));
}

TEST_F(JSONStoreTest, hugeAndHostileFilesHaveNoValueAndDoNoHarm) {
    constexpr std::size_t huge = 100'000'000;
    const std::string bracketBomb(huge, '[');
    const std::string objectBomb = [] {
        std::string text;
        for (int depth = 0; depth < 100'000; ++depth)
            text += R"({"a":)";
        return text;
    }();
    const std::string closedBomb = std::string(100'000, '[') + std::string(100'000, ']');
    const std::string endlessText = "\"" + std::string(huge, 'x');
    const std::string zeros(huge, '\0');
    const std::string spaces(huge, ' ');
    const std::string digits(huge, '7');
    for (const auto& text : {bracketBomb, objectBomb, closedBomb, endlessText, zeros, spaces, digits}) {
        put("settings.json", text);
        EXPECT_FALSE(store.load<AppSettings>("settings.json")) << text.substr(0, 20);
        EXPECT_FALSE(store.load<History>("settings.json")) << text.substr(0, 20);
        put("settings.json", R"({"unknown":)" + text + "}");
        EXPECT_EQ(store.load<AppSettings>("settings.json").has_value(), text == digits) << text.substr(0, 20);
    }
}

TEST_F(JSONStoreTest, aHistoryOfAHundredMegabytesLoads) {
    const auto sample = sampleHistory(10'000);
    History long_;
    while (long_.size() < 400'000)
        long_.insert(long_.end(), sample.begin(), sample.end());
    ASSERT_TRUE(store.save(long_, "history.json"));
    ASSERT_GT(std::filesystem::file_size(directory.path() / "history.json"), 100'000'000U);
    const auto loaded = store.load<History>("history.json");
    ASSERT_TRUE(loaded);
    EXPECT_TRUE(*loaded == long_);
}

} // namespace
} // namespace velmorin
