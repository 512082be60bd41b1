#include "app/platform/linux/relay/LineSplitter.h"

#include <gtest/gtest.h>
#include <vector>

namespace velmorin {
namespace {

using Lines = std::vector<std::string>;

Lines taken(LineSplitter& splitter) {
    Lines lines;
    while (auto line = splitter.next())
        lines.push_back(std::move(*line));
    return lines;
}

TEST(LineSplitterTest, bothKindsOfEndsAreTakenAway) {
    LineSplitter splitter;
    EXPECT_TRUE(splitter.take("a\nb\r\n\n\r\nc\rd\n"));
    EXPECT_EQ(taken(splitter), (Lines{"a", "b", "", "", "c\rd"}));
}

TEST(LineSplitterTest, itDoesNotMatterHowLinesArriveInPieces) {
    const std::string text = "{\"زبان\":1}\r\n\nü\n";
    for (std::size_t size = 1; size <= text.size(); ++size) {
        LineSplitter splitter;
        for (std::size_t start = 0; start < text.size(); start += size)
            EXPECT_TRUE(splitter.take(std::string_view{text}.substr(start, size)));
        EXPECT_EQ(taken(splitter), (Lines{"{\"زبان\":1}", "", "ü"})) << size;
    }
}

TEST(LineSplitterTest, whatIsLeftOverIsALineOnlyAtTheEnd) {
    LineSplitter splitter;
    splitter.take("a\nb");
    EXPECT_EQ(taken(splitter), (Lines{"a"}));
    splitter.finish();
    EXPECT_EQ(taken(splitter), (Lines{"b"}));
    splitter.finish();
    EXPECT_EQ(taken(splitter), Lines{});
}

TEST(LineSplitterTest, aLineWithoutEndIsNotKeptForEver) {
    LineSplitter splitter;
    const std::string most(LineSplitter::longestLine, 'x');
    EXPECT_TRUE(splitter.take(most));
    EXPECT_TRUE(splitter.take("\nnext\n"));
    EXPECT_EQ(taken(splitter), (Lines{most, "next"}));
    EXPECT_TRUE(splitter.take(most));
    EXPECT_FALSE(splitter.take("y"));
    EXPECT_FALSE(splitter.take("\nlater\n"));
    splitter.finish();
    EXPECT_EQ(taken(splitter), Lines{});
}

} // namespace
} // namespace velmorin
