#include "app/seams/Lifetime.h"

#include <functional>
#include <gmock/gmock.h>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace velmorin {
namespace {

using ::testing::ElementsAre;

/// Something that is called later.
class Owner {
public:
    explicit Owner(std::vector<std::string>& heard) : m_heard{heard} {}

    std::function<void(const std::string&)> listener() const {
        return m_lifetime.guard([this](const std::string& word) { m_heard.push_back(word); });
    }

private:
    std::vector<std::string>& m_heard;
    Lifetime m_lifetime;
};

TEST(LifetimeTest, aCallIsMadeWhileItsOwnerLives) {
    std::vector<std::string> heard;
    const Owner owner{heard};
    const auto call = owner.listener();
    call("one");
    call("two");
    EXPECT_THAT(heard, ElementsAre("one", "two"));
}

TEST(LifetimeTest, aCallDoesNothingOnceItsOwnerIsGone) {
    std::vector<std::string> heard;
    auto owner = std::make_unique<Owner>(heard);
    const auto first = owner->listener();
    const auto second = owner->listener();
    first("before");
    owner.reset();
    first("after");
    second("after");
    EXPECT_THAT(heard, ElementsAre("before"));
}

TEST(LifetimeTest, aCallThatWasCopiedIsStillGuarded) {
    std::vector<std::string> heard;
    auto owner = std::make_unique<Owner>(heard);
    const auto call = owner->listener();
    const auto copy = call; // NOLINT(performance-unnecessary-copy-initialization): the copy is what is looked at
    owner.reset();
    copy("after");
    EXPECT_TRUE(heard.empty());
}

TEST(LifetimeTest, oneOwnerGoingLeavesTheCallsOfAnother) {
    std::vector<std::string> heard;
    const Owner stays{heard};
    auto goes = std::make_unique<Owner>(heard);
    const auto call = stays.listener();
    goes.reset();
    call("still here");
    EXPECT_THAT(heard, ElementsAre("still here"));
}

TEST(LifetimeTest, aCallMayLetItsOwnerGo) {
    auto lifetime = std::make_unique<Lifetime>();
    int calls = 0;
    auto call = lifetime->guard([&] {
        lifetime.reset();
        ++calls;
    });
    call();
    call();
    EXPECT_EQ(calls, 1);
}

TEST(LifetimeTest, argumentsArePassedOnAsTheyCame) {
    const Lifetime lifetime;
    std::unique_ptr<int> taken;
    int counted = 0;
    auto call = lifetime.guard([&taken](std::unique_ptr<int> number, int& count) {
        taken = std::move(number);
        ++count;
    });
    call(std::make_unique<int>(7), counted);
    ASSERT_NE(taken, nullptr);
    EXPECT_EQ(*taken, 7);
    EXPECT_EQ(counted, 1);
}

TEST(LifetimeDeathTest, aCallOnAnotherThreadThanTheOwnersIsAMistakeThatShows) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    std::vector<std::string> heard;
    const Owner owner{heard};
    const auto call = owner.listener();
    EXPECT_DEBUG_DEATH((std::thread{[&call] { call("from elsewhere"); }}.join()), "thread");
}

} // namespace
} // namespace velmorin
