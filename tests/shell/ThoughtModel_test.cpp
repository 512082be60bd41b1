#include "app/shell/ThoughtModel.h"

#include "tests/shell/ScreenModelTest.h"

namespace velmorin {
namespace {

using ThoughtModelTest = ScreenModelTest;

TEST_F(ThoughtModelTest, aThoughtIsKeptAndSaidToBeForTwoSeconds) {
    const auto model = make<ThoughtModel>();
    EXPECT_TRUE(model->save("call home"));
    EXPECT_EQ(stage.data.openThoughts().front().text, "call home");
    EXPECT_TRUE(model->justSaved());
    advance(1.99);
    EXPECT_TRUE(model->justSaved());
    advance(0.01);
    EXPECT_FALSE(model->justSaved());
}

TEST_F(ThoughtModelTest, blanksAndTabsAreNoThought) {
    const auto model = make<ThoughtModel>();
    EXPECT_FALSE(model->save(QStringLiteral(" \t \u00A0")));
    EXPECT_FALSE(model->save({}));
    EXPECT_FALSE(model->justSaved());
    EXPECT_TRUE(stage.data.openThoughts().empty());
}

TEST_F(ThoughtModelTest, aSecondThoughtIsSaidToBeKeptForItsOwnTwoSeconds) {
    const auto model = make<ThoughtModel>();
    model->save("one");
    advance(1.5);
    model->save("two");
    advance(1.5);
    EXPECT_TRUE(model->justSaved());
    advance(0.5);
    EXPECT_FALSE(model->justSaved());
}

} // namespace
} // namespace velmorin
