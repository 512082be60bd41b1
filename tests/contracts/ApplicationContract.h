#pragma once

#include "app/seams/Application.h"
#include "tests/contracts/Bench.h"

namespace velmorin {

class ApplicationBench : public Bench {
public:
    virtual Application& application() = 0;

    /// How the program answers to requests to quit.
    virtual void agreeToQuit(bool agrees) = 0;
    /// How often it was asked.
    virtual int quitRequests() = 0;
    /// Whether it has ended, or would have where it is the one that runs the tests.
    virtual bool hasEnded() = 0;
    /// Has the system announce its end.
    virtual void announcePowerOff() = 0;
    /// Another application, behind this program, which is in front.
    virtual RunningApplication& other() = 0;
    virtual bool isOtherInFront() = 0;
};

/// What this program's own process promises.
class ApplicationContract : public Contract<ApplicationBench> {
protected:
    Application& application() { return bench().application(); }
};

} // namespace velmorin
