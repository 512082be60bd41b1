#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmorin {

/// What choosing an item of a menu asks for. Those from `undo` on go to whatever has the keyboard, the others to the
/// program itself.
enum class MenuAction : std::uint8_t {
    none,
    openMainFromMenu,
    parkFromMenu,
    toggleFloatingTimer,
    emergencyFromMenu,
    quitFromMenu,
    terminate,
    undo,
    cut,
    copy,
    paste,
    selectAll,
    performClose,
};

/// A line of a menu.
struct MenuItem {
    std::string text;
    MenuAction action = MenuAction::none; ///< an item without one cannot be chosen
    std::optional<char> key;              ///< pressed together with the menu key of the system: Control, or Command
    bool isSeparator = false;

    static MenuItem separator() { return {"", MenuAction::none, std::nullopt, true}; }

    bool isEnabled() const { return action != MenuAction::none; }
    bool operator==(const MenuItem&) const = default;
};

/// A menu with the title under which it hangs in another one.
struct Menu {
    std::string title; ///< empty for the menu of the program itself
    std::vector<MenuItem> items;

    bool operator==(const Menu&) const = default;
};

/// The menus of the program beside each other, the first one being that of the program itself.
using MainMenu = std::vector<Menu>;

} // namespace velmorin
