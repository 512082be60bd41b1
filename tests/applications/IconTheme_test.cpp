#include "app/platform/linux/applications/IconTheme.h"

#include "tests/applications/EntriesFixture.h"

namespace velmorin {
namespace {

class IconThemeTest : public EntriesFixture {
protected:
    std::optional<std::string> find(const std::string& name, int pixelSize = 48) {
        return IconTheme{{{path("home"), path("share")}, {path("pixmaps")}, {"Paper", "Missing"}}}.file(name,
                                                                                                        pixelSize);
    }
    /// A theme with folders of fixed sizes and one for all sizes.
    void theme(const std::string& name, const std::string& more = {}) {
        write("share/" + name + "/index.theme",
              "[Icon Theme]\nName=" + name + "\nDirectories=16/apps, 48/apps,48@2/apps,any/apps\n" + more +
                  "\n[16/apps]\nSize=16\nType=Fixed\n[48/apps]\nSize=48\n[48@2/apps]\nSize=48\nScale=2\nType=Fixed\n"
                  "[any/apps]\nSize=128\nMinSize=100\nMaxSize=512\nType=Scalable\n");
    }
};

TEST_F(IconThemeTest, theIconOfTheWantedSizeIsFound) {
    theme("Paper");
    const auto small = write("share/Paper/16/apps/pen.png", "");
    const auto medium = write("share/Paper/48/apps/pen.png", "");
    const auto doubled = write("share/Paper/48@2/apps/pen.png", "");
    const auto any = write("share/Paper/any/apps/pen.svg", "");
    EXPECT_EQ(find("pen", 16), small);
    EXPECT_EQ(find("pen", 48), medium);
    EXPECT_EQ(find("pen", 50), medium); // within the threshold
    EXPECT_EQ(find("pen", 96), doubled);
    EXPECT_EQ(find("pen", 256), any);
}

TEST_F(IconThemeTest, withoutTheWantedSizeTheNearestIsFound) {
    theme("Paper");
    const auto small = write("share/Paper/16/apps/pen.png", "");
    const auto medium = write("share/Paper/48/apps/pen.png", "");
    EXPECT_EQ(find("pen", 8), small);
    EXPECT_EQ(find("pen", 512), medium);
}

TEST_F(IconThemeTest, themesAreSearchedInOrderAndAfterThemTheirParents) {
    theme("Paper", "Inherits=Base,hicolor");
    theme("Base");
    theme("hicolor");
    const auto own = write("share/hicolor/48/apps/pen.png", "");
    EXPECT_EQ(find("pen"), own);
    const auto parents = write("share/Base/16/apps/pen.png", "");
    EXPECT_EQ(find("pen"), parents);
    const auto preferred = write("share/Paper/16/apps/pen.png", "");
    EXPECT_EQ(find("pen"), preferred);
}

TEST_F(IconThemeTest, themesThatInheritFromEachOtherEndTheSearch) {
    theme("Paper", "Inherits=Base");
    theme("Base", "Inherits=Paper");
    EXPECT_EQ(find("pen"), std::nullopt);
}

TEST_F(IconThemeTest, aThemeMayBeSpreadOverFolders) {
    theme("Paper");
    const auto own = write("home/Paper/48/apps/pen.png", "");
    EXPECT_EQ(find("pen"), own);
}

TEST_F(IconThemeTest, withoutAThemeThePlainFoldersAreSearched) {
    const auto plain = write("share/pen.svg", "");
    const auto old = write("pixmaps/brush.png", "");
    EXPECT_EQ(find("pen"), plain);
    EXPECT_EQ(find("brush"), old);
    EXPECT_EQ(find("brush.png"), old); // as some entries write it
}

TEST_F(IconThemeTest, anAbsolutePathIsTakenAsItIs) {
    const auto picture = write("any/pen.png", "");
    EXPECT_EQ(find(picture), picture);
    EXPECT_EQ(find(path("any/missing.png")), std::nullopt);
    EXPECT_EQ(find(write("any/pen.xpm", "")), std::nullopt); // not to be drawn
}

TEST_F(IconThemeTest, whatIsNoIconIsNotFound) {
    write("share/Paper/index.theme", "\xff nonsense");
    write("secret.png", "");
    for (const auto* name : {"", ".png", "pen", "../../secret", "./pen"})
        EXPECT_EQ(find(name), std::nullopt) << name;
    EXPECT_EQ(find("pen", 0), std::nullopt);
    EXPECT_EQ(find("pen", -1), std::nullopt);
}

TEST_F(IconThemeTest, aThemeWithoutSensibleSizesStillHasItsIcons) {
    write("share/Paper/index.theme", "[Icon Theme]\nDirectories=a,b\n[a]\nSize=-5\nScale=99999999\n[b]\nSize=x\n");
    const auto icon = write("share/Paper/b/pen.png", "");
    EXPECT_EQ(find("pen"), icon);
}

} // namespace
} // namespace velmorin
