#pragma once

#include "tests/support/EngineTest.h"

#include <memory>
#include <string>
#include <utility>

namespace velmorin {

/// The user's data by itself, on the desktop of the scene and without the program around it.
class AppDataTest : public EngineTest {
protected:
    /// The data; loaded when first asked for.
    AppData& data() {
        if (!m_data) load();
        return *m_data;
    }
    /// Lets the data go and loads it again, as another process would.
    void load() {
        m_data.reset();
        m_data = std::make_unique<AppData>(
            JSONStore{setup.directory, desktop().disk},
            AppData::Seams{desktop().time, desktop().time, desktop().random, desktop().relay, appearance});
    }
    /// A record of a session that started this many seconds after the scene.
    static SessionRecord record(std::string name, double start) {
        SessionRecord made;
        made.id = UUID::random();
        made.profileName = std::move(name);
        made.startedAt = startOfScene + start;
        made.endedAt = made.startedAt + 100;
        return made;
    }

    Appearance appearance;

private:
    std::unique_ptr<AppData> m_data;
};

} // namespace velmorin
