#include "app/seams/Cancellable.h"

#include <gmock/gmock.h>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace velmorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CancellableTest : public ::testing::Test {
protected:
    /// Work whose calling off is noted under a name.
    Cancellable work(const char* name) {
        return Cancellable{[this, name] { cancelled.push_back(name); }};
    }

    std::vector<std::string> cancelled;
};

static_assert(!std::is_copy_constructible_v<Cancellable> && !std::is_copy_assignable_v<Cancellable>);
static_assert(std::is_nothrow_move_constructible_v<Cancellable> && std::is_nothrow_move_assignable_v<Cancellable>);

TEST_F(CancellableTest, workIsCalledOffWhenItsHandleGoes) {
    {
        const auto handle = work("timer");
        EXPECT_TRUE(handle);
        EXPECT_THAT(cancelled, IsEmpty());
    }
    EXPECT_THAT(cancelled, ElementsAre("timer"));
}

TEST_F(CancellableTest, workIsCalledOffAtMostOnce) {
    {
        auto handle = work("timer");
        handle.cancel();
        EXPECT_THAT(cancelled, ElementsAre("timer"));
        EXPECT_FALSE(handle);
        handle.cancel();
    }
    EXPECT_THAT(cancelled, ElementsAre("timer"));
}

TEST_F(CancellableTest, aHandleOfNothingHasNothingToCallOff) {
    Cancellable handle;
    EXPECT_FALSE(handle);
    handle.cancel();
    handle.detach();
    EXPECT_FALSE(handle);
}

TEST_F(CancellableTest, detachedWorkGoesOn) {
    {
        auto handle = work("request");
        handle.detach();
        EXPECT_FALSE(handle);
        handle.cancel();
    }
    EXPECT_THAT(cancelled, IsEmpty());
}

TEST_F(CancellableTest, movingHandsTheWorkOver) {
    auto first = work("timer");
    {
        Cancellable second{std::move(first)};
        EXPECT_FALSE(first); // NOLINT(bugprone-use-after-move): that it is empty is the point
        EXPECT_TRUE(second);
        first.cancel();
        EXPECT_THAT(cancelled, IsEmpty());
    }
    EXPECT_THAT(cancelled, ElementsAre("timer"));
}

TEST_F(CancellableTest, anAssignmentCallsOffWhatWasHeldBefore) {
    auto handle = work("old");
    handle = work("new");
    EXPECT_THAT(cancelled, ElementsAre("old"));
    EXPECT_TRUE(handle);
    handle = Cancellable{};
    EXPECT_THAT(cancelled, ElementsAre("old", "new"));
}

TEST_F(CancellableTest, anAssignmentToItselfCallsNothingOff) {
    auto handle = work("timer");
    auto& same = handle;
    handle = std::move(same);
    EXPECT_TRUE(handle);
    EXPECT_THAT(cancelled, IsEmpty());
}

TEST_F(CancellableTest, callingOffMayReachTheHandleAgain) {
    Cancellable handle;
    handle = Cancellable{[this, &handle] {
        cancelled.emplace_back(handle ? "still held" : "let go");
        handle.cancel();
    }};
    handle.cancel();
    EXPECT_THAT(cancelled, ElementsAre("let go"));
}

TEST_F(CancellableTest, callingOffMayDestroyTheHandle) {
    auto handle = std::make_unique<Cancellable>();
    *handle = Cancellable{[this, &handle] {
        handle.reset();
        cancelled.emplace_back("timer");
    }};
    handle->cancel();
    EXPECT_EQ(handle, nullptr);
    EXPECT_THAT(cancelled, ElementsAre("timer"));
}

TEST_F(CancellableTest, theWorkIsForgottenOnceItIsCalledOff) {
    const auto held = std::make_shared<int>(1);
    Cancellable handle{[held] {}};
    EXPECT_EQ(held.use_count(), 2);
    handle.cancel();
    EXPECT_EQ(held.use_count(), 1);
}

} // namespace
} // namespace velmorin
