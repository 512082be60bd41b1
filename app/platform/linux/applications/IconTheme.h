#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velmorin {

/// Finds the files of icons by their names, in the theme of the desktop and what stands in for it. Themes are read when
/// the first icon is asked for, and kept. Main thread.
class IconTheme {
public:
    /// Where icons lie and which are preferred.
    struct Surroundings {
        std::vector<std::string> iconFolders;   ///< with a folder for each theme, and icons of none
        std::vector<std::string> pixmapFolders; ///< with icons of no theme only
        std::vector<std::string> themes; ///< the preferred one first; those they inherit from are found by themselves

        static Surroundings ofSession();
    };

    explicit IconTheme(Surroundings surroundings = Surroundings::ofSession());
    IconTheme(const IconTheme&) = delete;
    IconTheme& operator=(const IconTheme&) = delete;
    ~IconTheme();

    /// The file for an icon's name or absolute path, a PNG or an SVG, nearest to so many pixels a side; absent when
    /// there is none.
    std::optional<std::string> file(const std::string& name, int pixelSize) const;

private:
    class Theme;

    const std::vector<std::unique_ptr<Theme>>& themes() const;
    void addTheme(const std::string& name) const;

    Surroundings m_surroundings;
    mutable std::vector<std::unique_ptr<Theme>> m_themes; ///< in the order in which they are searched
    mutable bool m_areThemesRead = false;
};

} // namespace velmorin
