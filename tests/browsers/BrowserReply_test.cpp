#include "app/platform/linux/browsers/BrowserReply.h"

#include <gtest/gtest.h>

namespace velmorin {
namespace {

TEST(BrowserReplyTest, theTabsComeInTheirOrder) {
    const auto reply = BrowserReply::parse(
        R"({"id":7,"tabs":[{"window":2,"place":0,"url":"http://a.example/"},{"url":"","place":1,"window":1}]})");
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->id, 7);
    EXPECT_EQ(reply->tabs, (std::vector<ShownTab>{{{2, 0}, "http://a.example/"}, {{1, 1}, ""}}));
    EXPECT_FALSE(reply->error);
}

TEST(BrowserReplyTest, escapesAreRead) {
    const auto reply = BrowserReply::parse(R"({"id":1,"tabs":[{"window":1,"url":"a\u2028\n\"\\\ud83d\ude00"}]})");
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->tabs.at(0).address, "a\u2028\n\"\\\U0001F600");
}

TEST(BrowserReplyTest, aReplyWithoutTabsIsOneAsWell) {
    const auto done = BrowserReply::parse(R"({"id":7,"done":true,"more":{"x":[1,null]}})");
    ASSERT_TRUE(done);
    EXPECT_TRUE(done->tabs.empty());
    const auto failed = BrowserReply::parse(R"({"id":8,"error":"no"})");
    ASSERT_TRUE(failed);
    EXPECT_EQ(failed->error, "no");
}

TEST(BrowserReplyTest, anythingElseIsMalformed) {
    for (const auto* const message : {"",
                                      " ",
                                      "null",
                                      "7",
                                      "[]",
                                      "{}",
                                      "{\"id\":\"7\"}",
                                      "{\"id\":7.5}",
                                      "{\"id\":7",
                                      "{\"id\":7}x",
                                      "{\"tabs\":[]}",
                                      R"({"id":7,"tabs":{}})",
                                      R"({"id":7,"tabs":[1]})",
                                      R"({"id":7,"tabs":[{}]})",
                                      R"({"id":7,"tabs":[{"window":1}]})",
                                      R"({"id":7,"tabs":[{"url":"x"}]})",
                                      R"({"id":7,"tabs":[{"window":-1,"url":"x"}]})",
                                      R"({"id":7,"tabs":[{"window":1,"place":10,"url":"x"}]})",
                                      R"({"id":7,"tabs":[{"window":9007199254740992,"url":"x"}]})",
                                      R"({"id":7,"tabs":[{"window":1,"url":1}]})",
                                      R"({"id":7,"error":1})",
                                      "{\"id\":7,\"x\":\"\xff\"}",
                                      R"({"id":7,"tabs":[{"window":1,"url":"\ud800"}]})",
                                      R"({"id":7,"x":nul})"})
        EXPECT_FALSE(BrowserReply::parse(message)) << message;
}

TEST(BrowserReplyTest, deepNestingIsMalformedAndNoMore) {
    EXPECT_FALSE(BrowserReply::parse(R"({"id":7,"x":)" + std::string(100000, '[') + std::string(100000, ']') + "}"));
}

} // namespace
} // namespace velmorin
