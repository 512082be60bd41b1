#include "tests/contracts/ApplicationContract.h"

namespace velmorin {
namespace {

TEST_P(ApplicationContract, aProcessHasOneIdentifierThroughoutItsLife) {
    const auto pid = application().processIdentifier();
    EXPECT_GT(pid, 0);
    bench().wait(0.1);
    EXPECT_EQ(application().processIdentifier(), pid);
}

TEST_P(ApplicationContract, theProgramsIdentifierIsAbsentOrSomething) {
    EXPECT_NE(application().bundleIdentifier(), "");
    EXPECT_EQ(application().bundleIdentifier(), application().bundleIdentifier());
}

TEST_P(ApplicationContract, aProgramThatAgreesEndsOnceThePresentWorkIsDone) {
    bench().agreeToQuit(true);
    application().terminate();
    EXPECT_FALSE(bench().hasEnded());
    EXPECT_TRUE(bench().eventually([&] { return bench().hasEnded(); }));
    EXPECT_EQ(bench().quitRequests(), 1);
}

TEST_P(ApplicationContract, aProgramThatDisagreesRunsOnAndIsAskedAnew) {
    bench().agreeToQuit(false);
    application().terminate();
    EXPECT_TRUE(bench().eventually([&] { return bench().quitRequests() == 1; }));
    bench().settle();
    EXPECT_FALSE(bench().hasEnded());
    bench().agreeToQuit(true);
    application().terminate();
    EXPECT_TRUE(bench().eventually([&] { return bench().hasEnded(); }));
    EXPECT_EQ(bench().quitRequests(), 2);
}

TEST_P(ApplicationContract, theSystemsEndIsToldToAllWhoListen) {
    int first = 0;
    int second = 0;
    const auto one = application().observePowerOff([&] { ++first; });
    const auto two = application().observePowerOff([&] { ++second; });
    EXPECT_EQ(first + second, 0);
    bench().announcePowerOff();
    EXPECT_TRUE(bench().eventually([&] { return first == 1 && second == 1; }));
    // An announcement may be taken back, and another may follow.
    bench().announcePowerOff();
    EXPECT_TRUE(bench().eventually([&] { return first == 2 && second == 2; }));
    EXPECT_FALSE(bench().hasEnded());
}

TEST_P(ApplicationContract, whoHasGoneIsNotToldOfTheSystemsEnd) {
    int calls = 0;
    {
        const auto observing = application().observePowerOff([&] { ++calls; });
    }
    bench().announcePowerOff();
    bench().settle();
    EXPECT_EQ(calls, 0);
}

TEST_P(ApplicationContract, whoeverIsYieldedToMayComeToTheFront) {
    ASSERT_FALSE(bench().isOtherInFront());
    application().yieldActivation(bench().other());
    bench().settle();
    EXPECT_FALSE(bench().isOtherInFront());
    bench().other().activate();
    EXPECT_TRUE(bench().eventually([&] { return bench().isOtherInFront(); }));
}

} // namespace
} // namespace velmorin
