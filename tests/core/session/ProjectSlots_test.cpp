#include "core/session/ProjectSlots.h"

#include <gtest/gtest.h>

namespace velmorin {
namespace {

SessionRecord used(const char* project, double at) {
    SessionRecord record;
    record.profileName = project;
    record.startedAt = Date{at};
    return record;
}

using Names = std::vector<std::string>;

TEST(ProjectSlotsTest, projectsHaveTheirPlacesInTheOrderOfFirstUseWhateverTheListsOrder) {
    const std::vector records{used("C", 30), used("A", 40), used("B", 20), used("A", 10)};
    EXPECT_EQ(ProjectSlots{records}.names, (Names{"A", "B", "C"}));
}

TEST(ProjectSlotsTest, ofProjectsFirstUsedAtOneMomentTheOneListedFirstComesFirst) {
    const std::vector records{used("B", 5), used("A", 5), used("B", 1), used("C", 1)};
    EXPECT_EQ(ProjectSlots{records}.names, (Names{"B", "C", "A"}));
}

TEST(ProjectSlotsTest, theSixthProjectHasNoPlaceHoweverOftenItIsUsed) {
    std::vector<SessionRecord> records;
    for (const char* name : {"A", "B", "C", "D", "E", "F", "F", "F"}) {
        records.push_back(used(name, static_cast<double>(records.size())));
    }
    const ProjectSlots slots{records};
    EXPECT_EQ(slots.names, (Names{"A", "B", "C", "D", "E"}));
    EXPECT_EQ(slots.slot("E"), 4U);
    EXPECT_EQ(slots.slot("F"), std::nullopt);
}

TEST(ProjectSlotsTest, namesAreComparedExactly) {
    const std::vector records{used("Work", 1), used("work", 2), used("Work ", 3)};
    EXPECT_EQ(ProjectSlots{records}.names.size(), 3U);
    EXPECT_FALSE(ProjectSlots{records}.slot("WORK"));
}

TEST(ProjectSlotsTest, anEmptyHistoryHasNoPlaces) {
    EXPECT_EQ(ProjectSlots(std::vector<SessionRecord>{}), ProjectSlots{});
}

} // namespace
} // namespace velmorin
