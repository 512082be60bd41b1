#include "app/platform/linux/browsers/MessageFrames.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace velmorin {
namespace {

std::string lengthOf(std::uint32_t length) {
    std::string bytes(sizeof length, '\0');
    std::memcpy(bytes.data(), &length, sizeof length);
    return bytes;
}

TEST(MessageFramesTest, aMessageComesBackWhole) {
    MessageFrames frames;
    EXPECT_TRUE(frames.append(*framed("{\"id\":1}")));
    EXPECT_EQ(frames.take(), "{\"id\":1}");
    EXPECT_FALSE(frames.take());
}

TEST(MessageFramesTest, theLengthIsInTheMachinesOwnOrder) {
    EXPECT_EQ(*framed("abc"), lengthOf(3) + "abc");
}

TEST(MessageFramesTest, messagesMayComeByteByByteOrSeveralAtOnce) {
    const auto bytes = *framed("first") + *framed("") + *framed("third");
    MessageFrames frames;
    std::vector<std::string> taken;
    for (const char byte : bytes) {
        EXPECT_TRUE(frames.append({&byte, 1}));
        while (auto message = frames.take())
            taken.push_back(*message);
    }
    EXPECT_EQ(taken, (std::vector<std::string>{"first", "", "third"}));

    EXPECT_TRUE(frames.append(bytes));
    EXPECT_EQ(frames.take(), "first");
    EXPECT_EQ(frames.take(), "");
    EXPECT_EQ(frames.take(), "third");
}

TEST(MessageFramesTest, whatIsTooLongForABrowserIsNotFramed) {
    EXPECT_TRUE(framed(std::string(longestMessageToBrowser, 'x')));
    EXPECT_FALSE(framed(std::string(longestMessageToBrowser + 1, 'x')));
}

TEST(MessageFramesTest, aLengthThatNoBrowserSendsIsRefusedBeforeItsBytesCome) {
    MessageFrames frames;
    EXPECT_FALSE(frames.append(lengthOf(longestMessageFromBrowser + 1)));
    EXPECT_FALSE(frames.take());
    MessageFrames others;
    EXPECT_FALSE(others.append("\xff\xff\xff\xff"));
    MessageFrames longest;
    EXPECT_TRUE(longest.append(lengthOf(longestMessageFromBrowser)));
    EXPECT_FALSE(longest.take()) << "nothing of it has come yet";
}

TEST(MessageFramesTest, anImpossibleLengthBehindAMessageIsSeenWhenTheMessageIsTaken) {
    MessageFrames frames;
    EXPECT_TRUE(frames.append(*framed("x") + "\xff\xff\xff\xff"));
    EXPECT_EQ(frames.take(), "x");
    EXPECT_FALSE(frames.take());
    EXPECT_FALSE(frames.append(""));
}

} // namespace
} // namespace velmorin
