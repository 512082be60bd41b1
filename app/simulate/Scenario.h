#pragma once

#include "app/simulate/Scene.h"
#include "core/foundation/JSONArguments.h"

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace velmorin {

/// Plays a scenario: lines of JSON, the first of which sets the scene while each other one is a step. Everything that
/// happens goes to an event sink.
class Scenario {
public:
    using Sink = std::function<void(const SimulatedEvent&)>;
    /// Called before virtual time passes, with the seconds that pass until something can happen again.
    using Pace = std::function<void(double seconds)>;

    struct Options {
        std::filesystem::path directory; ///< of the store; what lies there already stays
        bool tellsTicks = false;
        Pace pace; ///< may be missing
    };

    /// `files` must outlive this.
    Scenario(Files& files, Options options, Sink sink);
    ~Scenario();

    /// Plays one line. Throws MalformedInput, with what is wrong, when it is no scene or step; the scene is then as it
    /// was, or as far as the step had come.
    void play(const std::string& line);

    /// The scene; null before the first line.
    Scene* scene() { return m_scene.get(); }

private:
    using Step = void (Scenario::*)(const JSONArguments&);
    struct Kind;

    static const std::map<std::string, Kind, std::less<>>& kinds();

    void setUp(const JSONArguments& setup);
    void writeFiles(const JSONArguments& setup);
    void step(const JSONArguments& step);
    void tellIgnored(const std::string& step);
    SimulatedProgram& program();
    SessionController& controller() { return program().controller(); }
    SimulatedDesktop& desktop() { return m_scene->desktop(); }
    void passTime(double seconds);

    // One step each.
    void start(const JSONArguments& step);
    void advance(const JSONArguments& step);
    void sleep(const JSONArguments& step);
    void setClock(const JSONArguments& step);
    void launch(const JSONArguments& step);
    void activate(const JSONArguments& step);
    void unhide(const JSONArguments& step);
    void quit(const JSONArguments& step);
    void front(const JSONArguments& step);
    void browser(const JSONArguments& step);
    void returnToWork(const JSONArguments& step);
    void beginEmergencyExit(const JSONArguments& step);
    void cancelEmergencyExit(const JSONArguments& step);
    void confirmEmergencyExit(const JSONArguments& step);
    void dismiss(const JSONArguments& step);
    void addThought(const JSONArguments& step);
    void setThoughts(const JSONArguments& step);
    void settings(const JSONArguments& step);
    void clearHistory(const JSONArguments& step);
    void restoreHistory(const JSONArguments& step);
    void crash(const JSONArguments& step);
    void relaunch(const JSONArguments& step);
    void powerOff(const JSONArguments& step);
    void askToQuit(const JSONArguments& step);
    void disk(const JSONArguments& step);
    void pair(const JSONArguments& step);
    void unpair(const JSONArguments& step);
    void relay(const JSONArguments& step);
    void phone(const JSONArguments& step);
    void show(const JSONArguments& step);

    Files& m_files;
    Options m_options;
    Sink m_sink;
    std::unique_ptr<Scene> m_scene;
};

} // namespace velmorin
