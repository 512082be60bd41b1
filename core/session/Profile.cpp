#include "core/session/Profile.h"

#include "core/session/Schedule.h"

#include <utility>

namespace velmorin {

Profile::Profile(std::string profileName, SessionMode sessionMode, UUID freshID)
    : id{freshID}, name{std::move(profileName)}, mode{sessionMode} {}

std::vector<Segment> Profile::segments() const {
    return mode == SessionMode::deep ? Schedule::deep(deep) : Schedule::pomodoro(pomodoro);
}

bool Profile::hasDefaultTimings() const {
    return pomodoro == PomodoroConfig{} && deep == DeepConfig{};
}

void Profile::resetTimings() {
    pomodoro = {};
    deep = {};
}

} // namespace velmorin
