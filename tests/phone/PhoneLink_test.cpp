#include "app/phone/PhoneLink.h"

#include "core/store/PosixFiles.h"
#include "tests/phone/PhoneLinkTest.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/TemporaryDirectory.h"

#include <filesystem>
#include <fstream>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class PhonePairingStateTest : public PhoneLinkTest {
protected:
    static std::string saved(std::string_view rest) {
        return R"({"pairing":{"id":"AAECAwQFBgcICQoLDA0ODw==","key":"AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA="})" +
               std::string{rest} + "}";
    }
};

TEST_F(PhonePairingStateTest, withNothingSavedThereIsNoPairing) {
    EXPECT_EQ(pairingState(), PairingState::notPaired);
    EXPECT_EQ(lockState(), LockState::idle);
    EXPECT_FALSE(link().pairingURI());
    EXPECT_FALSE(link().pairing());
    EXPECT_FALSE(link().problemText());
    EXPECT_THAT(files.contents, IsEmpty());
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(PhonePairingStateTest, aConfirmedPairingIsPairedAtLaunch) {
    writeFile(saved(R"(,"isConfirmed":true)"));
    EXPECT_EQ(pairingState(), PairingState::paired);
    EXPECT_EQ(link().pairingURI(), "velmorin://pair?v=1&id=AAECAwQFBgcICQoLDA0ODw"
                                   "&k=AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA");
}

TEST_F(PhonePairingStateTest, anUnconfirmedPairingWaitsForThePhoneAtLaunch) {
    writeFile(saved(R"(,"isConfirmed":false)"));
    EXPECT_EQ(pairingState(), PairingState::waitingForPhone);
}

TEST_F(PhonePairingStateTest, aDamagedFileCountsAsNoPairingAndIsLeftUntouched) {
    for (const std::string& text :
         {std::string{}, std::string{"{"}, std::string{"null"}, saved(""), saved(R"(,"isConfirmed":1)"),
          saved(R"(,"isConfirmed":true,"lastMessageID":5)"), std::string{R"({"isConfirmed":true})"},
          std::string{R"({"pairing":{"id":"AAECAwQFBgcICQoLDA0ODw=="},"isConfirmed":true})"}}) {
        writeFile(text);
        forgetLink();
        EXPECT_EQ(pairingState(), PairingState::notPaired) << text;
        EXPECT_FALSE(link().pairing()) << text;
        EXPECT_EQ(file(), text);
    }
    link().beginPairing();
    forgetLink();
    EXPECT_EQ(pairingState(), PairingState::waitingForPhone) << "a new pairing takes its place";
}

TEST_F(PhonePairingStateTest, aLaunchListensToNobody) {
    writeFile(saved(R"(,"isConfirmed":true)"));
    (void)link();
    advance(60);
    EXPECT_THAT(relay.streams, IsEmpty());
}

TEST_F(PhonePairingStateTest, beginningAPairingMakesASecretAndWaitsForThePhone) {
    std::vector<std::string> seen;
    const auto watch = link().pairingState().watch([&] {
        seen.emplace_back(file() ? "saved before it is told" : "not saved");
        seen.emplace_back(log.empty() ? "told before it is logged" : "logged already");
    });
    link().beginPairing();
    EXPECT_EQ(pairingState(), PairingState::waitingForPhone);
    EXPECT_THAT(seen, ElementsAre("saved before it is told", "told before it is logged"));
    EXPECT_THAT(log, ElementsAre("phone pairing started"));
    ASSERT_TRUE(link().pairing());
    EXPECT_EQ(link().pairing()->id.size(), 16U);
    EXPECT_EQ(link().pairing()->key.size(), 32U);
    EXPECT_EQ(link().pairingURI(), link().pairing()->uri());
    settle();
    EXPECT_THAT(relay.posts, IsEmpty());
}

TEST_F(PhonePairingStateTest, theFileHoldsThePairingAndWhetherThePhoneHasSpoken) {
    link().beginPairing();
    settle();
    const std::string pairing = R"({"pairing":)" + *encodeJSON(*link().pairing());
    EXPECT_EQ(file(), pairing + R"(,"isConfirmed":false})");
    say(hello);
    EXPECT_EQ(file(), pairing + R"(,"isConfirmed":true,"lastMessageID":"m1"})");
}

TEST_F(PhonePairingStateTest, aNewPairingOverwritesTheOldOne) {
    pair();
    const auto old = link().pairing();
    const auto oldStream = relay.streams.back();
    link().beginPairing();
    settle();
    EXPECT_NE(link().pairing()->id, old->id);
    EXPECT_NE(link().pairing()->key, old->key);
    EXPECT_EQ(pairingState(), PairingState::waitingForPhone);
    EXPECT_EQ(file(), R"({"pairing":)" + *encodeJSON(*link().pairing()) + R"(,"isConfirmed":false})");
    EXPECT_EQ(relay.openCount(), 1U);
    EXPECT_NE(relay.streams.back(), oldStream);
}

TEST_F(PhonePairingStateTest, aPairingMayBeBegunAnewWhileThePhoneIsWaitedFor) {
    link().beginPairing();
    const auto first = link().pairingURI();
    link().beginPairing();
    settle();
    EXPECT_NE(link().pairingURI(), first);
    EXPECT_EQ(pairingState(), PairingState::waitingForPhone);
    EXPECT_THAT(relay.streams, SizeIs(1)) << "the first one was never opened";
    say(hello);
    EXPECT_EQ(pairingState(), PairingState::paired);
}

TEST_F(PhonePairingStateTest, aHelloPairs) {
    link().beginPairing();
    settle();
    std::vector<std::string> seen;
    link().onPaired = [&] { seen.push_back(log.back()); };
    say(hello);
    EXPECT_EQ(pairingState(), PairingState::paired);
    EXPECT_THAT(log, ElementsAre("phone pairing started", "phone paired"));
    EXPECT_THAT(seen, ElementsAre("phone paired")) << "logged before it is told";
    forgetLink();
    EXPECT_EQ(pairingState(), PairingState::paired) << "the next launch knows it";
}

TEST_F(PhonePairingStateTest, anotherHelloIsTakenLikeTheFirstAndChangesNoState) {
    pair();
    int calls = 0;
    int changes = 0;
    link().onPaired = [&calls] { ++calls; };
    const auto watch = link().pairingState().watch([&changes] { ++changes; });
    say(hello);
    say(hello);
    EXPECT_EQ(pairingState(), PairingState::paired);
    EXPECT_THAT(log, ElementsAre("phone paired", "phone paired"));
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(changes, 0);
}

TEST_F(PhonePairingStateTest, aPhoneThatNeverAnswersLeavesThePairingWaiting) {
    link().beginPairing();
    advance(30.0 * 86'400);
    EXPECT_EQ(pairingState(), PairingState::waitingForPhone);
    link().disconnect();
    EXPECT_EQ(pairingState(), PairingState::notPaired) << "which the user can give up";
    EXPECT_FALSE(file());
}

TEST_F(PhonePairingStateTest, disconnectingForgetsEverythingAndTellsThePhoneNothing) {
    pair();
    link().disconnect();
    settle();
    EXPECT_EQ(pairingState(), PairingState::notPaired);
    EXPECT_EQ(lockState(), LockState::idle);
    EXPECT_FALSE(link().pairingURI());
    EXPECT_THAT(files.contents, IsEmpty());
    EXPECT_EQ(relay.openCount(), 0U);
    EXPECT_THAT(relay.posts, IsEmpty());
    EXPECT_THAT(log, ElementsAre("phone unpaired"));
    forgetLink();
    EXPECT_EQ(pairingState(), PairingState::notPaired);
}

TEST_F(PhonePairingStateTest, disconnectingWithoutAPairingDoesNoHarm) {
    link().disconnect();
    EXPECT_EQ(pairingState(), PairingState::notPaired);
    EXPECT_THAT(log, ElementsAre("phone unpaired"));
}

TEST_F(PhonePairingStateTest, aFullDiskStillLeavesAPairingForThisRun) {
    FaultyFiles full{files};
    full.inject(FaultyFiles::Fault::failsOn, 0);
    const JSONStore fullStore{"/data", full};
    PhoneLink unsaved{fullStore, [](std::string_view) {}, {time, time, random, relay, appearance}};
    unsaved.beginPairing();
    settle();
    EXPECT_EQ(*unsaved.pairingState(), PairingState::waitingForPhone);
    EXPECT_EQ(relay.openCount(), 1U);
    EXPECT_FALSE(file());
}

/// The file that holds the secret, on a real disk.
class PhoneLinkPermissionTest : public PhoneLinkTest {
protected:
    std::filesystem::perms permissions(const std::filesystem::path& path) const {
        return std::filesystem::status(path).permissions();
    }
    /// Makes a file that everybody may read.
    static void makePublic(const std::filesystem::path& path) {
        std::ofstream{path} << "old";
        std::filesystem::permissions(path, std::filesystem::perms{0644});
    }

    static constexpr std::filesystem::perms ownerOnly{0600};
    TemporaryDirectory directory;
    PosixFiles disk;
    JSONStore realStore{directory.path(), disk};
    std::filesystem::path linkFile = directory.path() / PhoneLink::fileName;
    PhoneLink real{realStore, [](std::string_view) {}, {time, time, random, relay, appearance}};
};

TEST_F(PhoneLinkPermissionTest, onlyTheOwnerMayReadTheFileAfterEverySave) {
    real.beginPairing();
    settle();
    EXPECT_EQ(permissions(linkFile), ownerOnly);
    relay.sendLine(R"({"id":"m1","event":"message","message":"nothing sealed"})");
    EXPECT_THAT(disk.read(linkFile).value_or(""), ::testing::HasSubstr(R"("lastMessageID":"m1")"));
    EXPECT_EQ(permissions(linkFile), ownerOnly);
}

TEST_F(PhoneLinkPermissionTest, aFileThatEverybodyCouldReadIsClosedByTheNextSave) {
    makePublic(linkFile);
    real.beginPairing();
    EXPECT_EQ(permissions(linkFile), ownerOnly);
}

TEST_F(PhoneLinkPermissionTest, aLeftOverTemporaryFileThatEverybodyCouldReadIsNotTakenAsItIs) {
    makePublic(linkFile.string() + ".tmp");
    real.beginPairing();
    EXPECT_EQ(permissions(linkFile), ownerOnly);
}

} // namespace
} // namespace velmorin
