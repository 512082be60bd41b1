#pragma once

#include "app/simulate/Scene.h"
#include "tests/walk/WalkRandom.h"
#include "tests/walk/WalkStep.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace velmorin {

/// Draws a scene and, one by one, steps that mean something in it: what is up on the screen and who runs is looked at,
/// so that a walk gets deeper than blind chance would.
class WalkGenerator {
public:
    explicit WalkGenerator(std::uint64_t seed) : m_random{seed} {}

    /// A scene without steps.
    Walk setup();
    /// The next step on a scene that is set.
    WalkStep step(Scene& scene);

private:
    struct Choice;

    WalkStep make(const Choice& choice, Scene& scene);
    template <std::size_t count>
    WalkStep choose(const Choice (&choices)[count], Scene& scene);

    // One kind of step each.
    WalkStep start(Scene& scene);
    WalkStep advance(Scene& scene);
    WalkStep untilWaitIsOver(Scene& scene);
    WalkStep sleep(Scene& scene);
    WalkStep setClock(Scene& scene);
    WalkStep launch(Scene& scene);
    WalkStep activate(Scene& scene);
    WalkStep unhide(Scene& scene);
    WalkStep quit(Scene& scene);
    WalkStep leaveFront(Scene& scene);
    WalkStep browser(Scene& scene);
    WalkStep returnToWork(Scene& scene);
    WalkStep beginExit(Scene& scene);
    WalkStep cancelExit(Scene& scene);
    WalkStep confirmExit(Scene& scene);
    WalkStep dismiss(Scene& scene);
    WalkStep addThought(Scene& scene);
    WalkStep setThoughts(Scene& scene);
    WalkStep settings(Scene& scene);
    WalkStep clearHistory(Scene& scene);
    WalkStep restoreHistory(Scene& scene);
    WalkStep crash(Scene& scene);
    WalkStep relaunch(Scene& scene);
    WalkStep powerOff(Scene& scene);
    WalkStep askToQuit(Scene& scene);
    WalkStep disk(Scene& scene);
    WalkStep pair(Scene& scene);
    WalkStep unpair(Scene& scene);
    WalkStep relay(Scene& scene);
    WalkStep phone(Scene& scene);
    WalkStep phoneThought(Scene& scene);

    std::string application(std::int32_t pid, const std::string& bundleID);
    std::string profile();
    std::string timings();
    std::string allowedApps();
    std::string tabs();
    std::string pidOf(Scene& scene);

    WalkRandom m_random;
    std::int32_t m_nextPID = 1000; ///< leaves room for what the program opens, so that none is taken twice
    bool m_isRelayUp = true;
};

} // namespace velmorin
