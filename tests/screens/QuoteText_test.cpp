#include "app/gallery/ScreenView.h"
#include "core/foundation/RawValue.h"
#include "core/language/QuoteCategory.h"

#include <QAccessible>
#include <QQuickItem>
#include <QtMath>
#include <gtest/gtest.h>
#include <map>

namespace velmorin {
namespace {

/// The largest type in which each moment has its sentences where a column is narrowest: in the overlay.
const std::map<QuoteCategory, double> sizes{
    {QuoteCategory::urge, 38}, {QuoteCategory::returning, 38}, {QuoteCategory::rest, 42},
    {QuoteCategory::exit, 34}, {QuoteCategory::finish, 38},
};
constexpr int columnWidth = 680;

TEST(QuoteTextTest, everySentenceFitsTheTwoLinesThatAreKeptForIt) {
    for (const auto& [category, size] : sizes) {
        ScreenView line{"QuoteText", {{"size", size}, {"text", "A"}}, {columnWidth, 400}};
        const int height = qCeil(2 * line.rootObject()->implicitHeight());
        ScreenView view{"QuoteText", {{"size", size}}, {columnWidth, height}};
        for (const auto language : allCases<AppLanguage>()) {
            for (const auto sentence : sentences(category, language)) {
                view.rootObject()->setProperty(
                    "text", QString::fromUtf8(sentence.data(), static_cast<qsizetype>(sentence.size())));
                EXPECT_LE(view.rootObject()->property("contentHeight").toDouble(), height)
                    << rawValue(category) << " " << rawValue(language) << " " << sentence;
                EXPECT_LE(view.rootObject()->property("contentWidth").toDouble(), columnWidth) << sentence;
            }
        }
    }
}

TEST(QuoteTextTest, aScreenReaderCanReadIt) {
    ScreenView view{"QuoteText", {{"text", "Stay."}}, {columnWidth, 400}};
    auto* const shown = QAccessible::queryAccessibleInterface(view.rootObject());
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->role(), QAccessible::StaticText);
    EXPECT_EQ(shown->text(QAccessible::Name), QStringLiteral("Stay."));
}

} // namespace
} // namespace velmorin
