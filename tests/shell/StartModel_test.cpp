#include "app/shell/StartModel.h"

#include "tests/shell/PageTest.h"

#include <QSignalSpy>

namespace velmorin {
namespace {

class StartModelTest : public PageTest {
protected:
    StartModelTest() { setProfiles({Profile{"Studying", SessionMode::pomodoro}, Profile{"Code", SessionMode::deep}}); }

    QStringList titles() {
        QStringList titles;
        for (auto rows = model.timeRows(); auto* const row : *static_cast<QList<TimeRow*>*>(rows.data))
            titles.push_back(row->title());
        return titles;
    }
    TimeRow& row(std::string_view title) {
        for (auto rows = model.timeRows(); auto* const row : *static_cast<QList<TimeRow*>*>(rows.data))
            if (row->title() == text(title)) return *row;
        throw std::out_of_range{std::string{title}};
    }
    void allow(std::size_t apps, std::size_t sites) {
        auto profiles = *data.profiles();
        profiles[0].allowedApps.assign(apps, {"org.example.editor", "Editor"});
        profiles[0].allowedDomains.assign(sites, "example.org");
        setProfiles(profiles);
    }

    StartModel model{context};
};

TEST_F(StartModelTest, theFirstProfileIsChosenUntilAnotherIs) {
    EXPECT_EQ(model.selectedIndex(), 0);
    EXPECT_EQ(model.profileNames(), (QStringList{"Studying", "Code"}));
    model.select(1);
    EXPECT_EQ(model.selectedIndex(), 1);
    model.select(2);
    model.select(-1);
    EXPECT_EQ(model.selectedIndex(), 1);
}

TEST_F(StartModelTest, theChosenProfileStaysChosenWhereverItIsInTheList) {
    model.select(1);
    setProfiles({profile(1), profile(0)});
    EXPECT_EQ(model.selectedIndex(), 0);
    EXPECT_EQ(model.mode(), 1);
}

TEST_F(StartModelTest, aRemovedProfileGivesWayToTheFirst) {
    model.select(1);
    setProfiles({profile(0)});
    EXPECT_EQ(model.selectedIndex(), 0);
    EXPECT_EQ(model.mode(), 0);
}

TEST_F(StartModelTest, withoutProfilesNothingCanBeStarted) {
    setProfiles({});
    EXPECT_FALSE(model.hasProfile());
    EXPECT_EQ(model.selectedIndex(), -1);
    EXPECT_EQ(model.allowedSummary(), "");
    EXPECT_EQ(model.workFraction(), 0);
    model.startSession();
    model.resetTimings();
    model.setMode(1);
    EXPECT_FALSE(controller.isActive());
    EXPECT_TRUE(data.profiles()->empty());
}

TEST_F(StartModelTest, theSlidersOfEachModeHaveTheirTitlesAndLimits) {
    const auto& words = strings();
    const auto expectRow = [this](std::string_view title, double from, double to, double step) {
        EXPECT_EQ(row(title).from(), from) << title;
        EXPECT_EQ(row(title).to(), to) << title;
        EXPECT_EQ(row(title).stepSize(), step) << title;
    };
    EXPECT_EQ(titles(), (QStringList{text(words.focusLength), text(words.shortBreak), text(words.longBreak),
                                     text(words.cycleCount)}));
    expectRow(words.focusLength, 5, 120, 5);
    expectRow(words.shortBreak, 1, 30, 1);
    expectRow(words.longBreak, 5, 60, 5);
    expectRow(words.cycleCount, 1, 12, 1);
    model.select(1);
    EXPECT_EQ(titles(), (QStringList{text(words.totalLength), text(words.breakAfterEvery), text(words.breakLength)}));
    expectRow(words.totalLength, 15, 480, 15);
    expectRow(words.breakAfterEvery, 15, 120, 5);
    expectRow(words.breakLength, 1, 20, 1);
}

TEST_F(StartModelTest, aSliderStoresTheNearestValueOfItsGrid) {
    model.select(1);
    auto& total = row(strings().totalLength);
    total.move(97);
    EXPECT_EQ(profile(1).deep.totalMinutes, 90);
    total.move(98);
    EXPECT_EQ(profile(1).deep.totalMinutes, 105);
    total.move(97.5); // the half between both goes away from zero
    EXPECT_EQ(profile(1).deep.totalMinutes, 105);
    total.move(1000);
    EXPECT_EQ(profile(1).deep.totalMinutes, 480);
    total.move(0);
    EXPECT_EQ(profile(1).deep.totalMinutes, 15);
    EXPECT_EQ(total.value(), 15);
}

TEST_F(StartModelTest, everySliderWritesItsOwnTiming) {
    const auto& words = strings();
    row(words.focusLength).move(50);
    row(words.shortBreak).move(7);
    row(words.longBreak).move(20);
    row(words.cycleCount).move(6);
    EXPECT_EQ(profile(0).pomodoro, (PomodoroConfig{50, 7, 20, 4, 6}));
    model.select(1);
    row(words.breakAfterEvery).move(45);
    row(words.breakLength).move(10);
    EXPECT_EQ(profile(1).deep, (DeepConfig{180, 45, 10}));
}

TEST_F(StartModelTest, whatIsMovedIsOnTheDiskAtOnce) {
    row(strings().focusLength).move(50);
    EXPECT_NE(files.contents.at("/data/Velmorin/profiles.json").find("\"workMinutes\":50"), std::string::npos);
}

TEST_F(StartModelTest, aSliderThatStaysWhereItWasWritesNothing) {
    row(strings().focusLength).move(50);
    files.contents.erase("/data/Velmorin/profiles.json");
    row(strings().focusLength).move(51);
    EXPECT_FALSE(files.contents.contains("/data/Velmorin/profiles.json"));
}

TEST_F(StartModelTest, aValueOutsideTheLimitsIsShownAsItIs) {
    auto profiles = *data.profiles();
    profiles[0].pomodoro.workMinutes = 400;
    setProfiles(profiles);
    EXPECT_EQ(row(strings().focusLength).valueText(), "6 hr 40 min");
}

TEST_F(StartModelTest, lengthsAreShownInWordsAndCountsAsNumbers) {
    EXPECT_EQ(row(strings().focusLength).valueText(), "25 min");
    EXPECT_EQ(row(strings().cycleCount).valueText(), "4");
    speak(AppLanguage::persian);
    EXPECT_EQ(row(strings().cycleCount).valueText(), "۴");
}

TEST_F(StartModelTest, theSummaryCountsAppsAndSites) {
    EXPECT_EQ(model.allowedSummary(), text(strings().noApps));
    allow(0, 1);
    EXPECT_EQ(model.allowedSummary(), text(strings().appAndSiteCount(0, 1)));
    allow(3, 0);
    EXPECT_EQ(model.allowedSummary(), text(strings().appCount(3)));
    allow(3, 2);
    EXPECT_EQ(model.allowedSummary(), text(strings().appAndSiteCount(3, 2)));
}

TEST_F(StartModelTest, resettingKeepsTheAllowedListsTheModeAndTheName) {
    allow(2, 1);
    model.setMode(1);
    row(strings().totalLength).move(60);
    model.setMode(0);
    row(strings().focusLength).move(50);
    model.setMode(1);
    auto expected = profile(0);
    expected.pomodoro = {25, 5, 15, 4, 4};
    expected.deep = {180, 60, 5};
    model.resetTimings();
    EXPECT_EQ(profile(0), expected);
    EXPECT_EQ(profile(0).mode, SessionMode::deep);
}

TEST_F(StartModelTest, changingTheModeSwapsTheSlidersAtOnceAndIsSaved) {
    const QSignalSpy swapped{&model, &StartModel::modeChanged};
    model.setMode(1);
    EXPECT_EQ(swapped.size(), 1);
    EXPECT_EQ(titles().size(), 3);
    EXPECT_EQ(model.modeDetail(), text(strings().modeDeepDetail));
    EXPECT_EQ(profile(0).mode, SessionMode::deep);
    EXPECT_NE(files.contents.at("/data/Velmorin/profiles.json").find("\"mode\":\"deep\""), std::string::npos);
    model.setMode(0);
    EXPECT_EQ(titles().size(), 4);
}

TEST_F(StartModelTest, theRingShowsTheWholeSessionAndHowMuchOfItIsWork) {
    EXPECT_EQ(model.totalText(), "2:10"); // 4 × 25, 3 × 5 and 15 minutes
    EXPECT_EQ(model.totalInWords(), "2 hr 10 min");
    EXPECT_DOUBLE_EQ(model.workFraction(), 100.0 / 130);
    model.select(1);
    EXPECT_EQ(model.totalText(), "3:00");
    EXPECT_DOUBLE_EQ(model.workFraction(), 170.0 / 180);
}

TEST_F(StartModelTest, startingStartsTheChosenProfileForItsGoalAndForgetsTheGoal) {
    model.select(1);
    model.setIntent("  finish the draft ");
    model.startSession();
    ASSERT_TRUE(controller.isActive());
    EXPECT_EQ((*controller.session())->profileName, "Code");
    EXPECT_EQ((*controller.session())->intent, "finish the draft");
    EXPECT_EQ(model.intent(), "");
    EXPECT_EQ(model.selectedIndex(), 1);
}

TEST_F(StartModelTest, aRunningSessionKeepsItsPlanWhenTheProfileChanges) {
    model.startSession();
    const auto plan = (*controller.session())->segments;
    row(strings().focusLength).move(120);
    EXPECT_EQ((*controller.session())->segments, plan);
}

TEST_F(StartModelTest, theChipsAreOnlyMadeAnewWhenANameChanges) {
    const QSignalSpy renamed{&model, &StartModel::profileNamesChanged};
    row(strings().focusLength).move(50);
    model.select(1);
    EXPECT_EQ(renamed.size(), 0);
    auto profiles = *data.profiles();
    profiles[0].name = "Reading";
    setProfiles(profiles);
    EXPECT_EQ(renamed.size(), 1);
}

} // namespace
} // namespace velmorin
