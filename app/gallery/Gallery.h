#pragma once

#include "app/gallery/PictureScene.h"

#include <QDir>
#include <QImage>
#include <QString>
#include <vector>

namespace velmorin {

/// Takes pictures of scenes, the same ones each time. Main thread.
class Gallery {
public:
    explicit Gallery(std::vector<PictureScene> scenes) : m_scenes{std::move(scenes)} {}

    /// A picture of a scene in a language and in colours.
    static QImage picture(const PictureScene& scene, AppLanguage language, ColorTheme theme);

    /// Writes every scene in every language and all colours as NAME-LANGUAGE-THEME.png; only the scenes whose names
    /// begin with `only`. Returns the number of pictures, or -1 when one cannot be written.
    int write(const QDir& folder, const QString& only) const;

    /// Writes one sheet for each language with every scene on it, reduced, each language in other colours. False when
    /// one cannot be written.
    bool writeSheets(const QDir& folder) const;

private:
    QImage sheet(AppLanguage language, ColorTheme theme) const;

    std::vector<PictureScene> m_scenes;
};

} // namespace velmorin
