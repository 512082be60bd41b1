#include "core/foundation/RawValue.h"

#include "core/language/AppLanguage.h"
#include "core/session/ColorTheme.h"
#include "core/session/Segment.h"
#include "core/session/SessionMode.h"
#include "core/session/SessionOutcome.h"
#include "core/session/StatsPeriod.h"

#include <gtest/gtest.h>

namespace velmorin {
namespace {

/// All cases' texts in their order.
template <RawRepresentable Enum>
std::string texts() {
    std::string texts;
    for (const auto value : allCases<Enum>())
        texts += std::string{rawValue(value)} + " ";
    return texts;
}

TEST(RawValueTest, everyEnumerationHasItsTextsInOrder) {
    EXPECT_EQ(texts<SegmentKind>(), "work shortBreak longBreak lockedBreak ");
    EXPECT_EQ(texts<SessionMode>(), "pomodoro deep ");
    EXPECT_EQ(texts<SessionOutcome>(), "completed aborted ");
    EXPECT_EQ(texts<ColorTheme>(), "dusk dawn aurora ");
    EXPECT_EQ(texts<AppLanguage>(), "fa en de ");
    EXPECT_EQ(texts<StatsPeriod>(), "today week month all ");
}

TEST(RawValueTest, onlyTheExactTextIsTheCase) {
    EXPECT_EQ(fromRawValue<SegmentKind>("lockedBreak"), SegmentKind::lockedBreak);
    EXPECT_EQ(fromRawValue<SegmentKind>("LockedBreak"), std::nullopt);
    EXPECT_EQ(fromRawValue<SegmentKind>("locked"), std::nullopt);
    EXPECT_EQ(fromRawValue<SegmentKind>(""), std::nullopt);
}

} // namespace
} // namespace velmorin
