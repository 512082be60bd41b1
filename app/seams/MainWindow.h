#pragma once

#include <string_view>

namespace velmorin {

/// The program's window. Its user can close it, which only hides it. Main thread.
class MainWindow {
public:
    virtual ~MainWindow() = default;

    /// Shows it, brings it to the front and gives it the keyboard.
    virtual void makeKeyAndOrderFront() = 0;
    virtual void orderOut() = 0;
    virtual bool isVisible() const = 0;
    virtual void setTitle(std::string_view title) = 0;
};

} // namespace velmorin
