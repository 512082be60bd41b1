#include "app/shell/RestModel.h"

#include "tests/shell/ScreenModelTest.h"

namespace velmorin {
namespace {

using RestModelTest = ScreenModelTest;

TEST_F(RestModelTest, ofManyThoughtsTheFirstFiveAreShownInTheirOrder) {
    for (const char* text : {"one", "two", "three", "four", "five", "six", "seven"})
        stage.data.addThought(text);
    const QStringList newestFirst{"seven", "six", "five", "four", "three"};
    EXPECT_EQ(make<RestModel>()->thoughts(), newestFirst);
}

TEST_F(RestModelTest, thoughtsThatAreDoneAreNotShown) {
    stage.data.addThought("one");
    stage.data.addThought("two");
    auto thoughts = *stage.data.thoughts();
    thoughts.front().done = true;
    stage.data.setThoughts(thoughts);
    EXPECT_EQ(make<RestModel>()->thoughts(), QStringList{"one"});
}

TEST_F(RestModelTest, aThoughtThatArrivesIsShownAtOnce) {
    const auto model = make<RestModel>();
    EXPECT_TRUE(model->thoughts().isEmpty());
    stage.data.addThought("one");
    EXPECT_EQ(model->thoughts(), QStringList{"one"});
}

TEST_F(RestModelTest, theRestIsThatOfThePresentSegmentAndGoesDown) {
    start(SessionMode::deep);
    advance(60 * 60 - 3);
    ASSERT_TRUE(shows<Overlay::LockedBreak>(*stage.controller.overlay()));
    const auto model = make<RestModel>();
    EXPECT_EQ(model->restLeft().toStdString(), strings().restLeft("5 min"));
    advance(60);
    EXPECT_EQ(model->restLeft().toStdString(), strings().restLeft("4 min"));
}

TEST_F(RestModelTest, withoutASessionTheTimeShowsNothing) {
    EXPECT_EQ(make<RestModel>()->restLeft(), QString{});
}

} // namespace
} // namespace velmorin
