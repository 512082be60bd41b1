#pragma once

#include "app/seams/Menu.h"

#include <functional>
#include <string_view>

namespace velmorin {

/// The program's icon in the bar of the desktop, with a short text beside it and a menu. There may be no such bar now
/// and one later: then it is there from then on. Main thread.
class StatusItem {
public:
    /// Whom it asks and tells, from the main loop. None may be missing.
    struct Calls {
        std::function<void(Menu&)> menuNeedsUpdate; ///< the menu opens: make its content anew
        std::function<void(MenuAction)> chosen;
        std::function<void()> pressed; ///< itself, where the desktop does not open the menu then
    };

    virtual ~StatusItem() = default;

    /// The text beside the icon; empty for none.
    virtual void setTitle(std::string_view title) = 0;
    /// What the icon stands for, for whoever cannot see it.
    virtual void setDescription(std::string_view description) = 0;
    /// The menu would be another one by now. There are desktops that show what it held when they last read it.
    virtual void menuChanged() = 0;
};

} // namespace velmorin
