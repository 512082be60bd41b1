#include "tests/screens/ScreenTest.h"

namespace velmorin {

TEST_F(ScreenTest, aScreenFollowsTheLanguageAtOnce) {
    show("MainView");
    EXPECT_NE(itemWithText(AppStrings::english.startSession), nullptr);
    stage().wear(AppLanguage::persian, ColorTheme::dusk);
    EXPECT_NE(itemWithText(AppStrings::persian.startSession), nullptr);
}

} // namespace velmorin
