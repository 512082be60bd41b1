#include "app/platform/linux/browsers/HostRequest.h"

#include <gtest/gtest.h>
#include <string>

namespace velmorin {
namespace {

std::string withoutEnd(const std::string& line) {
    EXPECT_TRUE(line.ends_with('\n'));
    return line.substr(0, line.size() - 1);
}

TEST(HostRequestTest, aRequestReadsBackAsItself) {
    for (const auto& request : {HostRequest{}, HostRequest{TabPlace{0, 0}},
                                HostRequest{TabPlace{TabPlace::lastWindow, TabPlace::lastPlace}}}) {
        EXPECT_LE(request.line().size(), HostRequest::longestLine);
        EXPECT_EQ(HostRequest::parse(withoutEnd(request.line())), request) << request.line();
    }
}

TEST(HostRequestTest, anyOtherLineIsNone) {
    for (const auto* const line : {"", "lis", "list ", "LIST", "list\n", "blank", "blank ", "blank 1", "blank 1 ",
                                   "blank 1 10", "blank -1 0", "blank 1 0 ", "blank 1 0 0", "blank 9007199254740992 0",
                                   "blank 1  0", "blank 99999999999999999999 0", "blank x 0"})
        EXPECT_FALSE(HostRequest::parse(line)) << line;
}

TEST(HostRequestTest, theBrowserIsAskedInJSON) {
    EXPECT_EQ(HostRequest{}.message(7), R"({"id":7,"do":"list"})");
    EXPECT_EQ((HostRequest{TabPlace{12, 1}}.message(8)), R"({"id":8,"do":"blank","window":12,"place":1})");
}

TEST(HostAnswerTest, aTabReadsBackWithItsAddressAsItMayStandInALine) {
    const ShownTab tab{{12, 1}, "http://a.example/ b\nc"};
    EXPECT_EQ(HostAnswer::parseTab(withoutEnd(HostAnswer::line(tab))), (ShownTab{{12, 1}, "http://a.example/ b%0Ac"}));
    const ShownTab empty{{0, 0}, ""};
    EXPECT_EQ(HostAnswer::parseTab(withoutEnd(HostAnswer::line(empty))), empty);
}

TEST(HostAnswerTest, anyOtherLineIsNoTab) {
    for (const auto* const line : {"", "end", "tab", "tab ", "tab x", "tab 1 x http://a.example/", "tab -1 0 x"})
        EXPECT_FALSE(HostAnswer::parseTab(line)) << line;
}

TEST(HostAnswerTest, aFailureIsOneLineWhateverItsReason) {
    EXPECT_EQ(HostAnswer::failure("a\nend\n"), "error a%0Aend%0A\n");
    EXPECT_EQ(HostAnswer::parseFailure("error why"), "why");
    EXPECT_FALSE(HostAnswer::parseFailure("end"));
}

} // namespace
} // namespace velmorin
