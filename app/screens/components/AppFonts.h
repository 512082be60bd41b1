#pragma once

#include <QString>

namespace velmorin {

/// The program's type face, in four weights under the one name "Vazirmatn".
struct AppFonts {
    /// The name by which text asks for it.
    static QString family();

    /// Loads the font files from `folder`; to be called before any window exists. A file that is missing or broken is
    /// passed over: the system then finds another face for its weight.
    static void registerFonts(const QString& folder);
};

} // namespace velmorin
