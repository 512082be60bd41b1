#include "core/phone/PhoneCommand.h"
#include "core/phone/PhoneStatus.h"
#include "core/phone/PhoneThought.h"

#include <gtest/gtest.h>
#include <limits>

namespace velmorin {
namespace {

const UUID sessionID = UUID::parse("0f1e2d3c-4b5a-4697-8877-665544332211").value();
constexpr const char* upperID = "0F1E2D3C-4B5A-4697-8877-665544332211";
constexpr const char* lowerID = "0f1e2d3c-4b5a-4697-8877-665544332211";

using PhoneStatus::decode;
using Status = std::optional<PhoneStatus::Status>;

TEST(PhoneCommandTest, theStartCarriesThePlanWithSortedKeys) {
    EXPECT_EQ(
        PhoneCommand::encoded(PhoneCommand::Start{sessionID,
                                                  Date::fromSecondsSince1970(1'772'323'200.5),
                                                  {{SegmentKind::work, 1'500}, {SegmentKind::lockedBreak, 0.5}},
                                                  1'772'323'200'500}),
        R"({"id":"0F1E2D3C-4B5A-4697-8877-665544332211","segments":[{"kind":"work","seconds":1500},)"
        R"({"kind":"lockedBreak","seconds":0.5}],"seq":1772323200500,"startedAt":1772323200.5,"type":"start","v":1})");
}

TEST(PhoneCommandTest, theEndNamesTheSession) {
    EXPECT_EQ(PhoneCommand::encoded(PhoneCommand::End{sessionID, 7}),
              R"({"id":"0F1E2D3C-4B5A-4697-8877-665544332211","seq":7,"type":"end","v":1})");
}

TEST(PhoneCommandTest, aMomentThatJSONCannotHoldIsNoMessage) {
    EXPECT_EQ(
        PhoneCommand::encoded(PhoneCommand::Start{sessionID, Date{std::numeric_limits<double>::infinity()}, {}, 1}),
        std::nullopt);
}

TEST(PhoneStatusTest, theVersionIsNeverLookedAt) {
    const Status locked = PhoneStatus::Locked{sessionID};
    EXPECT_EQ(decode(R"({"type":"locked","id":"0F1E2D3C-4B5A-4697-8877-665544332211"})"), locked);
    EXPECT_EQ(decode(R"({"type":"locked","v":99,"id":"0f1e2d3c-4b5a-4697-8877-665544332211"})"), locked);
}

TEST(PhoneStatusTest, eachKindIsReadWithItsSession) {
    const auto text = [](const char* type) {
        return R"({"v":1,"type":")" + std::string{type} + R"(","id":")" + lowerID + "\"}";
    };
    EXPECT_EQ(decode(text("released")), Status{PhoneStatus::Released{sessionID}});
    EXPECT_EQ(decode(text("notReady")), Status{PhoneStatus::NotReady{sessionID}});
    EXPECT_EQ(decode(text("hello")), Status{PhoneStatus::Hello{}});
    EXPECT_EQ(decode(text("Locked")), std::nullopt);
    EXPECT_EQ(decode(text("unheardOf")), std::nullopt);
}

TEST(PhoneStatusTest, aBadIdentifierFailsWhatNeedsOneAndNotAHello) {
    for (const char* id : {R"("none")", "7", "null"}) {
        const auto tail = R"(","id":)" + std::string{id} + "}";
        EXPECT_EQ(decode(R"({"type":"locked)" + tail), std::nullopt) << id;
        EXPECT_EQ(decode(R"({"type":"hello)" + tail), Status{PhoneStatus::Hello{}}) << id;
    }
}

TEST(PhoneStatusTest, anythingMalformedIsNothing) {
    for (const char* text :
         {"", "[]", "7", "{}", R"({"type":7})", R"({"id":"x"})", "{\"type\":\"hello\"", R"({"type":"hello"} x)"}) {
        EXPECT_EQ(decode(text), std::nullopt) << text;
    }
}

constexpr const char* thoughtTail =
    R"("type":"thought","id":"0F1E2D3C-4B5A-4697-8877-665544332211","text":"ink","updatedAt":20)";

TEST(PhoneStatusTest, aThoughtWithoutItsFlagsHasBothDown) {
    const auto status = decode("{" + std::string{thoughtTail} + R"(,"createdAt":10})");
    const PhoneThought expected{lowerID, "ink", Date::fromSecondsSince1970(10), Date::fromSecondsSince1970(20),
                                false,   false};
    EXPECT_EQ(status, Status{expected});
    EXPECT_EQ(decode("{" + std::string{thoughtTail} + R"(,"createdAt":10,"done":"true","deleted":1})"),
              Status{expected});
    const auto flagged = decode("{" + std::string{thoughtTail} + R"(,"createdAt":10,"done":true,"deleted":true})");
    ASSERT_TRUE(flagged);
    EXPECT_TRUE(std::get<PhoneThought>(*flagged).done);
    EXPECT_TRUE(std::get<PhoneThought>(*flagged).deleted);
}

TEST(PhoneStatusTest, aThoughtWhoseCreationIsNoNumberIsNothing) {
    for (const char* created : {R"("10")", "true", "null", "[10]"}) {
        EXPECT_EQ(decode("{" + std::string{thoughtTail} + R"(,"createdAt":)" + created + "}"), std::nullopt) << created;
    }
    EXPECT_EQ(decode("{" + std::string{thoughtTail} + "}"), std::nullopt);
}

Thought local(double created, std::optional<double> updated = std::nullopt, UUID id = UUID::random()) {
    Thought thought{"local", Date{created}, id};
    if (updated) thought.updatedAt = Date{*updated};
    return thought;
}

PhoneThought incoming(const char* id, double created, double updated, bool deleted = false) {
    return {id, "phone", Date{created}, Date{updated}, true, deleted};
}

TEST(PhoneThoughtTest, itsIdentifierIsInLowerCaseAndACommandsInUpperCase) {
    EXPECT_EQ(incoming(upperID, 1, 2).id, lowerID);
    EXPECT_EQ(message(local(1, 2, sessionID), Date{3}, true),
              (PhoneThought{lowerID, "local", Date{1}, Date{3}, false, true}));
}

TEST(PhoneThoughtTest, itIsWrittenWithSortedKeysAndReadBack) {
    const PhoneThought thought{upperID, "a/b", Date::fromSecondsSince1970(10), Date::fromSecondsSince1970(20.5),
                               true,    false};
    const auto text = thought.encoded();
    EXPECT_EQ(text, R"({"createdAt":10,"deleted":false,"done":true,"id":"0f1e2d3c-4b5a-4697-8877-665544332211",)"
                    R"("text":"a\/b","type":"thought","updatedAt":20.5,"v":1})");
    EXPECT_EQ(decode(*text), Status{thought});
}

TEST(ThoughtMergingTest, theDeletionOfAnUnknownThoughtChangesNothing) {
    EXPECT_EQ(merging(incoming(lowerID, 1, 2, true), {local(5)}), std::nullopt);
}

TEST(ThoughtMergingTest, theDeletionOfAKnownThoughtRemovesIt) {
    const std::vector thoughts{local(5), local(4, 4, sessionID), local(3)};
    EXPECT_EQ(merging(incoming(lowerID, 4, 9, true), thoughts), (std::vector{thoughts[0], thoughts[2]}));
}

TEST(ThoughtMergingTest, anEquallyOldMessageWinsAndAnOlderOneDoesNot) {
    const std::vector thoughts{local(1, 100, sessionID)};
    ASSERT_TRUE(merging(incoming(lowerID, 1, 100), thoughts));
    EXPECT_EQ(merging(incoming(lowerID, 1, 100), thoughts)->front().text, "phone");
    EXPECT_EQ(merging(incoming(lowerID, 1, 99), thoughts), std::nullopt);
    EXPECT_EQ(merging(incoming(lowerID, 1, 99, true), thoughts), std::nullopt);
}

TEST(ThoughtMergingTest, aThoughtWithoutAnUpdateIsAsOldAsItsCreation) {
    const std::vector thoughts{local(50, std::nullopt, sessionID)};
    EXPECT_EQ(merging(incoming(lowerID, 50, 49), thoughts), std::nullopt);
    EXPECT_TRUE(merging(incoming(lowerID, 50, 50), thoughts));
}

TEST(ThoughtMergingTest, aNewThoughtLandsByItsCreation) {
    const std::vector thoughts{local(30), local(10)};
    const auto merged = merging(incoming(lowerID, 20, 25), thoughts);
    ASSERT_TRUE(merged);
    ASSERT_EQ(merged->size(), 3U);
    EXPECT_EQ((*merged)[1].id, sessionID);
    EXPECT_EQ((*merged)[1].updatedAt, Date{25});
    EXPECT_TRUE((*merged)[1].done);
    const auto equal = merging(incoming(lowerID, 30, 30), thoughts);
    EXPECT_EQ((*equal)[1].id, sessionID) << "after the one that was there";
}

TEST(ThoughtMergingTest, aKnownThoughtStaysAtItsPlace) {
    const std::vector thoughts{local(30), local(20, 20, sessionID), local(10)};
    const auto merged = merging(incoming(lowerID, 99, 100), thoughts);
    ASSERT_TRUE(merged);
    EXPECT_EQ((*merged)[1].createdAt, Date{99});
    EXPECT_EQ((*merged)[0], thoughts[0]);
}

TEST(ThoughtMergingTest, identifiersAreComparedAsSuch) {
    PhoneThought upper = incoming(lowerID, 20, 30);
    upper.id = upperID;
    EXPECT_TRUE(merging(upper, {local(20, 20, sessionID)}));
    PhoneThought none = incoming("none", 20, 30);
    EXPECT_EQ(merging(none, {}), std::nullopt);
}

} // namespace
} // namespace velmorin
