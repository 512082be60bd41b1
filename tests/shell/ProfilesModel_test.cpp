#include "app/shell/ProfilesModel.h"

#include "tests/shell/PageTest.h"

namespace velmorin {
namespace {

class ProfilesModelTest : public PageTest {
protected:
    ProfilesModelTest() {
        setProfiles({Profile{"Studying", SessionMode::pomodoro}, Profile{"Code", SessionMode::deep}});
    }

    ProfilesModel model{context};
};

TEST_F(ProfilesModelTest, aNewProfileIsAddedAtTheEndAndChosen) {
    model.newProfile();
    ASSERT_EQ(data.profiles()->size(), 3U);
    EXPECT_EQ(profile(2).name, strings().newProfile);
    EXPECT_EQ(profile(2).mode, SessionMode::pomodoro);
    EXPECT_TRUE(profile(2).hasDefaultTimings());
    EXPECT_EQ(model.selectedIndex(), 2);
    EXPECT_EQ(model.editor()->name(), text(strings().newProfile));
}

TEST_F(ProfilesModelTest, aNewProfileIsNamedInTheLanguageOfTheScreens) {
    speak(AppLanguage::persian);
    model.newProfile();
    EXPECT_EQ(profile(2).name, AppStrings::persian.newProfile);
}

TEST_F(ProfilesModelTest, deletingRemovesTheChosenProfileAndShowsTheFirst) {
    model.select(1);
    model.deleteProfile();
    ASSERT_EQ(data.profiles()->size(), 1U);
    EXPECT_EQ(profile(0).name, "Studying");
    EXPECT_EQ(model.selectedIndex(), 0);
    EXPECT_EQ(model.editor()->name(), "Studying");
}

TEST_F(ProfilesModelTest, deletingIsNotPossibleWithOneProfileLeft) {
    EXPECT_TRUE(model.canDelete());
    model.deleteProfile();
    EXPECT_FALSE(model.canDelete());
    model.deleteProfile();
    EXPECT_EQ(data.profiles()->size(), 1U);
}

TEST_F(ProfilesModelTest, anEmptyListShowsNothingAndStaysAsItIs) {
    setProfiles({});
    EXPECT_EQ(model.selectedIndex(), -1);
    EXPECT_FALSE(model.canDelete());
    model.deleteProfile();
    model.editor()->setName("Nobody");
    model.editor()->openPicker();
    EXPECT_EQ(model.editor()->picker(), nullptr);
    EXPECT_TRUE(data.profiles()->empty());
    model.newProfile();
    EXPECT_EQ(model.selectedIndex(), 0);
}

} // namespace
} // namespace velmorin
