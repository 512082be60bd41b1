#pragma once

class QWindow;

namespace velmorin {

/// Makes a window that was created and not shown yet one of the desktop's own type, on all desktops, where the desktop
/// is one of X11. Window managers keep such a window below all others and out of every list. Main thread.
void declareDesktopWindow(QWindow& window);

} // namespace velmorin
