#include "tests/contracts/InstalledApplicationsContract.h"

#include <filesystem>

namespace velmorin {
namespace {

TEST_P(InstalledApplicationsContract, withoutAnyTheListIsEmpty) {
    EXPECT_TRUE(applications().list().empty());
}

TEST_P(InstalledApplicationsContract, eachIsListedWithNameIdentifierAndPlaceInTheSystemsOrder) {
    const auto first = bench().install("org.example.a", "Zither", Picture::without);
    const auto second = bench().install("org.example.b", "Accordion", Picture::without);
    EXPECT_NE(first, second);
    EXPECT_TRUE(comesToList({{"Zither", "org.example.a", first}, {"Accordion", "org.example.b", second}}));
}

TEST_P(InstalledApplicationsContract, theListFollowsWhatIsInstalled) {
    EXPECT_TRUE(applications().list().empty());
    const auto first = bench().install("org.example.a", "A", Picture::without);
    EXPECT_TRUE(comesToList({{"A", "org.example.a", first}}));
    const auto second = bench().install("org.example.b", "B", Picture::without);
    EXPECT_TRUE(comesToList({{"A", "org.example.a", first}, {"B", "org.example.b", second}}));
    bench().remove(first);
    EXPECT_TRUE(comesToList({{"B", "org.example.b", second}}));
}

TEST_P(InstalledApplicationsContract, whatCannotBeReadIsLeftOut) {
    const auto broken = bench().install("org.example.a", "A", Picture::without);
    const auto whole = bench().install("org.example.b", "B", Picture::without);
    bench().spoil(broken);
    EXPECT_TRUE(comesToList({{"B", "org.example.b", whole}}));
}

TEST_P(InstalledApplicationsContract, anIconIsAPictureFile) {
    const auto path = bench().install("org.example.a", "A", Picture::withOne);
    ASSERT_TRUE(bench().eventually([&] { return applications().iconFile(path, 64).has_value(); }));
    const std::filesystem::path icon = applications().iconFile(path, 64).value();
    EXPECT_TRUE(icon.extension() == ".png" || icon.extension() == ".svg") << icon;
}

TEST_P(InstalledApplicationsContract, withoutAPictureThereIsNoIcon) {
    const auto path = bench().install("org.example.a", "A", Picture::without);
    EXPECT_TRUE(comesToList({{"A", "org.example.a", path}}));
    EXPECT_EQ(applications().iconFile(path, 64), std::nullopt);
    EXPECT_EQ(applications().iconFile("/nowhere", 64), std::nullopt);
    EXPECT_EQ(applications().iconFile("", 64), std::nullopt);
}

} // namespace
} // namespace velmorin
