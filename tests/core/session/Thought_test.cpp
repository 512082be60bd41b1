#include "core/session/Thought.h"

#include "core/foundation/JSONCoding.h"

#include <gtest/gtest.h>

namespace velmorin {
namespace {

constexpr const char* stored =
    R"({"id":"0F1E2D3C-4B5A-4697-8877-665544332211","text":"buy ink","createdAt":800000000.25,"done":true})";

TEST(ThoughtTest, aNewThoughtIsOpenAndUnchanged) {
    const Thought thought{"buy ink", Date{800'000'000}};
    EXPECT_EQ(thought.text, "buy ink");
    EXPECT_FALSE(thought.done);
    EXPECT_FALSE(thought.updatedAt);
    EXPECT_NE(thought.id, Thought("buy ink", Date{800'000'000}).id);
}

TEST(ThoughtTest, aStoredThoughtWithoutAnUpdateCountsAsChangedWhenCreated) {
    const auto thought = decodeJSON<Thought>(stored);
    ASSERT_TRUE(thought);
    EXPECT_FALSE(thought->updatedAt);
    EXPECT_EQ(thought->changedAt(), Date{800'000'000.25});
    EXPECT_TRUE(thought->done);
    EXPECT_EQ(encodeJSON(*thought), stored);
}

TEST(ThoughtTest, anUpdateIsTheLastChangeAndIsWritten) {
    auto thought = *decodeJSON<Thought>(stored);
    const auto unchanged = thought;
    thought.updatedAt = thought.createdAt;
    EXPECT_NE(thought, unchanged);
    thought.updatedAt = Date{800'000'001};
    EXPECT_EQ(thought.changedAt(), Date{800'000'001});
    EXPECT_EQ(decodeJSON<Thought>(*encodeJSON(thought)), thought);
}

TEST(ThoughtTest, aStoredThoughtWithoutDoneFailsTheWholeList) {
    const std::string lacking = R"({"id":"0F1E2D3C-4B5A-4697-8877-665544332211","text":"buy ink","createdAt":8})";
    EXPECT_TRUE(decodeJSON<std::vector<Thought>>("[" + std::string{stored} + "]"));
    EXPECT_FALSE(decodeJSON<std::vector<Thought>>("[" + std::string{stored} + "," + lacking + "]"));
}

} // namespace
} // namespace velmorin
