#include "core/foundation/Date.h"

#include <gtest/gtest.h>
#include <limits>

namespace velmorin {
namespace {

TEST(DateTest, theReferenceDateIsTheFirstMomentOf2001) {
    EXPECT_EQ(iso8601(Date{}), "2001-01-01T00:00:00Z");
    EXPECT_EQ(Date{}.secondsSince1970(), 978'307'200.0);
    EXPECT_EQ(Date::fromSecondsSince1970(0), Date{-978'307'200.0});
    EXPECT_EQ(iso8601(Date::fromSecondsSince1970(0)), "1970-01-01T00:00:00Z");
}

TEST(DateTest, datesAndLengthsOfTimeAddUp) {
    const Date date{100.5};
    EXPECT_EQ(date + 10.0, Date{110.5});
    EXPECT_EQ(date - 10.0, Date{90.5});
    EXPECT_EQ(Date{90.5} - date, -10.0);
    EXPECT_LT(Date{90.5}, date);
}

TEST(DateTest, aFractionOfASecondIsCutOff) {
    EXPECT_EQ(iso8601(Date{794'066'709.999}), "2026-03-01T14:05:09Z");
    EXPECT_EQ(iso8601(Date{-0.001}), "2000-12-31T23:59:59Z");
}

TEST(DateTest, leapDaysAndFarYearsAreRight) {
    EXPECT_EQ(iso8601(Date::fromSecondsSince1970(951'782'400)), "2000-02-29T00:00:00Z");
    EXPECT_EQ(iso8601(Date::fromSecondsSince1970(253'402'300'799)), "9999-12-31T23:59:59Z");
    EXPECT_EQ(iso8601(Date::fromSecondsSince1970(-62'167'219'200)), "0000-01-01T00:00:00Z");
}

TEST(DateTest, momentsOutOfReachShowAsTheNearest) {
    EXPECT_EQ(iso8601(Date{1e300}), "9999-12-31T23:59:59Z");
    EXPECT_EQ(iso8601(Date{-1e300}), "0000-01-01T00:00:00Z");
    EXPECT_EQ(iso8601(Date{std::numeric_limits<double>::quiet_NaN()}), "0000-01-01T00:00:00Z");
}

} // namespace
} // namespace velmorin
