#include "app/engine/Watchdog.h"

#include <gtest/gtest.h>
#include <vector>

namespace velmorin {
namespace {

using Arguments = std::vector<std::string>;

TEST(WatchdogTest, theCheckOpensTheBundleWhereNoProcessLives) {
    EXPECT_EQ(Watchdog::shellLine("/Applications/Velmorin.app", Watchdog::launchArguments(Arguments{})),
              "/usr/bin/pgrep -xq Velmorin || /usr/bin/open -g '/Applications/Velmorin.app' --args '--watchdog'");
    EXPECT_EQ(Watchdog::shellLine("/a b", Watchdog::launchArguments(Arguments{"one", "two words", ""})),
              "/usr/bin/pgrep -xq Velmorin || /usr/bin/open -g '/a b' --args '--watchdog' 'one' 'two words' ''");
}

TEST(WatchdogTest, anApostropheIsQuoted) {
    EXPECT_EQ(Watchdog::quoted("it's"), R"('it'\''s')");
    EXPECT_EQ(Watchdog::quoted("''"), R"(''\'''\''')");
    EXPECT_EQ(Watchdog::quoted(""), "''");
}

TEST(WatchdogTest, aTextThatXMLCannotHoldGivesNoPropertyList) {
    EXPECT_TRUE(Watchdog::propertyList("/a<b>&c\t\n\r", Arguments{"«ی» 😀"}));
    for (const char* text : {"\x01", "\x0B", "\x1F", "\uFFFE", "\uFFFF", "\xFF", "\xED\xA0\x80"}) {
        EXPECT_FALSE(Watchdog::propertyList(text, Arguments{}));
        EXPECT_FALSE(Watchdog::propertyList("/a", Arguments{text}));
    }
    EXPECT_FALSE(Watchdog::propertyList(std::string(1, '\0'), Arguments{}));
}

} // namespace
} // namespace velmorin
