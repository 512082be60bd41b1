#include "app/engine/AppData.h"

#include "core/store/PosixFiles.h"
#include "tests/engine/AppDataTest.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDirectory.h"

#include <filesystem>
#include <functional>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// One of the files that are loaded: what it may hold, whether its value is at the default, and how it is saved.
struct DataFile {
    std::string_view name;
    std::string text;
    std::function<bool(const AppData&)> isDefault;
    std::function<void(AppData&)> save;
};

bool isFirstProfiles(const std::vector<Profile>& profiles) {
    return profiles.size() == 2 && profiles[0].name == "زبان" && profiles[1].name == "کار";
}

std::vector<DataFile> dataFiles() {
    const auto textOf = [](const auto& value) { return *encodeJSON(value); };
    SessionRecord old;
    old.id = UUID::random();
    QuoteDeck deck;
    deck.last["urge"] = 3;
    return {
        {AppData::profilesFile, textOf(std::vector{Profile{"Work", SessionMode::deep}}),
         [](const AppData& data) { return isFirstProfiles(*data.profiles()); },
         [](AppData& data) { data.setProfiles({}); }},
        {AppData::thoughtsFile, textOf(std::vector{Thought{"later", Date{1}}}),
         [](const AppData& data) { return data.thoughts()->empty(); },
         [](AppData& data) {
             data.setThoughts(std::vector{Thought{"new", Date{2}}});
         }},
        {AppData::historyFile, textOf(std::vector{old}), [](const AppData& data) { return data.history()->empty(); },
         [](AppData& data) { data.setHistory({}); }},
        {AppData::clearedHistoryFile, textOf(std::vector{old}),
         [](const AppData& data) { return data.clearedHistory()->empty(); },
         [](AppData& data) { data.restoreClearedHistory(); }},
        {AppData::settingsFile, R"({"language":"de"})",
         [](const AppData& data) { return *data.settings() == AppSettings{}; },
         [](AppData& data) { data.setSettings({}); }},
        {AppData::quoteDeckFile, textOf(deck), [](const AppData& data) { return data.quoteDeck() == QuoteDeck{}; },
         [](AppData& data) { (void)data.nextQuote(QuoteCategory::urge); }},
    };
}

TEST_F(AppDataTest, aFirstStartGivesOneProfileForStudyAndOneForWork) {
    const auto& profiles = *data().profiles();
    ASSERT_THAT(profiles, SizeIs(2));
    EXPECT_EQ(profiles[0].name, "زبان");
    EXPECT_EQ(profiles[0].mode, SessionMode::deep);
    EXPECT_EQ(profiles[1].name, "کار");
    EXPECT_EQ(profiles[1].mode, SessionMode::pomodoro);
    EXPECT_NE(profiles[0].id, profiles[1].id);
    for (const auto& profile : profiles) {
        EXPECT_EQ(profile, (Profile{profile.name, profile.mode, profile.id})) << "all else is at the defaults";
        EXPECT_EQ(profile.id.bytes[6] >> 4, 4) << "the identifier is a fresh one";
    }
}

TEST_F(AppDataTest, aFirstStartFindsNothingElse) {
    for (const auto& entry : dataFiles())
        EXPECT_TRUE(entry.isDefault(data())) << entry.name;
    EXPECT_THAT(data().openThoughts(), IsEmpty());
    EXPECT_EQ(*data().settings(), AppSettings{});
    EXPECT_EQ(data().quoteDeck(), QuoteDeck{});
    EXPECT_EQ(data().store().directory(), setup.directory);
}

TEST_F(AppDataTest, loadingWritesNoFile) {
    load();
    EXPECT_THAT(eventNames(), IsEmpty());
    EXPECT_THAT(files.contents, IsEmpty());
}

TEST_F(AppDataTest, loadingAFullStoreWritesNothingEither) {
    for (const auto& entry : dataFiles())
        writeFile(entry.name, entry.text);
    const auto before = files.contents;
    load();
    EXPECT_THAT(eventNames(), IsEmpty());
    EXPECT_EQ(files.contents, before);
}

TEST_F(AppDataTest, onlyTheDirectoryItselfComesToExist) {
    const TemporaryDirectory parent;
    PosixFiles realDisk;
    const auto directory = JSONStore::defaultDirectory(parent.path() / "not yet there");
    const AppData loaded{JSONStore{directory, realDisk},
                         {desktop().time, desktop().time, desktop().random, desktop().relay, appearance}};
    EXPECT_THAT(*loaded.profiles(), SizeIs(2));
    ASSERT_TRUE(std::filesystem::is_directory(directory));
    EXPECT_TRUE(std::filesystem::is_empty(directory));
}

TEST_F(AppDataTest, everyFileIsLoaded) {
    for (const auto& entry : dataFiles())
        writeFile(entry.name, entry.text);
    for (const auto& entry : dataFiles())
        EXPECT_FALSE(entry.isDefault(data())) << entry.name;
    EXPECT_EQ(data().settings()->language, AppLanguage::german);
}

TEST_F(AppDataTest, aDamagedFileGivesItsDefaultAndIsLeftUntouched) {
    const auto all = dataFiles();
    for (const auto& damaged : all) {
        for (const std::string text : {"", "{", "null", "7", "\xFF", R"([{"id":"none"}])"}) {
            for (const auto& entry : all)
                writeFile(entry.name, entry.text);
            writeFile(damaged.name, text);
            load();
            for (const auto& entry : all)
                EXPECT_EQ(entry.isDefault(data()), entry.name == damaged.name) << damaged.name << " is " << text;
            EXPECT_EQ(file(damaged.name), text);
        }
    }
    EXPECT_THAT(eventNames(), IsEmpty());
}

TEST_F(AppDataTest, theNextSaveOverwritesADamagedFile) {
    for (const auto& damaged : dataFiles()) {
        writeFile(damaged.name, "{damaged");
        load();
        forgetEvents();
        damaged.save(data());
        EXPECT_EQ(saves(damaged.name), 1U) << damaged.name;
        load();
        EXPECT_NE(file(damaged.name), "{damaged") << damaged.name;
    }
}

TEST_F(AppDataTest, filesThatCannotBeReadGiveTheirDefaultsLikeMissingOnes) {
    for (const auto& entry : dataFiles())
        writeFile(entry.name, entry.text);
    FaultyFiles gone{files};
    gone.inject(FaultyFiles::Fault::failsOn, 0);
    const AppData loaded{JSONStore{setup.directory, gone},
                         {desktop().time, desktop().time, desktop().random, desktop().relay, appearance}};
    for (const auto& entry : dataFiles())
        EXPECT_TRUE(entry.isDefault(loaded)) << entry.name;
}

TEST_F(AppDataTest, aProfileWithoutAKeyCostsTheWholeList) {
    std::string text = *encodeJSON(std::vector{Profile{"Work", SessionMode::pomodoro}});
    const auto start = text.find(R"("deep":)");
    ASSERT_NE(start, std::string::npos);
    text.replace(start, 6, R"("deeq")");
    writeFile(AppData::profilesFile, text);
    EXPECT_TRUE(isFirstProfiles(*data().profiles()));
    EXPECT_EQ(file(AppData::profilesFile), text);
}

TEST_F(AppDataTest, oneDamagedRecordCostsTheWholeList) {
    const std::string id = UUID::random().text();
    const std::string good = R"({"id":")" + id + R"(","text":"a","createdAt":1,"done":false})";
    const std::string withoutDone = R"({"id":")" + id + R"(","text":"b","createdAt":1})";
    writeFile(AppData::thoughtsFile, "[" + good + "]");
    EXPECT_THAT(*data().thoughts(), SizeIs(1));
    EXPECT_FALSE(data().thoughts()->front().updatedAt);
    EXPECT_EQ(data().thoughts()->front().changedAt(), Date{1});
    writeFile(AppData::thoughtsFile, "[" + good + "," + withoutDone + "]");
    load();
    EXPECT_THAT(*data().thoughts(), IsEmpty());
}

TEST_F(AppDataTest, settingsOfAnotherBuildLoseOnlyWhatIsUnknown) {
    writeFile(AppData::settingsFile, R"({"language":"fr","colorTheme":7,"lockPhoneToo":true,"newer":1})");
    AppSettings expected;
    expected.lockPhoneToo = true;
    EXPECT_EQ(*data().settings(), expected);
    writeFile(AppData::settingsFile, "{}");
    load();
    EXPECT_EQ(*data().settings(), AppSettings{});
    writeFile(AppData::settingsFile, R"({"language":"de","showFloatingTimer":"yes"})");
    load();
    EXPECT_EQ(*data().settings(), AppSettings{});
}

TEST_F(AppDataTest, nothingIsReadAgainAfterTheStart) {
    load();
    for (const auto& entry : dataFiles())
        writeFile(entry.name, entry.text);
    data().log("something");
    for (const auto& entry : dataFiles())
        EXPECT_TRUE(entry.isDefault(data())) << entry.name;
}

TEST_F(AppDataTest, thePhoneLinkIsMadeOnFirstUseOnly) {
    load();
    const PhonePairing pairing{Bytes(16, 1), Bytes(32, 2)};
    writeFile(PhoneLink::fileName, R"({"pairing":)" + *encodeJSON(pairing) + R"(,"isConfirmed":true})");
    EXPECT_EQ(*data().phoneLink().pairingState(), PairingState::paired);
    EXPECT_EQ(&data().phoneLink(), &data().phoneLink());
}

TEST_F(AppDataTest, eachAssignmentSavesItsFileOnceWhetherItChangesAnythingOrNot) {
    for (int time = 1; time <= 2; ++time) {
        data().setProfiles({Profile{"Work", SessionMode::deep, UUID{}}});
        data().setThoughts({});
        data().setHistory({});
        data().setSettings({});
    }
    EXPECT_THAT(eventNames(),
                ElementsAre("save", "save", "save", "save", "save", "save", "save", "save")); // and nothing logged
    for (const auto name : {AppData::profilesFile, AppData::thoughtsFile, AppData::historyFile, AppData::settingsFile})
        EXPECT_EQ(saves(name), 2U) << name;
}

TEST_F(AppDataTest, whatIsSavedIsLoadedByTheNextProcess) {
    AppSettings settings;
    settings.colorTheme = ColorTheme::aurora;
    settings.focusOnShortcut = "";
    const std::vector profiles{Profile{"a/b", SessionMode::deep}, Profile{"", SessionMode::pomodoro}};
    const std::vector history{record("one", 1), record("two", 2)};
    data().setProfiles(profiles);
    data().setHistory(history);
    data().setSettings(settings);
    data().addThought("later");
    const auto thoughts = *data().thoughts();
    load();
    EXPECT_EQ(*data().profiles(), profiles);
    EXPECT_EQ(*data().history(), history);
    EXPECT_EQ(*data().settings(), settings);
    EXPECT_EQ(*data().thoughts(), thoughts);
}

TEST_F(AppDataTest, watchersHearOfChangesAndNotOfEveryAssignment) {
    std::vector<std::string> heard;
    const auto profiles = data().profiles().watch([&heard] { heard.emplace_back("profiles"); });
    const auto thoughts = data().thoughts().watch([&heard] { heard.emplace_back("thoughts"); });
    const auto history = data().history().watch([&heard] { heard.emplace_back("history"); });
    const auto cleared = data().clearedHistory().watch([&heard] { heard.emplace_back("cleared"); });
    const auto settings = data().settings().watch([&heard] { heard.emplace_back("settings"); });
    AppSettings dawn;
    dawn.colorTheme = ColorTheme::dawn;
    for (int time = 1; time <= 2; ++time) {
        data().setProfiles({});
        data().setThoughts({});
        data().setHistory({SessionRecord{}});
        data().setSettings(dawn);
    }
    EXPECT_THAT(heard, ElementsAre("profiles", "history", "settings"));
    heard.clear();
    data().clearHistory();
    EXPECT_THAT(heard, ElementsAre("cleared", "history"));
    heard.clear();
    data().restoreClearedHistory();
    data().restoreClearedHistory();
    EXPECT_THAT(heard, ElementsAre("history", "cleared"));
}

TEST_F(AppDataTest, settingsAreSavedThenAppliedThenTold) {
    data().onSettingsChange = [this] { desktop().journal.tell("callback"); };
    const auto language = appearance.language().watch([this] { desktop().journal.tell("language"); });
    const auto theme = appearance.theme().watch([this] { desktop().journal.tell("theme"); });
    AppSettings settings;
    settings.language = AppLanguage::german;
    settings.colorTheme = ColorTheme::dawn;
    data().setSettings(settings);
    EXPECT_THAT(eventNames(), ElementsAre("save", "language", "theme", "callback"));
    EXPECT_EQ(stored<AppSettings>(AppData::settingsFile), settings);
    forgetEvents();
    data().setSettings(settings);
    EXPECT_THAT(eventNames(), ElementsAre("save", "callback")) << "equal ones wake no screen";
}

TEST_F(AppDataTest, loadingAppliesNoSettings) {
    writeFile(AppData::settingsFile, R"({"language":"de"})");
    load();
    EXPECT_EQ(*appearance.language(), AppLanguage::persian) << "the launch does that";
}

TEST_F(AppDataTest, aFullDiskLeavesTheOldFileAndTheNewValue) {
    data().setProfiles({Profile{"old", SessionMode::deep}});
    const auto before = file(AppData::profilesFile);
    desktop().disk.isFull = true;
    forgetEvents();
    data().setProfiles({Profile{"new", SessionMode::deep}});
    EXPECT_THAT(eventNames(), ElementsAre("saveFailed")) << "no second try, and nothing is logged";
    EXPECT_EQ(file(AppData::profilesFile), before);
    EXPECT_EQ(data().profiles()->front().name, "new");
    advance(3600);
    EXPECT_EQ(file(AppData::profilesFile), before);
}

TEST_F(AppDataTest, theNextChangeAfterAFullDiskWritesTheCompleteList) {
    data().setProfiles({Profile{"old", SessionMode::deep}});
    desktop().disk.isFull = true;
    auto profiles = *data().profiles();
    profiles.emplace_back("second", SessionMode::deep);
    data().setProfiles(profiles);
    desktop().disk.isFull = false;
    profiles.emplace_back("third", SessionMode::pomodoro);
    data().setProfiles(profiles);
    EXPECT_EQ(stored<std::vector<Profile>>(AppData::profilesFile), profiles);
}

TEST_F(AppDataTest, settingsReachTheScreensAlsoOnAFullDisk) {
    desktop().disk.isFull = true;
    int calls = 0;
    data().onSettingsChange = [&calls] { ++calls; };
    AppSettings settings;
    settings.language = AppLanguage::english;
    data().setSettings(settings);
    EXPECT_EQ(*appearance.language(), AppLanguage::english);
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(file(AppData::settingsFile));
}

} // namespace
} // namespace velmorin
