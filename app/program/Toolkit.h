#pragma once

#include <memory>

class QApplication;

namespace velmorin::Toolkit {

/// The toolkit's application object for this program, which lives for the rest of the process: on X11, drawing without
/// a graphics card, and on GLib's loop, which the rest of the program uses as well. Nothing of that goes through the
/// environment, so that programs started from here are as they would be otherwise. `program` is the word by which this
/// one was called; `applicationID` is what the desktop knows it by. To be called once.
std::unique_ptr<QApplication> makeApplication(char* program, const char* applicationID);

} // namespace velmorin::Toolkit
