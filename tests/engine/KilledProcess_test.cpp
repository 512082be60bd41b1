// A process of the program is killed between any two operations on its files, and a new one on the same folder finds
// everything that was done, at most without the one thing that was under way.

#include "app/simulate/Scene.h"
#include "core/store/PosixFiles.h"
#include "tests/support/FaultyFiles.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/TemporaryDirectory.h"

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace velmorin {
namespace {

constexpr Date startOfScene{800'000'000};
constexpr std::size_t kills = 1000;

/// What the program holds and a new process must find.
struct Holdings {
    Date moment;
    std::optional<ActiveSession> session;
    std::vector<SessionRecord> history;
    std::vector<SessionRecord> cleared;
    std::vector<Thought> thoughts;
    AppSettings settings;
};

Holdings holdings(Scene& scene) {
    AppData& data = scene.program()->data();
    return {scene.desktop().time.now(),
            *scene.program()->controller().session(),
            *data.history(),
            *data.clearedHistory(),
            *data.thoughts(),
            *data.settings()};
}

using Operation = std::function<void(Scene&)>;

Profile shortProfile(SessionMode mode) {
    Profile profile{"Work", mode, UUID{}};
    profile.allowedApps.push_back({"org.example.editor", "Editor"});
    profile.deep.totalMinutes = 3;
    profile.pomodoro.workMinutes = 1;
    return profile;
}

void changeSettings(Scene& scene) {
    AppData& data = scene.program()->data();
    AppSettings settings = *data.settings();
    settings.focusOnShortcut += "!";
    settings.showFloatingTimer = !settings.showFloatingTimer;
    data.setSettings(settings);
}

void tickOffAThought(Scene& scene) {
    AppData& data = scene.program()->data();
    auto thoughts = *data.thoughts();
    thoughts.back().done = true;
    data.setThoughts(std::move(thoughts));
}

/// A push against the lock, and the way back from it.
void pushAndReturn(std::vector<Operation>& script) {
    script.push_back([](Scene& scene) {
        scene.desktop().time.advance(4);
        scene.desktop().workspace.activate(11);
        scene.desktop().time.settle();
    });
    script.push_back([](Scene& scene) { scene.program()->controller().returnToWork(); });
}

void session(std::vector<Operation>& script, SessionMode mode, bool isLeftEarly) {
    script.push_back([mode](Scene& scene) { scene.program()->controller().start(shortProfile(mode), "write"); });
    for (int push = 0; push < 3; ++push) {
        pushAndReturn(script);
        script.push_back([](Scene& scene) { scene.program()->data().addThought("call home"); });
    }
    script.push_back(tickOffAThought);
    script.push_back(changeSettings);
    if (isLeftEarly) {
        script.push_back([](Scene& scene) { scene.program()->controller().beginEmergencyExit(); });
        script.push_back([](Scene& scene) {
            scene.desktop().time.sleep(60);
            scene.program()->controller().beginEmergencyExit();
            scene.desktop().time.advance(0);
        });
        script.push_back([](Scene& scene) {
            // Without ticks, so that one operation ends the session and nothing before it does.
            scene.desktop().time.setClock(180);
            scene.program()->controller().confirmEmergencyExit("the house is on fire");
        });
    } else {
        script.push_back([](Scene& scene) { scene.desktop().time.advance(40 * 60); });
    }
    script.push_back([](Scene& scene) { scene.program()->controller().setOverlay(Overlay::None{}); });
}

/// A busy life: sessions of both modes that end early and in time, pushes, thoughts, settings, a cleared history.
std::vector<Operation> makeScript() {
    std::vector<Operation> script;
    for (int round = 0; round < 3; ++round) {
        session(script, SessionMode::pomodoro, true);
        session(script, SessionMode::deep, false);
        script.push_back([](Scene& scene) { scene.program()->data().clearHistory(); });
        session(script, SessionMode::deep, false);
        script.push_back([](Scene& scene) { scene.program()->data().restoreClearedHistory(); });
    }
    return script;
}

const std::vector<Operation>& theScript() {
    static const std::vector<Operation> script = makeScript();
    return script;
}

/// A machine with the program on it, launched.
std::unique_ptr<Scene> launched(const std::filesystem::path& directory, Files& files, Date moment) {
    ProgramSetup setup;
    setup.directory = directory;
    setup.bundleID = "com.kestrava.velmorin";
    auto scene = std::make_unique<Scene>(moment, files, setup);
    scene->desktop().workspace.add({10, "org.example.editor", "Editor"});
    scene->desktop().workspace.add({11, "org.example.game", "Game"});
    scene->desktop().workspace.startInFront(10);
    scene->launch(LaunchedBy::user);
    scene->desktop().time.settle();
    return scene;
}

/// What is held before the script and after each of its operations, when nothing goes wrong, and how many operations
/// on files that takes.
struct Undisturbed {
    std::vector<Holdings> holdings;
    std::size_t fileOperations = 0;
};

Undisturbed playUndisturbed() {
    MemoryFiles memory;
    FaultyFiles files{memory};
    Undisturbed run;
    const auto scene = launched("/data", files, startOfScene);
    run.holdings.push_back(holdings(*scene));
    for (const auto& operation : theScript()) {
        operation(*scene);
        scene->desktop().time.settle();
        run.holdings.push_back(holdings(*scene));
    }
    run.fileOperations = files.operationCount();
    return run;
}

/// Plays the script in this process, which is killed before the given operation on files, and tells `report` of each
/// operation before it begins and when it is done, each with one byte.
[[noreturn]] void liveAndBeKilled(const std::filesystem::path& directory, std::size_t killedAt, int report) {
    PosixFiles real;
    FaultyFiles files{real};
    files.setBefore([killedAt](std::size_t next) {
        if (next == killedAt) ::raise(SIGKILL);
    });
    const auto tell = [report](char word) {
        if (::write(report, &word, 1) != 1) ::_exit(2);
    };
    const auto scene = launched(directory, files, startOfScene);
    for (const auto& operation : theScript()) {
        tell('b');
        operation(*scene);
        scene->desktop().time.settle();
        tell('d');
    }
    ::_exit(0);
}

/// What a killed process had told.
struct Told {
    std::size_t begun = 0;
    std::size_t done = 0;
    bool isKilled = false;
};

Told runAndKill(const std::filesystem::path& directory, std::size_t killedAt) {
    int ends[2] = {};
    if (::pipe(ends) != 0) return {};
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(ends[0]);
        liveAndBeKilled(directory, killedAt, ends[1]);
    }
    ::close(ends[1]);
    Told told;
    for (char word = 0; ::read(ends[0], &word, 1) == 1;)
        ++(word == 'b' ? told.begun : told.done);
    ::close(ends[0]);
    int status = 0;
    told.isKilled = ::waitpid(child, &status, 0) == child && WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    return told;
}

template <class Value>
bool isEither(const Value& found, const Value& before, const Value& after) {
    return found == before || found == after;
}

bool isIn(const std::vector<SessionRecord>& records, const UUID& id) {
    return std::ranges::find(records, id, &SessionRecord::id) != records.end();
}

/// Every file of the store that is there is whole.
void expectNoDamage(const std::filesystem::path& directory) {
    PosixFiles files;
    const JSONStore store{directory, files};
    const auto isWhole = [&]<class Value>(std::string_view name, std::type_identity<Value>) {
        return !std::filesystem::exists(directory / name) || store.load<Value>(name).has_value();
    };
    EXPECT_TRUE(isWhole(SessionController::sessionFile, std::type_identity<ActiveSession>{}));
    EXPECT_TRUE(isWhole(AppData::historyFile, std::type_identity<std::vector<SessionRecord>>{}));
    EXPECT_TRUE(isWhole(AppData::clearedHistoryFile, std::type_identity<std::vector<SessionRecord>>{}));
    EXPECT_TRUE(isWhole(AppData::thoughtsFile, std::type_identity<std::vector<Thought>>{}));
    EXPECT_TRUE(isWhole(AppData::settingsFile, std::type_identity<AppSettings>{}));
}

/// One operation may have got any number of its saves done, each of them wholly or not at all. A long one has saved a
/// session more than once: its counters lie in between then.
void expectFound(const Holdings& found, const Holdings& before, const Holdings& after) {
    EXPECT_TRUE(isEither(found.history, before.history, after.history));
    EXPECT_TRUE(isEither(found.cleared, before.cleared, after.cleared));
    EXPECT_TRUE(isEither(found.thoughts, before.thoughts, after.thoughts));
    EXPECT_TRUE(isEither(found.settings, before.settings, after.settings));
    if (found.session) {
        const auto& known = before.session ? before.session : after.session;
        ASSERT_TRUE(known);
        EXPECT_EQ(found.session->id, known->id);
        EXPECT_GE(found.session->attempts, before.session ? before.session->attempts : 0);
        EXPECT_LE(found.session->attempts, after.session ? after.session->attempts : known->attempts);
        EXPECT_GE(found.session->returns, before.session ? before.session->returns : 0);
        EXPECT_LE(found.session->returns, after.session ? after.session->returns : known->returns);
    } else if (before.session) {
        EXPECT_TRUE(isIn(found.history, before.session->id)) << "the session is gone and left no record";
    }
    for (const auto& records : {before.history, before.cleared}) {
        for (const auto& record : records)
            EXPECT_TRUE(isIn(found.history, record.id) || isIn(found.cleared, record.id)) << "a record is gone";
    }
}

/// The new process can go on as if nothing had been.
void expectToGoOn(Scene& scene, const std::filesystem::path& directory) {
    SimulatedProgram& program = *scene.program();
    const std::size_t thoughts = program.data().thoughts()->size();
    program.data().addThought("still here");
    if (!program.controller().isActive()) program.controller().start(shortProfile(SessionMode::deep), "");
    const UUID id = (*program.controller().session())->id;
    scene.desktop().time.advance(40 * 60);
    PosixFiles files;
    const JSONStore store{directory, files};
    EXPECT_EQ(store.load<std::vector<Thought>>(AppData::thoughtsFile).value_or(std::vector<Thought>{}).size(),
              thoughts + 1);
    const auto history = store.load<std::vector<SessionRecord>>(AppData::historyFile);
    ASSERT_TRUE(history && !history->empty());
    EXPECT_EQ(history->front().id, id);
    EXPECT_FALSE(std::filesystem::exists(directory / SessionController::sessionFile));
}

TEST(KilledProcessTest, aNewProcessFindsAllThatWasDoneAndAtMostOneOperationMore) {
    const Undisturbed run = playUndisturbed();
    ASSERT_GE(run.fileOperations, kills) << "each kill has a moment of its own";
    std::size_t killed = 0;
    for (std::size_t index = 0; index < kills && !HasFailure(); ++index) {
        const std::size_t killedAt = index * run.fileOperations / kills;
        SCOPED_TRACE("killed before operation " + std::to_string(killedAt) + " on files");
        const TemporaryDirectory folder;
        const Told told = runAndKill(folder.path(), killedAt);
        ASSERT_TRUE(told.isKilled);
        ASSERT_LE(told.begun - told.done, 1U);
        killed += told.isKilled ? 1 : 0;
        expectNoDamage(folder.path());
        // At the moment at which the last operation was done, so that no plan has run out meanwhile.
        PosixFiles files;
        const Holdings& before = run.holdings[told.done];
        const auto scene = launched(folder.path(), files, before.moment);
        expectFound(holdings(*scene), before, run.holdings[told.begun]);
        expectToGoOn(*scene, folder.path());
    }
    EXPECT_EQ(killed, kills);
}

} // namespace
} // namespace velmorin
