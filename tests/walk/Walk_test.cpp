// That the search finds what is wrong, makes it small, and plays the same again.

#include "app/simulate/Scenario.h"
#include "tests/support/MemoryFiles.h"
#include "tests/walk/WalkGenerator.h"
#include "tests/walk/WalkSearch.h"
#include "tests/walk/WalkShrinker.h"

#include <algorithm>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Whether a second thought is parked while a session runs: two steps of one kind after one of another, at least.
bool hasTwoThoughtsInASession(Scene& scene) {
    SimulatedProgram* const program = scene.program();
    return program && program->controller().isActive() && program->data().thoughts()->size() >= 2;
}

std::vector<std::string> actions(const Walk& walk) {
    std::vector<std::string> names;
    std::ranges::transform(walk.steps, std::back_inserter(names), &WalkStep::action);
    return names;
}

Finding findTwoThoughts() {
    SearchOptions options;
    options.walks = 500;
    options.probe = hasTwoThoughtsInASession;
    WalkStatistics statistics;
    auto finding = search(options, statistics);
    EXPECT_TRUE(finding) << statistics.text();
    return finding.value_or(Finding{});
}

TEST(WalkTest, aWalkThatBreaksARuleIsMadeAsSmallAsItGets) {
    const Finding finding = findTwoThoughts();
    EXPECT_EQ(finding.violation.invariant, Invariant::testProbe);
    auto steps = actions(finding.walk);
    std::ranges::sort(steps);
    EXPECT_GT(finding.foundSteps, steps.size());
    // A process may have to be launched first, where the scene begins without one.
    std::erase(steps, "relaunch");
    EXPECT_THAT(steps, ElementsAre("addThought", "addThought", "start")) << finding.text();
    EXPECT_THAT(finding.walk.applications, IsEmpty());
}

TEST(WalkTest, whatIsPrintedIsAScenarioThatShowsTheSame) {
    const Finding finding = findTwoThoughts();
    MemoryFiles files;
    Scenario scenario{files, {"/data/Velmorin", false, {}}, {}};
    std::istringstream text{finding.walk.text()};
    for (std::string line; std::getline(text, line);)
        scenario.play(line);
    ASSERT_TRUE(scenario.scene());
    EXPECT_TRUE(hasTwoThoughtsInASession(*scenario.scene()));
}

TEST(WalkTest, numbersAreMadeSimplerAsLongAsTheWalkStillFails) {
    Walk walk;
    walk.steps = {{"advance", WalkStep::Number{"seconds", 977.25}, {}},
                  {"setClock", WalkStep::Number{"by", -44.5}, {}},
                  {"sleep", WalkStep::Number{"seconds", 12.5}, {}}};
    const auto sum = [](const Walk& each) {
        double seconds = 0;
        for (const auto& step : each.steps)
            seconds += step.action == "advance" ? step.number->value : 0;
        return seconds;
    };
    const auto hasBackwards = [](const Walk& each) {
        return std::ranges::any_of(each.steps, [](const auto& step) { return step.number->value < -2; });
    };
    const Walk small = shrunk(walk, [&](const Walk& each) { return sum(each) >= 100 && hasBackwards(each); });
    ASSERT_THAT(actions(small), ElementsAre("advance", "setClock"));
    EXPECT_EQ(small.steps[0].number->value, 100);
    EXPECT_EQ(small.steps[1].number->value, -3);
}

TEST(WalkTest, oneSeedPlaysOneWalk) {
    const auto text = [](std::uint64_t seed) {
        SearchOptions options;
        options.seed = seed;
        options.walks = 20;
        WalkStatistics statistics;
        EXPECT_FALSE(search(options, statistics));
        return statistics.text();
    };
    EXPECT_EQ(text(7), text(7));
    EXPECT_NE(text(7), text(8));
}

TEST(WalkTest, stepsThatHaveLostTheirMeaningDoNothing) {
    Walk walk;
    walk.setup = R"("launch":"none")";
    walk.steps = {{"activate", {}, "\"pid\":4711"},
                  {"returnToWork", {}, {}},
                  {"quit", {}, "\"pid\":0"},
                  {"relaunch", {}, "\"watchdog\":false"},
                  {"dismiss", {}, {}}};
    EXPECT_FALSE(play(walk));
}

TEST(WalkTest, theDocumentNamesEachInvariantOnce) {
    std::ifstream document{VELMORIN_INVARIANTS};
    ASSERT_TRUE(document);
    std::size_t number = 0;
    for (std::string line; std::getline(document, line);) {
        if (line.starts_with(std::to_string(number + 1) + ". ")) ++number;
    }
    EXPECT_EQ(number, invariantCount);
}

} // namespace
} // namespace velmorin
