#include "app/engine/AppCatalog.h"

#include "app/platform/simulated/SimulatedInstalledApplications.h"
#include "app/platform/simulated/SimulatedWorkspace.h"

#include <gtest/gtest.h>

namespace velmorin {
namespace {

using Apps = std::vector<InstalledApp>;

class AppCatalogTest : public ::testing::Test {
protected:
    Apps scan(AppLanguage language = AppLanguage::english) {
        return AppCatalog::scan(installed, workspace, self, language);
    }
    std::vector<std::string> names(AppLanguage language = AppLanguage::english) {
        std::vector<std::string> result;
        for (const auto& app : scan(language))
            result.push_back(app.name);
        return result;
    }
    void install(const std::string& name) { installed.apps.push_back({name, "org.example." + name, "/" + name}); }
    void run(std::int32_t pid, std::optional<std::string> bundleID, std::optional<std::string> name,
             ActivationPolicy policy = ActivationPolicy::regular) {
        workspace.add({.pid = pid, .bundleID = std::move(bundleID), .name = std::move(name), .policy = policy});
    }

    VirtualTime time{Date{800'000'000}};
    Journal journal{[this] { return time.elapsed(); }};
    SimulatedWorkspace workspace{time, journal};
    SimulatedInstalledApplications installed;
    std::optional<std::string> self = "com.kestrava.velmorin";
};

TEST_F(AppCatalogTest, ofOneIdentifierThatIsInstalledTwiceTheFirstIsListed) {
    installed.apps = {{"Editor", "org.example.editor", "/home/editor"},
                      {"Old Editor", "org.example.editor", "/usr/editor"}};
    EXPECT_EQ(scan(), (Apps{{"Editor", "org.example.editor", "/home/editor"}}));
}

TEST_F(AppCatalogTest, whatRunsFromAnywhereElseIsListed) {
    install("Editor");
    run(1, "org.example.tool", "Tool");
    EXPECT_EQ(scan(), (Apps{{"Editor", "org.example.Editor", "/Editor"}, {"Tool", "org.example.tool", ""}}));
}

TEST_F(AppCatalogTest, whatRunsIsListedWithItsPlaceWhereItHasOne) {
    workspace.installed.insert("org.example.tool");
    run(1, "org.example.tool", "Tool");
    EXPECT_EQ(scan(), (Apps{{"Tool", "org.example.tool", "org.example.tool"}}));
}

TEST_F(AppCatalogTest, whatIsInstalledAndRunsIsListedAsInstalled) {
    install("Editor");
    run(1, "org.example.Editor", "Editor, document 1");
    EXPECT_EQ(scan(), (Apps{{"Editor", "org.example.Editor", "/Editor"}}));
}

TEST_F(AppCatalogTest, whatRunsWithoutAFaceOrAnIdentifierIsNotListed) {
    run(1, "org.example.agent", "Agent", ActivationPolicy::accessory);
    run(2, "org.example.daemon", "Daemon", ActivationPolicy::prohibited);
    run(3, std::nullopt, "Nobody");
    EXPECT_TRUE(scan().empty());
}

TEST_F(AppCatalogTest, whatRunsWithoutANameIsListedByItsIdentifier) {
    run(1, "org.example.tool", std::nullopt);
    EXPECT_EQ(names(), (std::vector<std::string>{"org.example.tool"}));
}

TEST_F(AppCatalogTest, thisProgramIsNotListedInstalledOrRunning) {
    installed.apps = {{"Velmorin", *self, "/velmorin"}};
    run(1, self, "Velmorin");
    EXPECT_TRUE(scan().empty());
    self = std::nullopt;
    EXPECT_EQ(names(), (std::vector<std::string>{"Velmorin"}));
}

TEST_F(AppCatalogTest, namesAreSortedWithoutRegardToCase) {
    for (const auto* name : {"zip", "Calc", "archive", "Zebra", "Book"})
        install(name);
    EXPECT_EQ(names(), (std::vector<std::string>{"archive", "Book", "Calc", "Zebra", "zip"}));
}

TEST_F(AppCatalogTest, namesAreSortedAsTheLanguageHasIt) {
    for (const auto* name : {"Zeit", "Öl", "Ofen"})
        install(name);
    EXPECT_EQ(names(AppLanguage::german), (std::vector<std::string>{"Ofen", "Öl", "Zeit"}));
    installed.apps.clear();
    for (const auto* name : {"تار", "پول", "باد"})
        install(name);
    EXPECT_EQ(names(AppLanguage::persian), (std::vector<std::string>{"باد", "پول", "تار"}));
}

TEST_F(AppCatalogTest, applicationsOfOneNameStayInTheOrderInWhichTheyWereFound) {
    installed.apps = {{"Files", "c", ""}, {"files", "a", ""}, {"FILES", "b", ""}};
    EXPECT_EQ(scan(), installed.apps);
}

TEST_F(AppCatalogTest, withoutAnyApplicationTheListIsEmpty) {
    EXPECT_TRUE(scan().empty());
}

TEST(AppCatalogFilterTest, whatIsTypedIsLookedForInNamesWithoutRegardToCase) {
    const Apps apps{{"Text Editor", "a", ""}, {"Photos", "editor", ""}, {"EDITOR", "b", ""}};
    EXPECT_EQ(AppCatalog::filtered(apps, "edit"), (Apps{apps[0], apps[2]}));
    EXPECT_EQ(AppCatalog::filtered(apps, ""), apps);
    EXPECT_TRUE(AppCatalog::filtered(apps, "nothing").empty());
}

} // namespace
} // namespace velmorin
