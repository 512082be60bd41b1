#include "tests/contracts/ShortcutsContract.h"

#include <gmock/gmock.h>

namespace velmorin {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

TEST_P(ShortcutsContract, whatIsPreparedUnderANameIsRun) {
    bench().prepare("Velmorin On");
    bench().shortcuts().run("Velmorin On");
    EXPECT_TRUE(bench().eventually([&] { return bench().runs().size() == 1; }));
    EXPECT_THAT(bench().runs(), ElementsAre("Velmorin On"));
}

TEST_P(ShortcutsContract, aNameWithoutAnythingBehindItIsNoError) {
    bench().shortcuts().run("");
    bench().shortcuts().run("no such shortcut");
    bench().prepare("Velmorin Off");
    bench().shortcuts().run("Velmorin Off");
    EXPECT_TRUE(bench().eventually([&] { return ::testing::Value(bench().runs(), Contains("Velmorin Off")); }));
}

} // namespace
} // namespace velmorin
