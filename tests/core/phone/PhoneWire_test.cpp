#include "core/phone/PhoneWire.h"

#include "core/foundation/JSONMembers.h"
#include "core/phone/PhonePairing.h"
#include "tests/support/TestData.h"

#include <gtest/gtest.h>
#include <random>

namespace velmorin {
namespace {

Bytes bytes(std::string_view text) {
    return {text.begin(), text.end()};
}

Bytes fromHex(std::string_view hex) {
    return bytes(bytesFromHex(hex));
}

const Bytes key(32, 7);
const Bytes otherKey(32, 8);

TEST(PhoneWireTest, nothingIsAnEmptyTextAndAnEmptyTextIsNothing) {
    EXPECT_EQ(PhoneWire::base64URL({}), "");
    EXPECT_EQ(PhoneWire::data(""), Bytes{});
}

TEST(PhoneWireTest, theSignsOfStandardBase64AreReplacedAndComeBack) {
    const Bytes odd{0xFB, 0xEF, 0xFF, 0xFF};
    EXPECT_EQ(base64(odd), "++///w==");
    EXPECT_EQ(PhoneWire::base64URL(odd), "--___w");
    EXPECT_EQ(PhoneWire::data("--___w"), odd);
}

TEST(PhoneWireTest, textsAreReadAsTheCollectedCasesSay) {
    int count = 0;
    for (const auto& line : testDataLines("base64url.jsonl")) {
        const auto members = JSONMembers::parse(line);
        ASSERT_TRUE(members) << line;
        const auto expected = members->get<std::string>("padding_optional");
        EXPECT_EQ(PhoneWire::data(members->get<std::string>("in").value()),
                  expected ? std::optional{fromHex(*expected)} : std::nullopt)
            << line;
        ++count;
    }
    EXPECT_EQ(count, 65);
}

TEST(PhoneWireTest, whatIsSealedOpensWithTheSameKeyAndDirectionOnly) {
    const auto sealed = PhoneWire::seal(bytes("hello"), key, PhoneWire::command).value();
    EXPECT_EQ(PhoneWire::open(sealed, key, PhoneWire::command), bytes("hello"));
    EXPECT_EQ(PhoneWire::open(sealed, key, PhoneWire::status), std::nullopt);
    EXPECT_EQ(PhoneWire::open(sealed, otherKey, PhoneWire::command), std::nullopt);
}

TEST(PhoneWireTest, anEmptyMessageIsABoxOf28Bytes) {
    const auto sealed = PhoneWire::seal({}, key, PhoneWire::status).value();
    EXPECT_EQ(PhoneWire::data(sealed)->size(), 28U);
    EXPECT_EQ(PhoneWire::open(sealed, key, PhoneWire::status), Bytes{});
}

TEST(PhoneWireTest, aNonceOf12BytesFixesTheTextAndAnyOtherDoesNot) {
    const auto with = [](std::size_t length) {
        return PhoneWire::seal(bytes("hello"), key, PhoneWire::command, Bytes(length, 1)).value();
    };
    EXPECT_EQ(with(12), with(12));
    EXPECT_NE(with(11), with(11));
    EXPECT_NE(with(13), with(13));
    EXPECT_EQ(PhoneWire::open(with(11), key, PhoneWire::command), bytes("hello"));
}

TEST(PhoneWireTest, aTextOf27BytesIsNoBox) {
    EXPECT_EQ(PhoneWire::open(PhoneWire::base64URL(Bytes(27)), key, PhoneWire::command), std::nullopt);
    EXPECT_EQ(PhoneWire::open("", key, PhoneWire::command), std::nullopt);
}

TEST(PhoneWireTest, paddingAtTheEndDoesNoHarm) {
    auto sealed = PhoneWire::seal(bytes("hello"), key, PhoneWire::command).value();
    ASSERT_EQ(sealed.size() % 4, 0U);
    sealed = PhoneWire::seal(bytes("hello!"), key, PhoneWire::command).value();
    ASSERT_EQ(sealed.size() % 4, 2U);
    EXPECT_EQ(PhoneWire::open(sealed + "==", key, PhoneWire::command), bytes("hello!"));
}

TEST(PhoneWireTest, aKeyOfALengthThatAESDoesNotKnowSealsAndOpensNothing) {
    const auto sealed = PhoneWire::seal(bytes("hello"), key, PhoneWire::command).value();
    for (const std::size_t length : {0U, 1U, 15U, 31U, 33U, 64U}) {
        EXPECT_EQ(PhoneWire::seal(bytes("hello"), Bytes(length, 7), PhoneWire::command), std::nullopt) << length;
        EXPECT_EQ(PhoneWire::open(sealed, Bytes(length, 7), PhoneWire::command), std::nullopt) << length;
    }
}

TEST(PhoneWireTest, everySizeUpToTenThousandBytesComesBack) {
    std::mt19937 random{11};
    Bytes message;
    for (std::size_t size = 0; size <= 10'000; ++size) {
        const auto sealed = PhoneWire::seal(message, key, PhoneWire::command);
        ASSERT_TRUE(sealed);
        ASSERT_EQ(PhoneWire::open(*sealed, key, PhoneWire::command), message) << size;
        message.push_back(static_cast<std::uint8_t>(random()));
    }
}

TEST(PhoneWireTest, everyChangeOfASingleBitIsRefused) {
    const auto box =
        PhoneWire::data(PhoneWire::seal(bytes("a message of some length"), key, PhoneWire::command).value());
    for (std::size_t bit = 0; bit < box->size() * 8; ++bit) {
        Bytes changed = *box;
        changed[bit / 8] ^= static_cast<std::uint8_t>(1U << (bit % 8));
        EXPECT_EQ(PhoneWire::open(PhoneWire::base64URL(changed), key, PhoneWire::command), std::nullopt) << bit;
    }
}

TEST(PhoneWireTest, sealingAndOpeningAgreeWithTheCollectedCases) {
    int count = 0;
    for (const auto& line : testDataLines("aesgcm_wycheproof.tsv")) {
        const auto parts = columns(line);
        if (parts[0] == "id") continue;
        ++count;
        const auto nonce = fromHex(parts[3]);
        const auto direction = bytesFromHex(parts[4]);
        const auto message = fromHex(parts[5]);
        const auto box = PhoneWire::base64URL(fromHex(parts[3] + parts[6] + parts[7]));
        const bool isValid = parts[1] == "valid";
        EXPECT_EQ(PhoneWire::open(box, fromHex(parts[2]), direction), isValid ? std::optional{message} : std::nullopt)
            << line;
        if (isValid) {
            EXPECT_EQ(PhoneWire::seal(message, fromHex(parts[2]), direction, nonce), box) << line;
        }
    }
    EXPECT_EQ(count, 66);
}

TEST(PhonePairingTest, theTextsAreMadeOfTheIdentifierAndTheKey) {
    const PhonePairing pairing{Bytes(16, 0xFB), Bytes(32, 0xFF)};
    EXPECT_EQ(pairing.commandTopic(), "vlmr--_v7-_v7-_v7-_v7-_v7-w-c");
    EXPECT_EQ(pairing.commandTopic().size(), 29U);
    EXPECT_EQ(pairing.statusTopic(), pairing.commandTopic().substr(0, 28) + "s");
    EXPECT_EQ(pairing.uri(),
              "velmorin://pair?v=1&id=-_v7-_v7-_v7-_v7-_v7-w&k=__________________________________________8");
    EXPECT_EQ(pairing.uri().size(), 91U);
}

TEST(PhonePairingTest, twoNewPairingsDiffer) {
    const auto first = PhonePairing::generate();
    const auto second = PhonePairing::generate();
    EXPECT_EQ(first.id.size(), 16U);
    EXPECT_EQ(first.key.size(), 32U);
    EXPECT_NE(first.id, second.id);
    EXPECT_NE(first.key, second.key);
}

TEST(PhonePairingTest, itsStoredFormIsBase64OfBothParts) {
    const PhonePairing pairing{Bytes{1, 2}, Bytes{255}};
    EXPECT_EQ(encodeJSON(pairing), R"({"id":"AQI=","key":"\/w=="})");
    EXPECT_EQ(decodeJSON<PhonePairing>(R"({"id":"AQI=","key":"\/w=="})"), pairing);
    for (const char* text : {R"({"id":"AQI="})", R"({"id":"AQI","key":"\/w=="})", R"({"id":"AQI=\n","key":"\/w=="})",
                             R"({"id":"A=I=","key":"\/w=="})", R"({"id":[1,2],"key":"\/w=="})"}) {
        EXPECT_FALSE(decodeJSON<PhonePairing>(text)) << text;
    }
}

TEST(PhonePairingTest, copiesAndMovesKeepTheSecret) {
    const auto pairing = PhonePairing::generate();
    PhonePairing copy;
    copy = pairing;
    EXPECT_EQ(copy, pairing);
    PhonePairing moved{std::move(copy)};
    EXPECT_EQ(moved, pairing);
    PhonePairing assigned = PhonePairing::generate();
    assigned = std::move(moved);
    EXPECT_EQ(assigned, pairing);
}

} // namespace
} // namespace velmorin
