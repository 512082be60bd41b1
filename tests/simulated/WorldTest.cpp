#include "tests/simulated/WorldTest.h"

#include <utility>

namespace velmorin {

WorldTest::WorldTest() {
    desktop.journal.onEvent = [this](const SimulatedEvent& event) {
        m_events.push_back(event.name + (event.details.empty() ? "" : " ") + event.details);
    };
}

std::vector<std::string> WorldTest::takeEvents() {
    return std::exchange(m_events, {});
}

} // namespace velmorin
