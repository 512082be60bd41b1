#include "app/shell/AppPickerModel.h"

#include "app/shell/ProfilesModel.h"
#include "tests/shell/PageTest.h"

#include <QSignalSpy>
#include <QUrl>

namespace velmorin {
namespace {

class AppPickerModelTest : public PageTest {
protected:
    AppPickerModelTest() {
        setProfiles({Profile{"Studying", SessionMode::pomodoro}});
        desktop.installedApplications.apps = {{"Writer", "org.example.writer", "/writer"},
                                              {"atlas", "org.example.atlas", "/atlas"},
                                              {"Reader", "org.example.reader", "/reader"}};
        desktop.installedApplications.icons["/atlas"] = "/icons/atlas 1.png";
    }

    AppPickerModel& open() {
        model.editor()->openPicker();
        return *model.editor()->picker();
    }
    static QStringList names(const AppPickerModel& picker) {
        QStringList names;
        for (int row = 0; row < picker.rowCount(); ++row)
            names.push_back(picker.data(picker.index(row), AppPickerModel::NameRole).toString());
        return names;
    }
    static bool isOn(const AppPickerModel& picker, int row) {
        return picker.data(picker.index(row), AppPickerModel::OnRole).toBool();
    }
    using Apps = std::vector<AllowedApp>;

    ProfilesModel model{context};
};

TEST_F(AppPickerModelTest, theApplicationsAreListedByName) {
    EXPECT_EQ(names(open()), (QStringList{"atlas", "Reader", "Writer"}));
}

TEST_F(AppPickerModelTest, theyAreLookedForEachTimeTheSheetAppears) {
    open();
    model.editor()->closePicker();
    desktop.installedApplications.apps.push_back({"Painter", "org.example.painter", "/painter"});
    EXPECT_EQ(names(open()), (QStringList{"atlas", "Painter", "Reader", "Writer"}));
}

TEST_F(AppPickerModelTest, aSearchKeepsTheNamesThatHoldItWhateverTheCase) {
    auto& picker = open();
    const QSignalSpy reset{&picker, &AppPickerModel::modelReset};
    picker.setQuery("R");
    EXPECT_EQ(names(picker), (QStringList{"Reader", "Writer"}));
    picker.setQuery("nobody");
    EXPECT_EQ(picker.rowCount(), 0);
    picker.setQuery("");
    EXPECT_EQ(picker.rowCount(), 3);
    EXPECT_EQ(reset.size(), 3);
}

TEST_F(AppPickerModelTest, theOrderOfTheProfileIsThatOfChoosing) {
    auto& picker = open();
    picker.setOn(2, true);
    picker.setQuery("atl");
    picker.setOn(0, true);
    EXPECT_EQ(profile().allowedApps, (Apps{{"org.example.writer", "Writer"}, {"org.example.atlas", "atlas"}}));
    EXPECT_EQ(model.editor()->appNames(), (QStringList{"Writer", "atlas"}));
}

TEST_F(AppPickerModelTest, turningOffRemovesEveryEntryOfThatIdentifier) {
    auto profiles = *data.profiles();
    profiles[0].allowedApps = {{"org.example.reader", "Reader"}, {"org.example.x", "X"}, {"org.example.reader", "Old"}};
    setProfiles(profiles);
    auto& picker = open();
    ASSERT_TRUE(isOn(picker, 1));
    picker.setOn(1, false);
    EXPECT_FALSE(isOn(picker, 1));
    EXPECT_EQ(profile().allowedApps, (Apps{{"org.example.x", "X"}}));
}

TEST_F(AppPickerModelTest, turningOnTwiceAllowsOnce) {
    auto& picker = open();
    picker.setOn(0, true);
    picker.setOn(0, true);
    EXPECT_EQ(profile().allowedApps.size(), 1U);
}

TEST_F(AppPickerModelTest, rowsThatAreNotThereChangeNothing) {
    auto& picker = open();
    picker.setOn(-1, true);
    picker.setOn(3, true);
    EXPECT_TRUE(profile().allowedApps.empty());
    EXPECT_FALSE(picker.data(picker.index(3), AppPickerModel::NameRole).isValid());
}

TEST_F(AppPickerModelTest, aChoiceIsToldToTheRowsWithoutMakingThemAnew) {
    auto& picker = open();
    const QSignalSpy changed{&picker, &AppPickerModel::dataChanged};
    const QSignalSpy reset{&picker, &AppPickerModel::modelReset};
    picker.setOn(0, true);
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(reset.size(), 0);
}

TEST_F(AppPickerModelTest, anApplicationHasItsPictureWhereThereIsOne) {
    const auto& picker = open();
    EXPECT_EQ(picker.data(picker.index(0), AppPickerModel::IconRole).toUrl(), QUrl{"file:///icons/atlas%201.png"});
    EXPECT_TRUE(picker.data(picker.index(1), AppPickerModel::IconRole).toUrl().isEmpty());
}

TEST_F(AppPickerModelTest, anOpenSheetStaysTheSameWhenItIsAskedForAgain) {
    const QSignalSpy changed{model.editor(), &ProfileEditorModel::pickerChanged};
    auto& picker = open();
    EXPECT_EQ(&open(), &picker);
    model.editor()->closePicker();
    model.editor()->closePicker();
    EXPECT_EQ(changed.size(), 2);
}

} // namespace
} // namespace velmorin
