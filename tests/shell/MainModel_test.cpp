#include "app/shell/MainModel.h"

#include "tests/shell/PageTest.h"

#include <QSignalSpy>

namespace velmorin {
namespace {

using MainModelTest = PageTest;

TEST_F(MainModelTest, theStartPageComesFirst) {
    const MainModel model{context};
    EXPECT_EQ(model.tab(), MainModel::Start);
    EXPECT_EQ(model.tabs().first(), MainModel::Start);
}

TEST_F(MainModelTest, theTabsKeepTheirOrder) {
    const auto tabs = MainModel{context}.tabs();
    EXPECT_TRUE(std::ranges::is_sorted(tabs));
    EXPECT_EQ(
        QList<int>({MainModel::Start, MainModel::Profiles, MainModel::Thoughts, MainModel::Stats, MainModel::Settings}),
        QList<int>({0, 1, 2, 3, 4}));
}

TEST_F(MainModelTest, onlyATabWithAPageIsChosen) {
    MainModel model{context};
    const QSignalSpy changed{&model, &MainModel::tabChanged};
    model.setTab(static_cast<MainModel::MainTab>(7));
    EXPECT_EQ(model.tab(), MainModel::Start);
    model.setTab(MainModel::Profiles);
    EXPECT_EQ(model.tab(), MainModel::Profiles);
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(MainModelTest, theChosenTabSurvivesASession) {
    MainModel model{context};
    model.setTab(MainModel::Profiles);
    model.start()->startSession();
    ASSERT_TRUE(controller.isActive());
    EXPECT_EQ(model.tab(), MainModel::Profiles);
}

} // namespace
} // namespace velmorin
