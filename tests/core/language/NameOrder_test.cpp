#include "core/language/NameOrder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace velmorin {
namespace {

using Names = std::vector<std::string>;

Names sorted(AppLanguage language, Names names) {
    std::ranges::stable_sort(names, {}, [language](const auto& name) { return sortKey(language, name); });
    return names;
}

TEST(NameOrderTest, theCaseOfLettersDoesNotCount) {
    EXPECT_EQ(sorted(AppLanguage::english, {"b", "A", "a", "B", "C"}), (Names{"A", "a", "b", "B", "C"}));
    EXPECT_EQ(sortKey(AppLanguage::english, "Files"), sortKey(AppLanguage::english, "fILES"));
}

TEST(NameOrderTest, accentsComeAfterThePlainLetter) {
    EXPECT_EQ(sorted(AppLanguage::german, {"Zeit", "Öl", "Ofen", "Äpfel", "Apfel", "Übung", "Uhr"}),
              (Names{"Apfel", "Äpfel", "Ofen", "Öl", "Übung", "Uhr", "Zeit"}));
}

TEST(NameOrderTest, persianLettersStandInTheirOwnOrder) {
    // By their codes, the last four would stand after the letters that follow them in the alphabet.
    EXPECT_EQ(sorted(AppLanguage::persian, {"یاد", "گل", "هوا", "چای", "پول", "آب", "باد", "تار", "ژاله", "کار", "لب"}),
              (Names{"آب", "باد", "پول", "تار", "چای", "ژاله", "کار", "گل", "لب", "هوا", "یاد"}));
}

TEST(NameOrderTest, anyBytesHaveAPlace) {
    EXPECT_LT(sortKey(AppLanguage::english, ""), sortKey(AppLanguage::english, "a"));
    EXPECT_FALSE(sortKey(AppLanguage::german, "\xff\xfe").empty());
}

TEST(NameOrderTest, aPartIsFoundWhateverItsCase) {
    EXPECT_TRUE(containsIgnoringCase("Text Editor", "EDIT"));
    EXPECT_TRUE(containsIgnoringCase("ÄPFEL", "äp"));
    EXPECT_TRUE(containsIgnoringCase("ویرایشگر", "ایش"));
    EXPECT_TRUE(containsIgnoringCase("", ""));
    EXPECT_FALSE(containsIgnoringCase("Apfel", "äp"));
    EXPECT_FALSE(containsIgnoringCase("", "a"));
}

} // namespace
} // namespace velmorin
