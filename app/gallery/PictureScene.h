#pragma once

#include "app/gallery/ScreenView.h"
#include "app/gallery/Stage.h"

#include <QSize>
#include <QString>
#include <QVariantMap>
#include <functional>
#include <vector>

namespace velmorin {

/// A screen in one state, of which the gallery takes pictures.
struct PictureScene {
    QString name;                              ///< that of the picture's file
    QSize size;                                ///< of the window, in pixels
    QString component;                         ///< of Velmorin.Screens; its `session` is the stage's
    std::function<void(Stage&)> setUp;         ///< brings the engine there, in the language of the picture
    QVariantMap properties = {};               ///< what the component needs besides
    std::function<void(ScreenView&)> act = {}; ///< what the user has done; may be missing
    /// What the component needs of the stage besides; may be missing.
    std::function<QVariantMap(Stage&)> models = {};
    bool isOnSheet = true; ///< whether it is one of those that tell what the program looks like
};

/// The main window: its pages, and the sheet of applications.
std::vector<PictureScene> mainScenes();
/// The overlay's screens and the backdrop.
std::vector<PictureScene> overlayScenes();
/// All of them, each with a name of its own.
std::vector<PictureScene> allScenes();

} // namespace velmorin
