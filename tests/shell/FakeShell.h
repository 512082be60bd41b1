#pragma once

#include "app/shell/DesktopShell.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmorin {

/// What the program has shown, as a desktop would have it now, and what was done to it, in order.
class FakeShell final : public DesktopShell {
public:
    struct Window {
        bool isVisible = false;
        std::string title;
    };
    struct Item {
        std::string title;
        std::string description;
        StatusItem::Calls calls;
        Menu menu; ///< as a desktop has it that reads it only when it is told to
    };

    // What it lacks.
    bool hasQuickThought = true;
    bool hasFloatingTimer = true;

    // What is there now.
    std::vector<std::string> steps;
    std::optional<Appearance> appearance;
    MainMenu mainMenu;
    std::function<void(MenuAction)> onMainMenu;
    ActivationPolicy policy = ActivationPolicy::accessory;
    Call hotKey;
    Item item;
    Window window;
    bool isOverlayShown = false;
    bool isTimerShown = false;
    int thoughtsShown = 0;
    BackdropCover* backdrop = nullptr;
    ShellContext* context = nullptr;

    void step(std::string text) { steps.push_back(std::move(text)); }
    /// The user closes the main window.
    void closeWindow() { window.isVisible = false; }

    void setAppearance(Appearance value) override {
        appearance = value;
        step(value == Appearance::dark ? "appearance dark" : "appearance light");
    }
    void setMainMenu(const MainMenu& menu, std::function<void(MenuAction)> chosen) override {
        mainMenu = menu;
        onMainMenu = std::move(chosen);
        step("main menu");
    }
    ActivationPolicy activationPolicy() const override { return policy; }
    void setActivationPolicy(ActivationPolicy value) override {
        policy = value;
        step(value == ActivationPolicy::regular ? "regular" : "accessory");
    }
    void registerHotKey(Call pressed) override {
        hotKey = std::move(pressed);
        step("hot key");
    }
    std::unique_ptr<StatusItem> makeStatusItem(StatusItem::Calls calls) override {
        item.calls = std::move(calls);
        step("status item");
        return std::make_unique<FakeStatusItem>(item);
    }
    std::unique_ptr<OverlayCover> makeOverlayWindows(ShellContext& made) override {
        context = &made;
        step("overlay windows");
        return std::make_unique<FakeOverlay>(*this);
    }
    std::unique_ptr<BackdropCover> makeBackdropWindows(ShellContext&) override {
        step("backdrop windows");
        auto made = std::make_unique<FakeBackdrop>(*this);
        backdrop = made.get();
        return made;
    }
    std::unique_ptr<MainWindow> makeMainWindow(ShellContext&) override {
        step("main window");
        return std::make_unique<FakeWindow>(*this);
    }
    std::unique_ptr<QuickThought> makeQuickThoughtPanel(ShellContext&) override {
        if (!hasQuickThought) return nullptr;
        step("quick thought");
        return std::make_unique<FakeQuickThought>(thoughtsShown);
    }
    std::unique_ptr<FloatingTimer> makeFloatingTimer(ShellContext&) override {
        if (!hasFloatingTimer) return nullptr;
        step("floating timer");
        return std::make_unique<FakeTimer>(*this);
    }

private:
    class FakeStatusItem final : public StatusItem {
    public:
        explicit FakeStatusItem(Item& item) : m_item{item} {}
        void setTitle(std::string_view title) override { m_item.title = title; }
        void setDescription(std::string_view description) override { m_item.description = description; }
        void menuChanged() override { m_item.calls.menuNeedsUpdate(m_item.menu); }

    private:
        Item& m_item;
    };
    class FakeOverlay final : public OverlayCover {
    public:
        explicit FakeOverlay(FakeShell& shell) : m_shell{shell} {}
        void show() override {
            m_shell.isOverlayShown = true;
            m_shell.step("overlay shown");
        }
        void hide() override {
            m_shell.isOverlayShown = false;
            m_shell.step("overlay hidden");
        }
        bool isShown() const override { return m_shell.isOverlayShown; }

    private:
        FakeShell& m_shell;
    };
    class FakeBackdrop final : public BackdropCover {
    public:
        explicit FakeBackdrop(FakeShell& shell) : m_shell{shell} {}
        void show(Appearing appearing) override {
            m_shell.step(appearing == Appearing::animated ? "backdrop fades in" : "backdrop shown");
        }
        void hide() override { m_shell.step("backdrop fades out"); }

    private:
        FakeShell& m_shell;
    };
    class FakeWindow final : public MainWindow {
    public:
        explicit FakeWindow(FakeShell& shell) : m_shell{shell} {}
        void makeKeyAndOrderFront() override {
            m_shell.window.isVisible = true;
            m_shell.step("main window shown");
        }
        void orderOut() override {
            m_shell.window.isVisible = false;
            m_shell.step("main window out");
        }
        bool isVisible() const override { return m_shell.window.isVisible; }
        void setTitle(std::string_view title) override { m_shell.window.title = title; }

    private:
        FakeShell& m_shell;
    };
    class FakeQuickThought final : public QuickThought {
    public:
        explicit FakeQuickThought(int& shown) : m_shown{shown} {}
        void show() override { ++m_shown; }

    private:
        int& m_shown;
    };
    class FakeTimer final : public FloatingTimer {
    public:
        explicit FakeTimer(FakeShell& shell) : m_shell{shell} {}
        void orderFront() override { set(true, "timer front"); }
        void orderOut() override { set(false, "timer out"); }

    private:
        void set(bool isShown, const char* step) {
            m_shell.isTimerShown = isShown;
            m_shell.step(step);
        }
        FakeShell& m_shell;
    };
};

} // namespace velmorin
