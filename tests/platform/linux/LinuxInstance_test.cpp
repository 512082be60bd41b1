#include "app/composition/LinuxInstance.h"

#include "tests/support/LoopRunner.h"
#include "tests/support/TemporaryDirectory.h"

#include <gtest/gtest.h>
#include <memory>

namespace velmorin {
namespace {

class LinuxInstanceTest : public testing::Test {
protected:
    std::unique_ptr<LinuxInstance> start(const std::string& store) {
        LinuxPlaces places;
        places.configuration = m_directory.path() / "configuration";
        return std::make_unique<LinuxInstance>(m_runner.loop(), places, m_directory.path() / store);
    }
    /// What another process holds alone, for a user or for a store.
    std::unique_ptr<SingleInstance> hold(const std::string& name) {
        return std::make_unique<SingleInstance>(m_runner.loop(), m_directory.path() / name);
    }

private:
    TemporaryDirectory m_directory;
    LoopRunner m_runner;
};

TEST_F(LinuxInstanceTest, thereIsOneOnAStoreAndOneForAUser) {
    auto first = start("one");
    EXPECT_TRUE(first->isOnly());
    EXPECT_FALSE(start("one")->isOnly());
    EXPECT_FALSE(start("two")->isOnly());
    first.reset();
    EXPECT_TRUE(start("two")->isOnly());
}

TEST_F(LinuxInstanceTest, aSecondOnAStoreIsNotInTheWayOfTheFirst) {
    // The first has come as far as its store, and the second comes before it goes on.
    const auto ofStore = hold("store");
    ASSERT_TRUE(ofStore->isFirst());
    const auto second = start("store");
    EXPECT_FALSE(second->isOnly());
    EXPECT_TRUE(hold("configuration/Velmorin")->isFirst());
}

TEST_F(LinuxInstanceTest, whetherTheOtherHasHeardIsTold) {
    const auto ofStore = hold("store");
    EXPECT_FALSE(start("store")->askOtherToShow()) << "its loop does not run";
}

} // namespace
} // namespace velmorin
