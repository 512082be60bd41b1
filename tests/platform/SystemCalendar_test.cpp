#include "app/platform/posix/SystemCalendar.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <unistd.h>

namespace velmorin {
namespace {

namespace fs = std::filesystem;

/// 2001-01-01 00:00:00 UTC.
constexpr Date newYear{0};

class SystemCalendarTest : public ::testing::Test {
protected:
    SystemCalendarTest() {
        if (const char* zone = std::getenv("TZ")) m_before = zone;
        ::unsetenv("TZ");
        fs::create_directory(m_folder);
    }

    ~SystemCalendarTest() override {
        fs::remove_all(m_folder);
        if (m_before) {
            ::setenv("TZ", m_before->c_str(), 1);
        } else {
            ::unsetenv("TZ");
        }
    }

    /// Makes the system's zone another one.
    void moveTo(const std::string& zone) {
        fs::remove(localTime);
        fs::create_symlink("/usr/share/zoneinfo/" + zone, localTime);
    }

private:
    std::optional<std::string> m_before;
    fs::path m_folder = fs::temp_directory_path() / ("velmorin-zone-" + std::to_string(::getpid()));

protected:
    fs::path localTime = m_folder / "localtime";
};

TEST_F(SystemCalendarTest, theVariableNamesTheZone) {
    moveTo("Europe/Berlin");
    ::setenv("TZ", "Asia/Tehran", 1);
    EXPECT_EQ(systemCalendar(localTime).timeOfDay(newYear), (TimeOfDay{3, 30, 0}));
    ::setenv("TZ", ":Asia/Tokyo", 1);
    EXPECT_EQ(systemCalendar(localTime).timeOfDay(newYear), (TimeOfDay{9, 0, 0}));
}

TEST_F(SystemCalendarTest, withoutTheVariableItIsTheSystemsZone) {
    moveTo("Asia/Tehran");
    EXPECT_EQ(systemCalendar(localTime).timeOfDay(newYear), (TimeOfDay{3, 30, 0}));
}

TEST_F(SystemCalendarTest, aJourneyIsNoticed) {
    moveTo("Asia/Tehran");
    EXPECT_EQ(systemCalendar(localTime).timeOfDay(newYear), (TimeOfDay{3, 30, 0}));
    moveTo("Europe/Berlin");
    EXPECT_EQ(systemCalendar(localTime).timeOfDay(newYear), (TimeOfDay{1, 0, 0}));
}

TEST_F(SystemCalendarTest, whatIsNoZoneCountsAsUTC) {
    moveTo("Asia/Tehran");
    for (const char* none : {"", "Nowhere/Land", "::"}) {
        ::setenv("TZ", none, 1);
        EXPECT_EQ(systemCalendar(localTime).timeOfDay(newYear), (TimeOfDay{0, 0, 0})) << none;
    }
}

TEST_F(SystemCalendarTest, aSystemWithoutAZoneHasUTC) {
    EXPECT_EQ(systemCalendar(localTime).timeOfDay(newYear), (TimeOfDay{0, 0, 0}));
}

} // namespace
} // namespace velmorin
