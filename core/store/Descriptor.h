#pragma once

#include <cerrno>
#include <unistd.h>
#include <utility>

namespace velmorin {

/// Calls a system function again for as long as a signal interrupts it.
template <class Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

/// An open file or one end of a pipe of a POSIX system, closed when it goes. Any thread.
class Descriptor {
public:
    /// None.
    Descriptor() = default;
    /// Owns the descriptor with this number from now on; -1 is none.
    explicit Descriptor(int number) : m_number{number} {}
    Descriptor(Descriptor&& other) noexcept : m_number{std::exchange(other.m_number, -1)} {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) {
            close();
            m_number = std::exchange(other.m_number, -1);
        }
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }

    bool isOpen() const { return m_number != -1; }
    /// -1 when it is not open.
    int number() const { return m_number; }
    /// False also when none is open. Not repeated after a signal: by then the number may belong to another file.
    bool close() { return isOpen() && ::close(std::exchange(m_number, -1)) == 0; }

private:
    int m_number = -1;
};

} // namespace velmorin
