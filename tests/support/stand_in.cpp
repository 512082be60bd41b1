// Stands in for the program that a watchdog guards: opens an application and does nothing more, until it is ended, at
// the latest by itself.

#include <csignal>
#include <unistd.h>

int main() {
    constexpr unsigned longestLife = 300; // seconds
    if (::fork() == 0) {
        // The application: not of the program's name, and found by its parent's in its arguments' place.
        ::execl("/bin/sleep", "sleep", "300", nullptr);
        ::_exit(1);
    }
    std::signal(SIGCHLD, SIG_IGN);
    ::alarm(longestLife);
    for (;;)
        ::pause();
}
