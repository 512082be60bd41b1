#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace velmorin {

/// What must always hold, in the order and under the numbers of docs/invariants.md, which says each precisely.
enum class Invariant : std::size_t {
    allowedIsNeverHidden = 1,
    systemIsNeverTouched,
    selfIsNeverTouched,
    actsOnlyWhileLocked,
    forbiddenIsHidden,
    hidingIsLogged,
    shownAgainAtTheEnd,
    shownOnlyAtTheEnd,
    askedAtMostSixTimes,
    ranBeforeIsNeverAsked,
    bringsForwardOnlyAllowed,
    attemptsRiseByOne,
    suppressedIsNotCounted,
    attemptIsShownHeardAndLogged,
    returnsOnlyFromWarnings,
    returnsNeverExceedAttempts,
    hiddenListOnlyGrows,
    planIsFrozen,
    suppressionIsShort,
    ticksAreCounted,
    oneTimer,
    overlayHasItsSession,
    overlayMovesForAReason,
    exitWaitIsWhole,
    idleHoldsNothing,
    endsOnlyWhenDoneOrConfirmed,
    recordStaysWithinPlan,
    eachEndIsOneRecord,
    historyLosesNothing,
    startStartsOnce,
    watchdogGuardsTheSession,
    sessionFileWhileItRuns,
    filesHoldWhatMemoryHolds,
    savesOnlyChanges,
    crashLosesNothing,
    secondInstanceTouchesNothing,
    launchDecidesByWhatIsLeft,
    quitsOnlyWhenFree,
    scriptsOnlyWatchedBrowsers,
    oneListScriptAtATime,
    firstScriptWaitsLonger,
    blanksOnlyWhileLocked,
    phoneIsLockedForASession,
    comesToRest,
    // The last one; made to fail on demand, so that the search itself can be tested.
    testProbe,
};

/// How many there are in earnest.
inline constexpr std::size_t invariantCount = static_cast<std::size_t>(Invariant::testProbe) - 1;

/// An invariant that did not hold.
struct Violation {
    Invariant invariant = Invariant::testProbe;
    std::string what;     ///< what was seen
    std::size_t step = 0; ///< after how many steps, the scene's own line not counted

    bool operator==(const Violation&) const = default;
};

} // namespace velmorin
