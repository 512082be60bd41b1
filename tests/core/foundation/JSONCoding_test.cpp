#include "core/foundation/JSONCoding.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace velmorin {
namespace {

enum class Mood { calm, busy };
constexpr std::array<std::string_view, 2> rawValues(Mood) {
    return {"calm", "busy"};
}

/// One member of each kind.
struct Sample {
    std::string text;
    std::int64_t count = 0;
    double length = 0;
    bool flag = false;
    Mood mood = Mood::calm;
    std::optional<double> extra;
    bool usual = true;
    Mood tolerated = Mood::busy;

    bool operator==(const Sample&) const = default;
};

constexpr auto fields(std::type_identity<Sample>) {
    return std::tuple{
        field("text", &Sample::text),
        field("count", &Sample::count),
        field("length", &Sample::length),
        field("flag", &Sample::flag),
        field("mood", &Sample::mood),
        field("extra", &Sample::extra),
        field("usual", &Sample::usual, Presence::defaulted),
        field("tolerated", &Sample::tolerated, Presence::tolerant),
    };
}

constexpr const char* plain =
    R"({"text":"t","count":1,"length":2.5,"flag":true,"mood":"calm","extra":3,"usual":false,"tolerated":"calm"})";

/// The plain sample with one piece of its text replaced.
std::optional<Sample> with(std::string_view piece, std::string_view replacement) {
    std::string text = plain;
    const auto place = text.find(piece);
    EXPECT_NE(place, std::string::npos) << piece;
    return decodeJSON<Sample>(text.replace(place, piece.size(), replacement));
}

template <class Value>
std::string written(const Value& value) {
    return encodeJSON(value).value_or("nothing");
}

TEST(JSONCodingTest, membersAreWrittenInTheirOrderAndReadBack) {
    const auto sample = decodeJSON<Sample>(plain);
    ASSERT_TRUE(sample);
    EXPECT_EQ(*sample, (Sample{"t", 1, 2.5, true, Mood::calm, 3.0, false, Mood::calm}));
    EXPECT_EQ(written(*sample), plain);
}

TEST(JSONCodingTest, keysMayStandInAnyOrder) {
    EXPECT_EQ(
        decodeJSON<Sample>(R"( { "tolerated":"calm" , "usual":false,"extra":3,"mood":"calm","flag":true,"length":2.5,)"
                           "\r\n\t\"count\":1,\"text\":\"t\"} "),
        decodeJSON<Sample>(plain));
}

TEST(JSONCodingTest, unknownKeysAreIgnoredWhateverTheyHold) {
    EXPECT_EQ(with(R"("text":"t")", R"("a":{"b":[1,null,{"c":1e999}]},"text":"t","a":"twice","":0)"),
              decodeJSON<Sample>(plain));
    EXPECT_FALSE(with(R"("text":"t")", R"("a":{"b":[1,]},"text":"t")"));
}

TEST(JSONCodingTest, aKnownKeyTwiceFailsTheObject) {
    EXPECT_FALSE(with(R"("text":"t")", R"("text":"t","text":"t")"));
    EXPECT_FALSE(with(R"("extra":3)", R"("extra":3,"extra":null)"));
    EXPECT_FALSE(with(R"("text":"t")", R"("text":"t","\u0074ext":"t")")) << "the same key, written in another way";
}

TEST(JSONCodingTest, aMissingOrNullRequiredMemberFailsTheObject) {
    for (const char* member :
         {R"("text":"t",)", R"("count":1,)", R"("length":2.5,)", R"("flag":true,)", R"("mood":"calm",)"}) {
        EXPECT_FALSE(with(member, "")) << member;
        const std::string name{member, std::string_view{member}.find(':') + 1};
        EXPECT_FALSE(with(member, name + "null,")) << member;
    }
}

TEST(JSONCodingTest, aMissingOrNullOptionalIsAbsentAndIsLeftOutOnWriting) {
    const auto missing = with(R"("extra":3,)", "");
    ASSERT_TRUE(missing);
    EXPECT_EQ(missing->extra, std::nullopt);
    EXPECT_EQ(with(R"("extra":3)", R"("extra":null)"), missing);
    EXPECT_EQ(written(*missing).find("extra"), std::string::npos);
    EXPECT_FALSE(with(R"("extra":3)", R"("extra":"3")"));
}

TEST(JSONCodingTest, membersOfTheWrongTypeFailTheObject) {
    for (const char* wrong : {"null", "true", "1", "[]", "{}"}) {
        EXPECT_FALSE(with(R"("text":"t")", R"("text":)" + std::string{wrong})) << wrong;
        EXPECT_FALSE(with(R"("mood":"calm")", R"("mood":)" + std::string{wrong})) << wrong;
    }
    for (const char* wrong : {"null", "true", R"("1")", "[1]", "{}"}) {
        EXPECT_FALSE(with(R"("count":1)", R"("count":)" + std::string{wrong})) << wrong;
        EXPECT_FALSE(with(R"("length":2.5)", R"("length":)" + std::string{wrong})) << wrong;
    }
    for (const char* wrong : {"null", "1", "0", R"("true")", "[]"}) {
        EXPECT_FALSE(with(R"("flag":true)", R"("flag":)" + std::string{wrong})) << wrong;
    }
    EXPECT_FALSE(with(R"("mood":"calm")", R"("mood":"Calm")"));
}

TEST(JSONCodingTest, aDefaultedMemberKeepsItsDefaultAndATolerantOneWhateverComes) {
    EXPECT_TRUE(with(R"("usual":false,)", "")->usual);
    EXPECT_TRUE(with(R"("usual":false)", R"("usual":null)")->usual);
    EXPECT_FALSE(with(R"("usual":false)", R"("usual":0)"));
    for (const char* odd : {"null", "7", R"("frantic")", "[[]]", R"({"a":1})"}) {
        EXPECT_EQ(with(R"("tolerated":"calm")", R"("tolerated":)" + std::string{odd})->tolerated, Mood::busy) << odd;
    }
}

TEST(JSONCodingTest, integersKeepAllTheirBits) {
    for (const auto value : {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max(),
                             std::int64_t{9'007'199'254'740'993}, std::int64_t{-1}, std::int64_t{0}}) {
        EXPECT_EQ(decodeJSON<std::int64_t>(written(value)), value);
        EXPECT_EQ(written(value), std::to_string(value));
    }
}

TEST(JSONCodingTest, wholeNumbersAreIntegersHoweverTheyAreWritten) {
    for (const char* text : {"25", "25.0", "2.5e1", "250E-1", "0.25e+2", "2500000000000000000000e-20"}) {
        EXPECT_EQ(decodeJSON<std::int64_t>(text), 25) << text;
    }
    EXPECT_EQ(decodeJSON<std::int64_t>("1e18"), 1'000'000'000'000'000'000);
    EXPECT_EQ(decodeJSON<std::int64_t>("-9.223372036854775808e18"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(decodeJSON<std::int64_t>("9007199254740993.0"), 9'007'199'254'740'993);
    EXPECT_EQ(decodeJSON<std::int64_t>("-0.0e5"), 0);
    for (const char* text : {"25.5", "1e-1", "9223372036854775808", "-9223372036854775809", "1e19",
                             "9223372036854775807.5", "1e99999999999999999999", "1e400", "0x19", "+1", "01"}) {
        EXPECT_FALSE(decodeJSON<std::int64_t>(text)) << text;
    }
}

TEST(JSONCodingTest, wholeDoublesAreWrittenWithoutAFraction) {
    EXPECT_EQ(written(1'500.0), "1500");
    EXPECT_EQ(written(0.0), "0");
    EXPECT_EQ(written(-0.0), "-0");
    EXPECT_EQ(written(-3.0), "-3");
    EXPECT_EQ(written(9'007'199'254'740'992.0), "9007199254740992");
    EXPECT_EQ(written(1e22), "10000000000000000000000");
    EXPECT_EQ(written(1.5), "1.5");
    EXPECT_EQ(written(800'000'000.123456), "800000000.123456");
    EXPECT_TRUE(std::signbit(*decodeJSON<double>("-0")));
    EXPECT_EQ(written(std::numeric_limits<double>::max()).size(), 309U);
}

TEST(JSONCodingTest, anyNumberIsADoubleUnlessItIsTooLarge) {
    EXPECT_EQ(decodeJSON<double>("1"), 1.0);
    EXPECT_EQ(decodeJSON<double>("18446744073709551616"), 18'446'744'073'709'551'616.0);
    EXPECT_EQ(decodeJSON<double>("1e-999"), 0.0);
    EXPECT_EQ(decodeJSON<double>("1e-99999999999999999999"), 0.0);
    EXPECT_TRUE(std::signbit(*decodeJSON<double>("-1.5e-99999999999999999999")));
    EXPECT_EQ(decodeJSON<double>("0.0e99999999999999999999"), 0.0);
    EXPECT_FALSE(decodeJSON<double>("1e99999999999999999999"));
    EXPECT_EQ(decodeJSON<double>("1e-00000000000000000000001"), 0.1);
    EXPECT_FALSE(decodeJSON<double>("1e999"));
    EXPECT_FALSE(decodeJSON<double>("-1e999"));
    EXPECT_FALSE(decodeJSON<double>("NaN"));
    EXPECT_FALSE(decodeJSON<double>("Infinity"));
}

TEST(JSONCodingTest, aNumberThatJSONCannotHoldHasNoText) {
    EXPECT_FALSE(encodeJSON(std::numeric_limits<double>::infinity()));
    EXPECT_FALSE(encodeJSON(std::vector{1.0, std::numeric_limits<double>::quiet_NaN()}));
}

TEST(JSONCodingTest, aTextThatIsNotUTF8HasNoText) {
    for (const char* text : {"\xFF", "\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80"}) {
        EXPECT_FALSE(encodeJSON(std::string{text}));
        EXPECT_FALSE(decodeJSON<std::string>("\"" + std::string{text} + "\""));
    }
}

TEST(JSONCodingTest, slashesAndControlCharactersAreEscapedAndNothingElse) {
    EXPECT_EQ(written(std::string{"a/b\\c\"d"}), R"("a\/b\\c\"d")");
    EXPECT_EQ(written(std::string{"\b\f\n\r\t"}), R"("\b\f\n\r\t")");
    EXPECT_EQ(written(std::string("\0\x01\x1F\x7F", 4)), "\"\\u0000\\u0001\\u001f\x7F\"");
    EXPECT_EQ(written(std::string{"می‌آید \u2028 😀"}), "\"می‌آید \u2028 😀\"");
    EXPECT_EQ(written(std::string{"</script>"}), R"("<\/script>")");
}

TEST(JSONCodingTest, everyTextReadsBack) {
    std::string all;
    for (char character = 0; character != 0x7F; ++character)
        all += character;
    all += "می‌آید 😀 \u2028";
    EXPECT_EQ(decodeJSON<std::string>(written(all)), all);
    EXPECT_EQ(decodeJSON<std::string>(R"("\ud83d\ude00\u06cc\/")"), "😀ی/");
}

TEST(JSONCodingTest, loneSurrogatesFail) {
    for (const char* text : {R"("\ud800")", R"("\udc00")", R"("\ud800\u0041")", R"("\ud800\ud800")", R"("\ud83d")"}) {
        EXPECT_FALSE(decodeJSON<std::string>(text)) << text;
    }
}

TEST(JSONCodingTest, aTextWithAColonBehindItIsNoKey) {
    for (const char* text : {R"({"text":"t":1},"count":1})", R"({"text":"t":}})", R"({"text":"t": "count":1})"}) {
        EXPECT_FALSE(JSONInput::read(text, [](JSONInput& input) { return input.skip(); })) << text;
    }
    for (const char* colon : {R"("t":1})", R"("t":})", R"("t":)", R"("t":"u")", R"("t\u0074":1})"}) {
        EXPECT_FALSE(with(R"("t")", colon)) << colon;
        EXPECT_FALSE(with(R"("calm")", R"("calm":1})")) << colon;
        EXPECT_FALSE(with(R"("count":1)", R"("count":1:)")) << colon;
        EXPECT_FALSE(with(R"("flag":true)", R"("flag":true:1})")) << colon;
    }
    EXPECT_FALSE(decodeJSON<std::vector<std::string>>(R"(["a":1]])"));
    EXPECT_FALSE(decodeJSON<std::vector<std::string>>(R"(["a":"b"])"));
    EXPECT_FALSE(decodeJSON<std::string>(R"("a":1])"));
}

TEST(JSONCodingTest, aListAndAMapTakeThePlaceOfWhatWasThere) {
    std::vector<std::int64_t> list{1, 2};
    std::map<std::string, std::int64_t> map{{"a", 1}};
    EXPECT_TRUE(JSONInput::read("[3]", [&](JSONInput& input) { return decode(input, list); }));
    EXPECT_TRUE(JSONInput::read(R"({"a":2})", [&](JSONInput& input) { return decode(input, map); }));
    EXPECT_EQ(list, std::vector<std::int64_t>{3});
    EXPECT_EQ(map, (std::map<std::string, std::int64_t>{{"a", 2}}));
}

TEST(JSONCodingTest, onlyWhiteSpaceMayStandAroundAValue) {
    EXPECT_TRUE(decodeJSON<std::vector<double>>(" [ ] \n"));
    EXPECT_EQ(decodeJSON<double>(" 7 "), 7.0);
    for (const char* text : {"", " ", "7 7", "7,7", "7]", "[7", "7],[7", "[7]]", "[7] x", "{}{}", "null x",
                             "\xEF\xBB\xBF"
                             "7"}) {
        EXPECT_FALSE(decodeJSON<double>(text)) << text;
        EXPECT_FALSE(decodeJSON<std::vector<double>>(text)) << text;
    }
    EXPECT_FALSE(decodeJSON<double>(std::string("7\0", 2)));
}

TEST(JSONCodingTest, listsMapsDatesAndIdentifiersReadBack) {
    using Map = std::map<std::string, std::vector<std::int64_t>>;
    const Map map{{"urge", {3, 1, 2}}, {"rest", {}}};
    EXPECT_EQ(written(map), R"({"rest":[],"urge":[3,1,2]})");
    EXPECT_EQ(decodeJSON<Map>(written(map)), map);
    EXPECT_FALSE(decodeJSON<Map>(R"({"urge":[1],"urge":[2]})"));
    EXPECT_FALSE(decodeJSON<Map>(R"({"urge":[1.5]})"));
    EXPECT_EQ(written(Date{1.5}), "1.5");
    EXPECT_EQ(decodeJSON<Date>("-1"), Date{-1});
    const auto uuid = UUID::random();
    EXPECT_EQ(decodeJSON<UUID>(written(uuid)), uuid);
    EXPECT_FALSE(decodeJSON<UUID>("\"\""));
}

TEST(JSONCodingTest, nestingIsLimited) {
    const auto nested = [](std::size_t depth) {
        return R"({"a":)" + std::string(depth, '[') + std::string(depth, ']') + "}";
    };
    const auto isAccepted = [](std::string text) {
        return JSONInput::read(std::move(text), [](JSONInput& input) { return input.skip(); });
    };
    EXPECT_TRUE(isAccepted(nested(JSONInput::maximumDepth - 1)));
    EXPECT_FALSE(isAccepted(nested(JSONInput::maximumDepth)));
    EXPECT_FALSE(isAccepted(nested(100'000)));
    EXPECT_FALSE(isAccepted(std::string(100'000, '[')));
    const auto nestedObjects = [](std::size_t depth) {
        std::string text;
        for (std::size_t level = 0; level < depth; ++level)
            text += R"({"a":)";
        return text + "1" + std::string(depth, '}');
    };
    EXPECT_TRUE(isAccepted(nestedObjects(JSONInput::maximumDepth)));
    EXPECT_FALSE(isAccepted(nestedObjects(JSONInput::maximumDepth + 1)));
}

TEST(JSONCodingTest, theTextOfAValueIsGivenAsItStands) {
    std::map<std::string, std::string> members;
    const bool isRead = JSONInput::read(R"({"a": [1, {"b":2} ] , "c":"x\n" ,"d":-1.50e3 , "e":null , "f": { } })",
                                        [&](JSONInput& input) {
                                            return input.forEachMember([&](std::string_view key, JSONInput& value) {
                                                return value.readRaw(members[std::string{key}]);
                                            });
                                        });
    EXPECT_TRUE(isRead);
    EXPECT_EQ(members,
              (std::map<std::string, std::string>{
                  {"a", R"([1, {"b":2} ])"}, {"c", R"("x\n")"}, {"d", "-1.50e3"}, {"e", "null"}, {"f", "{ }"}}));
}

} // namespace
} // namespace velmorin
