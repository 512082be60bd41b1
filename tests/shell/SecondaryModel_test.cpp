#include "app/shell/SecondaryModel.h"

#include "tests/shell/ScreenModelTest.h"

#include <utility>

namespace velmorin {
namespace {

using SecondaryModelTest = ScreenModelTest;

TEST_F(SecondaryModelTest, theSentencesAreThoseOfTheState) {
    const auto model = make<SecondaryModel>();
    const auto categoryWith = [this, &model](OverlayState state) {
        stage.controller.setOverlay(std::move(state));
        return model->category();
    };
    EXPECT_EQ(categoryWith(Overlay::Warning{{"Game", 1, now(), now() + 5.0}}), QuoteTask::Urge);
    EXPECT_EQ(categoryWith(Overlay::EmergencyExit{now() + 60.0}), QuoteTask::Exit);
    EXPECT_EQ(categoryWith(Overlay::Finished{}), QuoteTask::Finish);
    EXPECT_EQ(categoryWith(Overlay::LockedBreak{}), QuoteTask::Rest);
    EXPECT_EQ(categoryWith(Overlay::BackToWork{}), QuoteTask::Returning);
    EXPECT_EQ(categoryWith(Overlay::None{}), QuoteTask::Urge);
}

} // namespace
} // namespace velmorin
