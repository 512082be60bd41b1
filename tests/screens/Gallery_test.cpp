#include "app/gallery/Gallery.h"

#include <gtest/gtest.h>
#include <set>

namespace velmorin {
namespace {

TEST(GalleryTest, everySceneHasANameOfItsOwn) {
    std::set<QString> names;
    for (const auto& scene : allScenes())
        EXPECT_TRUE(names.insert(scene.name).second) << scene.name.toStdString();
}

TEST(GalleryTest, theSamePictureComesOutEachTime) {
    for (const auto& scene : allScenes()) {
        const QImage first = Gallery::picture(scene, AppLanguage::persian, ColorTheme::dawn);
        EXPECT_EQ(first.size(), scene.size);
        EXPECT_EQ(Gallery::picture(scene, AppLanguage::persian, ColorTheme::dawn), first) << scene.name.toStdString();
    }
}

TEST(GalleryTest, languagesAndColoursLookDifferent) {
    const auto scene = overlayScenes().front();
    const QImage picture = Gallery::picture(scene, AppLanguage::english, ColorTheme::dusk);
    EXPECT_NE(Gallery::picture(scene, AppLanguage::german, ColorTheme::dusk), picture);
    EXPECT_NE(Gallery::picture(scene, AppLanguage::english, ColorTheme::aurora), picture);
}

} // namespace
} // namespace velmorin
