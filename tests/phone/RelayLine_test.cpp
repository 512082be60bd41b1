#include "app/phone/RelayLine.h"

#include <gtest/gtest.h>

namespace velmorin {
namespace {

TEST(RelayLineTest, aMessageHasItsNameAndItsText) {
    EXPECT_EQ(RelayLine::parse(R"({"id":"abc","time":1,"event":"message","topic":"t","message":"sealed"})"),
              (RelayLine{"abc", "sealed"}));
    EXPECT_EQ(RelayLine::parse(R"({"id":"","event":"message","message":""})"), (RelayLine{"", ""}));
}

TEST(RelayLineTest, theRelaysOwnEventsAreNone) {
    for (const char* event : {"open", "keepalive", "poll_request", "message_clear", "message_delete", "Message"}) {
        EXPECT_EQ(RelayLine::parse(R"({"id":"abc","message":"x","event":")" + std::string{event} + "\"}"),
                  std::nullopt);
    }
}

TEST(RelayLineTest, anythingElseIsNone) {
    for (const char* line :
         {"", "text", "[]", "{}", R"({"event":"message","id":"a"})", R"({"event":"message","message":"a"})",
          R"({"event":"message","id":7,"message":"a"})", R"({"event":"message","id":"a","message":null})",
          R"({"event":"message","id":"a","message":"b")"}) {
        EXPECT_EQ(RelayLine::parse(line), std::nullopt) << line;
    }
}

} // namespace
} // namespace velmorin
