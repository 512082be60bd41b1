#pragma once

#include <QByteArray>

class QWindow;

namespace velmorin {

/// What a window manager is told of a window that it frames, where the desktop is one of X11; elsewhere nothing
/// happens. The window must have been created. What the toolkit makes anew has to be told of anew. Main thread.
namespace XcbFrame {

/// The class by which the desktop knows whose window it is.
void setClass(QWindow& window, const QByteArray& name);
/// Whether the frame is to be dark, as what it frames is.
void setDark(QWindow& window, bool isDark);
/// Whether taskbar and pager leave the window out.
void setSkipsTaskbar(QWindow& window, bool skips);
/// Brings the window to the front and gives it the keyboard, as a taskbar would: also where the user works elsewhere.
void activate(QWindow& window);

} // namespace XcbFrame

} // namespace velmorin
