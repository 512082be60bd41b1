// The reader and the writer against data that others made (tests/data/README.md).

#include "core/foundation/JSONCoding.h"
#include "core/session/AppSettings.h"
#include "core/session/Segment.h"
#include "core/store/JSONStore.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/TestData.h"

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <map>

namespace velmorin {
namespace {

struct Case {
    std::string file;
    std::string expect;
    std::string hex;
};

constexpr auto fields(std::type_identity<Case>) {
    return std::tuple{field("file", &Case::file), field("expect", &Case::expect), field("hex", &Case::hex)};
}

/// What a store makes of a file with this content.
std::optional<AppSettings> loaded(const std::string& content) {
    MemoryFiles files;
    files.contents["settings.json"] = content;
    return JSONStore{"", files}.load<AppSettings>("settings.json");
}

TEST(JSONDataTest, wellFormedTextsAreAcceptedAndMalformedOnesRefusedUnderAnUnknownKey) {
    AppSettings german;
    german.language = AppLanguage::german;
    std::map<std::string, int> counts;
    for (const auto& line : testDataLines("json.jsonl")) {
        const auto entry = decodeJSON<Case>(line);
        ASSERT_TRUE(entry) << line;
        ++counts[entry->expect];
        const auto text = bytesFromHex(entry->hex);
        const auto settings = loaded(R"({"unknown":)" + text + R"(,"language":"de"})");
        if (entry->expect == "either") continue;
        EXPECT_EQ(settings, entry->expect == "accept" ? std::optional{german} : std::nullopt) << entry->file;
    }
    EXPECT_EQ(counts, (std::map<std::string, int>{{"accept", 40}, {"either", 17}, {"reject", 92}}));
}

TEST(JSONDataTest, wellFormedTextsAreAcceptedAndMalformedOnesRefusedAsWholeFiles) {
    for (const auto& line : testDataLines("json.jsonl")) {
        const auto entry = decodeJSON<Case>(line);
        const auto isValue = JSONInput::read(bytesFromHex(entry->hex), [](JSONInput& input) { return input.skip(); });
        if (entry->expect == "either") continue;
        EXPECT_EQ(isValue, entry->expect == "accept") << entry->file;
    }
}

/// Reads each number of a file as the duration of a segment, and writes and reads it again.
void expectExactNumbers(std::string_view fileName, std::size_t textColumn) {
    std::size_t count = 0;
    for (const auto& line : testDataLines(fileName)) {
        const auto parts = columns(line);
        if (parts[0] == "f64_bits") continue;
        const auto text = R"({"kind":"work","duration":)" + parts[textColumn] + "}";
        const double expected = doubleFromBits(parts[0]);
        const auto segment = decodeJSON<Segment>(text);
        if (!std::isfinite(expected)) {
            EXPECT_FALSE(segment) << line;
            continue;
        }
        ASSERT_TRUE(segment) << line;
        EXPECT_EQ(std::bit_cast<std::uint64_t>(segment->duration), std::bit_cast<std::uint64_t>(expected)) << line;
        const auto again = decodeJSON<Segment>(encodeJSON(*segment).value_or(""));
        ASSERT_TRUE(again) << line;
        EXPECT_EQ(std::bit_cast<std::uint64_t>(again->duration), std::bit_cast<std::uint64_t>(expected)) << line;
        ++count;
    }
    EXPECT_GT(count, 2'000U);
}

TEST(JSONDataTest, everyNumberIsReadExactlyRoundedAndReadsBackBitForBit) {
    expectExactNumbers("json_number_parse.tsv", 1);
}

TEST(JSONDataTest, everyShortestTextOfADoubleReadsBackBitForBit) {
    expectExactNumbers("shortest_double.tsv", 1);
}

} // namespace
} // namespace velmorin
