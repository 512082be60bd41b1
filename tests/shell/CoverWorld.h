#pragma once

#include "app/platform/simulated/VirtualTime.h"
#include "app/seams/CoverWindow.h"
#include "app/seams/MotionPreference.h"
#include "app/seams/Presentation.h"
#include "app/seams/Screens.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velmorin {

/// Screens that come and go as a test says.
class FakeScreens final : public Screens {
public:
    std::vector<Rectangle> frames() const override { return present; }
    std::optional<std::size_t> main() const override { return mainScreen; }
    Cancellable observeChanges(std::function<void()> call) override { return m_watchers.add(std::move(call)); }

    void change(std::vector<Rectangle> frames) {
        present = std::move(frames);
        notify();
    }
    void notify() { m_watchers.notify(); }

    std::vector<Rectangle> present;
    std::optional<std::size_t> mainScreen = 0;

private:
    Watchers m_watchers;
};

/// A window as a test sees it, also after the window itself has gone.
struct CoverState {
    int number = 0; ///< from 1, in the order of making
    Rectangle frame;
    CoverContent content;
    double opacity = 1;
    bool isOnScreen = false;
    bool isKey = false;
    bool isAlive = true;
};

/// A level of a desktop, whose windows fade in virtual time and tell in which order what was asked of them.
class FakeCovers final : public CoverWindowFactory, public Presentation, public MotionPreference {
public:
    explicit FakeCovers(VirtualTime& time) : m_time{time} {}

    std::unique_ptr<CoverWindow> make(const Rectangle& frame, const CoverContent& content) override {
        auto state = std::make_shared<CoverState>();
        state->number = static_cast<int>(windows.size()) + 1;
        state->frame = shiftsWindows ? Rectangle{frame.x + 1, frame.y, frame.width, frame.height} : frame;
        state->content = content;
        windows.push_back(state);
        return std::make_unique<Window>(*this, state);
    }
    void activate() override {
        note("activate");
        isProgramActive = !losesActivation;
    }
    bool isActive() const override { return isProgramActive; }
    void setOptions(Options chosen) override {
        note(chosen == Options::locked ? "locked" : "usual");
        options = chosen;
    }
    const Observable<bool>& reducesMotion() const override { return reduces; }

    /// The windows that are on the screen, oldest first.
    std::vector<std::shared_ptr<CoverState>> onScreen() const {
        std::vector<std::shared_ptr<CoverState>> shown;
        std::ranges::copy_if(windows, std::back_inserter(shown), [](const auto& window) { return window->isOnScreen; });
        return shown;
    }
    void note(std::string step) { steps.push_back(std::move(step)); }

    std::vector<std::shared_ptr<CoverState>> windows; ///< all that were ever made
    std::vector<std::string> steps;                   ///< what was asked for, in order
    Options options = Options::usual;
    Observable<bool> reduces{false};
    bool isProgramActive = false;
    bool losesActivation = false; ///< to another program, each time
    bool shiftsWindows = false;   ///< off their screens

private:
    class Window final : public CoverWindow {
    public:
        Window(FakeCovers& covers, std::shared_ptr<CoverState> state) : m_covers{covers}, m_state{std::move(state)} {}
        Window(const Window&) = delete;
        Window& operator=(const Window&) = delete;
        ~Window() override { m_state->isAlive = m_state->isOnScreen = m_state->isKey = false; }

        Rectangle frame() const override { return m_state->frame; }
        void setOpacity(double opacity) override {
            note("opacity " + std::string{opacity == 0 ? "0" : "1"});
            m_state->opacity = opacity;
        }
        void fade(double opacity, double seconds, std::function<void()> completion) override {
            note(opacity == 0 ? "fade out" : "fade in");
            m_fade = m_covers.m_time.after(seconds, [this, opacity, completion = std::move(completion)] {
                m_state->opacity = opacity;
                const auto call = completion; // which may end this window, and itself
                if (call) call();
            });
        }
        void orderFront() override {
            note("front");
            m_state->isOnScreen = true;
        }
        void makeKeyAndOrderFront() override {
            note("key");
            m_state->isOnScreen = m_state->isKey = true;
            m_covers.isProgramActive = !m_covers.losesActivation;
        }
        void orderOut() override {
            note("out");
            m_state->isOnScreen = m_state->isKey = false;
        }

    private:
        void note(const std::string& step) { m_covers.note(std::to_string(m_state->number) + " " + step); }

        FakeCovers& m_covers;
        std::shared_ptr<CoverState> m_state;
        Cancellable m_fade;
    };

    VirtualTime& m_time;
};

} // namespace velmorin
