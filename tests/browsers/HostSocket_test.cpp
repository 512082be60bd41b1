#include "app/platform/linux/browsers/HostSocket.h"

#include "tests/support/TemporaryDirectory.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmorin {
namespace {

TEST(HostSocketNameTest, itReadsBackAsItself) {
    const HostSocketName name{"com.google.Chrome", 4711, 4712};
    EXPECT_EQ(name.text(), "com.google.Chrome.4711.4712");
    EXPECT_EQ(HostSocketName::parse(name.text()), name);
}

TEST(HostSocketNameTest, anyOtherNameIsNone) {
    for (const auto* const text : {"", ".", "..", "a", "a.1", ".1.2", "a.1.", "a..2", "a.0.1", "a.1.0", "a.-1.2",
                                   ".a.1.2", "a.1.2.new", "a.99999999999.2"})
        EXPECT_FALSE(HostSocketName::parse(text)) << text;
}

class HostSocketTest : public testing::Test {
protected:
    HostSocketTest() { ::chmod(m_directory.path().c_str(), 0700); }

    /// A socket with this process as its host.
    static HostSocketName name(pid_t host = ::getpid()) { return {"com.google.Chrome", 1, host}; }
    bool exists(const HostSocketName& socket) const { return std::filesystem::exists(m_folder.pathTo(socket.text())); }
    /// Leaves a socket behind as a killed process does, under this name.
    void leave(const HostSocketName& left) const {
        const pid_t child = ::fork();
        if (child == 0) {
            const auto socket = HostSocket::listen(m_folder, left);
            ::_exit(socket ? 0 : 1);
        }
        int status = 1;
        ::waitpid(child, &status, 0);
        ASSERT_EQ(status, 0);
        ASSERT_TRUE(exists(left));
    }

    TemporaryDirectory m_directory;
    RuntimeFolder m_folder = RuntimeFolder::open(m_directory.path().string());
};

TEST_F(HostSocketTest, itIsFoundAndReachedWhileItIsThere) {
    {
        const auto socket = HostSocket::listen(m_folder, name());
        ASSERT_TRUE(socket);
        EXPECT_EQ(hostSockets(m_folder), std::vector{name()});
        EXPECT_EQ(connectToHost(m_folder, name()).state, HostConnection::State::open);
    }
    EXPECT_TRUE(hostSockets(m_folder).empty());
    EXPECT_EQ(connectToHost(m_folder, name()).state, HostConnection::State::gone);
}

TEST_F(HostSocketTest, aHostThatTakesNoMoreIsBusy) {
    const auto socket = HostSocket::listen(m_folder, name());
    std::vector<HostConnection> connections;
    for (int count = 0; count < 1000; ++count) {
        connections.push_back(connectToHost(m_folder, name()));
        if (connections.back().state != HostConnection::State::open) break;
    }
    EXPECT_EQ(connections.back().state, HostConnection::State::busy);
}

TEST_F(HostSocketTest, whatAKilledHostLeftIsGoneAndRemovedByTheNext) {
    leave(name());
    EXPECT_EQ(connectToHost(m_folder, name()).state, HostConnection::State::gone) << "nobody listens any more";
    const auto next = HostSocket::listen(m_folder, {"org.mozilla.firefox", 1, ::getpid()});
    EXPECT_TRUE(next);
    EXPECT_FALSE(exists(name()));
}

TEST_F(HostSocketTest, whatBelongsToADeadProcessIsRemoved) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(0);
    ::waitpid(child, nullptr, 0);
    leave(name(child));
    const auto next = HostSocket::listen(m_folder, name());
    EXPECT_FALSE(exists(name(child)));
    EXPECT_TRUE(exists(name()));
}

TEST_F(HostSocketTest, theSocketsOfOthersStay) {
    const auto first = HostSocket::listen(m_folder, name());
    const HostSocketName another{"org.mozilla.firefox", 1, ::getpid()};
    const auto second = HostSocket::listen(m_folder, another);
    EXPECT_TRUE(exists(name()));
    EXPECT_TRUE(exists(another));
}

TEST_F(HostSocketTest, aSocketOfAnotherProcessIsNotTakenForTheHost) {
    // It listens, but its name speaks of another process.
    const auto socket = HostSocket::listen(m_folder, name(::getppid()));
    ASSERT_TRUE(socket);
    EXPECT_EQ(connectToHost(m_folder, name(::getppid())).state, HostConnection::State::gone);
}

TEST_F(HostSocketTest, aLongRuntimeDirectoryIsNoHindrance) {
    const auto deep = m_directory.path() / std::string(150, 'x');
    std::filesystem::create_directory(deep);
    ::chmod(deep.c_str(), 0700);
    const auto folder = RuntimeFolder::open(deep.string());
    const auto socket = HostSocket::listen(folder, name());
    EXPECT_TRUE(socket);
    EXPECT_EQ(connectToHost(folder, name()).state, HostConnection::State::open);
}

} // namespace
} // namespace velmorin
