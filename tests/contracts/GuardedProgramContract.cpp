#include "tests/contracts/GuardedProgramContract.h"

#include <gmock/gmock.h>
#include <random>

namespace velmorin {
namespace {

using Arguments = std::vector<std::string>;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

} // namespace

GuardedProgramBench::Process GuardedProgramContract::awaitProgram() {
    constexpr double step = 0.02; // seconds
    double waited = 0;
    for (; bench().living().empty() && waited < longestAbsence; waited += step)
        bench().wait(step);
    const auto living = bench().living();
    EXPECT_EQ(living.size(), 1U) << "after " << waited << " seconds";
    return living.empty() ? 0 : living.front();
}

namespace {

TEST_P(GuardedProgramContract, aProgramThatIsNotThereIsStartedWithItsArguments) {
    const Arguments arguments{"--watchdog",
                              "",
                              "two words",
                              "it's",
                              "\"quoted\"",
                              "$HOME ${HOME} $$",
                              "%n %% %h",
                              "back\\slash\\x41",
                              "two\nlines\tand\r",
                              "زبان",
                              "; & | > * ? ~ # = @ - + ! :",
                              "trailing\\"};
    bench().serviceManager().install(arguments);
    const auto program = awaitProgram();
    EXPECT_EQ(bench().argumentsOf(program), arguments);
}

TEST_P(GuardedProgramContract, wordsOfAllKindsArriveAsOneWordEach) {
    // Whatever means something to whoever reads command lines, and all control characters.
    std::vector<std::string> signs{"%", "%%", "$", "${",  "}", "\\",   "\"", "'",    " ",      "  ", ";",
                                   "#", "=",  "-", "@",   ":", "!",    "+",  "*",    "?",      "~",  "`",
                                   "&", "|",  "<", "x41", "n", "HOME", "é",  "سلام", "\u200C", "😀"};
    for (char control = 1; control < ' '; ++control)
        signs.emplace_back(1, control);
    signs.emplace_back(1, '\x7F');
    std::mt19937 random{20}; // NOLINT(cert-msc51-cpp): the same words each time
    Arguments words{"--watchdog"};
    constexpr int count = 300;
    constexpr int longest = 12;
    for (int word = 0; word < count; ++word) {
        words.emplace_back();
        for (auto length = random() % longest; length > 0; --length)
            words.back() += signs[random() % signs.size()];
    }
    bench().serviceManager().install(words);
    EXPECT_EQ(bench().argumentsOf(awaitProgram()), words);
}

TEST_P(GuardedProgramContract, aKilledProgramIsBackInTimeEachTime) {
    const auto first = bench().launch();
    bench().serviceManager().install({"--watchdog", "one"});
    bench().kill(first);
    const auto second = awaitProgram();
    EXPECT_NE(second, first);
    bench().kill(second);
    const auto third = awaitProgram();
    EXPECT_NE(third, second);
    EXPECT_THAT(bench().argumentsOf(third), ElementsAre("--watchdog", "one"));
}

TEST_P(GuardedProgramContract, asLongAsTheProgramLivesNoneIsStarted) {
    const auto program = bench().launch();
    bench().serviceManager().install({"--watchdog"});
    bench().wait(2 * longestAbsence);
    EXPECT_THAT(bench().living(), ElementsAre(program));
}

TEST_P(GuardedProgramContract, theLastJobCounts) {
    const auto program = bench().launch();
    bench().serviceManager().install({"--watchdog", "old"});
    bench().serviceManager().install({"--watchdog", "new"});
    bench().kill(program);
    EXPECT_THAT(bench().argumentsOf(awaitProgram()), ElementsAre("--watchdog", "new"));
    // None is started for the old one as well.
    bench().wait(longestAbsence);
    EXPECT_EQ(bench().living().size(), 1U);
}

TEST_P(GuardedProgramContract, theProgramFindsItsSession) {
    bench().serviceManager().install({"--watchdog"});
    const auto environment = bench().environmentOf(awaitProgram());
    for (const auto& variable : bench().session())
        EXPECT_THAT(environment, Contains(variable));
}

TEST_P(GuardedProgramContract, withoutAJobNobodyComesBackAndNothingIsLeft) {
    const auto program = bench().launch();
    bench().serviceManager().install({"--watchdog"});
    bench().kill(program);
    const auto second = awaitProgram();
    bench().serviceManager().remove();
    EXPECT_THAT(bench().living(), ElementsAre(second)) << "the program does not end with its job";
    bench().kill(second);
    bench().wait(longestAbsence);
    EXPECT_THAT(bench().living(), IsEmpty());
    for (const auto process : {program, second})
        if (const auto opened = bench().openedBy(process)) bench().kill(*opened);
    EXPECT_TRUE(bench().eventually([&] { return bench().leftovers().empty(); }));
    EXPECT_THAT(bench().leftovers(), IsEmpty());
}

TEST_P(GuardedProgramContract, whatTheProgramHasOpenedOutlivesItAndTheJob) {
    bench().serviceManager().install({"--watchdog"});
    const auto program = awaitProgram();
    std::optional<GuardedProgramBench::Process> opened;
    ASSERT_TRUE(bench().eventually([&] { return (opened = bench().openedBy(program)).has_value(); }));
    bench().kill(program);
    const auto next = awaitProgram();
    EXPECT_EQ(bench().openedBy(program), opened);
    bench().serviceManager().remove();
    bench().kill(next);
    bench().wait(0.5);
    EXPECT_EQ(bench().openedBy(program), opened);
}

} // namespace
} // namespace velmorin
