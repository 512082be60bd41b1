#include "tests/contracts/ServiceManagerContract.h"

namespace velmorin {
namespace {

using Arguments = std::vector<std::string>;

TEST_P(ServiceManagerContract, thereIsNoJobBeforeOneIsSetUp) {
    EXPECT_EQ(bench().job(), std::nullopt);
}

TEST_P(ServiceManagerContract, aJobStartsTheProgramWithItsArguments) {
    bench().serviceManager().install({"--watchdog"});
    EXPECT_TRUE(bench().eventually([&] { return bench().job() == Arguments{"--watchdog"}; }));
}

TEST_P(ServiceManagerContract, argumentsArriveAsTheyAre) {
    const Arguments arguments{"--watchdog",  "",     "two words",  "it's",         "\"quoted\"", "$HOME", "%n",
                              "back\\slash", "زبان", "two\nlines", "$$ ${HOME} %%"};
    bench().serviceManager().install(arguments);
    EXPECT_TRUE(bench().eventually([&] { return bench().job() == arguments; }));
}

TEST_P(ServiceManagerContract, aJobTakesThePlaceOfOneThatIsThere) {
    bench().serviceManager().install({"--watchdog", "old"});
    bench().serviceManager().install({"--watchdog", "new"});
    EXPECT_TRUE(bench().eventually([&] { return bench().job() == Arguments{"--watchdog", "new"}; }));
}

TEST_P(ServiceManagerContract, aJobThatIsRemovedIsGone) {
    bench().serviceManager().install({"--watchdog"});
    bench().serviceManager().remove();
    EXPECT_TRUE(bench().eventually([&] { return !bench().job(); }));
}

TEST_P(ServiceManagerContract, removingWithoutAJobIsHarmless) {
    bench().serviceManager().remove();
    bench().serviceManager().remove();
    EXPECT_EQ(bench().job(), std::nullopt);
    bench().serviceManager().install({"--watchdog"});
    EXPECT_TRUE(bench().eventually([&] { return bench().job().has_value(); }));
}

} // namespace
} // namespace velmorin
