#include "app/screens/components/AppFonts.h"

#include <QDir>
#include <QFontDatabase>
#include <array>

namespace velmorin {

QString AppFonts::family() {
    return QStringLiteral("Vazirmatn");
}

void AppFonts::registerFonts(const QString& folder) {
    constexpr std::array weights{"Regular", "Medium", "SemiBold", "Bold"};
    for (const char* weight : weights) {
        const QString file = QStringLiteral("Vazirmatn-%1.ttf").arg(QLatin1String{weight});
        QFontDatabase::addApplicationFont(QDir{folder}.filePath(file));
    }
}

} // namespace velmorin
