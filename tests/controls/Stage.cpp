#include "tests/controls/Stage.h"

#include "app/screens/components/AppFonts.h"
#include "app/strings/Appearance.h"
#include "app/theme/GlowField.h"
#include "core/foundation/RawValue.h"

#include <QAccessible>
#include <QClipboard>
#include <QEventLoop>
#include <QFontInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QQuickItemGrabResult>
#include <QQuickWindow>
#include <QRawFont>
#include <cstdint>
#include <span>

namespace velmorin {

namespace {

AppSettings& settings() {
    static AppSettings kept;
    return kept;
}

template <class Value>
Value named(const QString& name) {
    const auto found = fromRawValue<Value>(name.toStdString());
    if (!found) qFatal("No such value: %s", qPrintable(name));
    return *found;
}

void send(QWindow* window, QEvent::Type type, int key, bool isRepeated) {
    const QString text = key == Qt::Key_Space    ? QStringLiteral(" ")
                         : key == Qt::Key_Return ? QStringLiteral("\r")
                                                 : QString{};
    QKeyEvent event{type, key, Qt::NoModifier, text, isRepeated};
    QCoreApplication::sendEvent(window, &event);
}

} // namespace

void Stage::setLanguage(const QString& language) {
    settings().language = named<AppLanguage>(language);
    Appearance::shared().apply(settings());
}

void Stage::setTheme(const QString& theme) {
    settings().colorTheme = named<ColorTheme>(theme);
    Appearance::shared().apply(settings());
}

void Stage::setReducesMotion(bool reduces) {
    Appearance::shared().setReducesMotion(reduces);
}

void Stage::reset() {
    settings() = {};
    Appearance::shared().apply(settings());
    setReducesMotion(true);
}

void Stage::holdKey(QQuickItem* item, int key, int repetitions) {
    send(item->window(), QEvent::KeyPress, key, false);
    for (int repetition = 0; repetition < repetitions; ++repetition) {
        send(item->window(), QEvent::KeyRelease, key, true);
        send(item->window(), QEvent::KeyPress, key, true);
    }
    send(item->window(), QEvent::KeyRelease, key, false);
}

void Stage::setClipboard(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
}

QVariantMap Stage::heard(QQuickItem* item) {
    auto* found = QAccessible::queryAccessibleInterface(item);
    if (found == nullptr) return {};
    const auto state = found->state();
    auto* values = found->valueInterface();
    return {{"name", found->text(QAccessible::Name)},
            {"role", static_cast<int>(found->role())},
            {"value", values == nullptr ? QVariant{} : values->currentValue()},
            {"minimum", values == nullptr ? QVariant{} : values->minimumValue()},
            {"maximum", values == nullptr ? QVariant{} : values->maximumValue()},
            {"checkable", bool(state.checkable)},
            {"checked", bool(state.checked)},
            {"focusable", bool(state.focusable)},
            {"readOnly", bool(state.readOnly)}};
}

bool Stage::act(QQuickItem* item, const QString& action) {
    auto* found = QAccessible::queryAccessibleInterface(item);
    if (found == nullptr || found->actionInterface() == nullptr) return false;
    if (!found->actionInterface()->actionNames().contains(action)) return false;
    found->actionInterface()->doAction(action);
    return true;
}

QColor Stage::pixel(QQuickItem* item, int x, int y) {
    const auto grabbed = item->grabToImage();
    if (grabbed.isNull()) return {};
    QEventLoop loop;
    connect(grabbed.get(), &QQuickItemGrabResult::ready, &loop, &QEventLoop::quit);
    loop.exec();
    return grabbed->image().pixelColor(x, y);
}

bool Stage::hasOwnFace(int weight) {
    QFont font{AppFonts::family()};
    font.setWeight(static_cast<QFont::Weight>(weight));
    const auto face = QRawFont::fromFont(font);
    return QFontInfo{font}.family() == AppFonts::family() && face.weight() == weight;
}

QColor Stage::ground(const QString& theme, double width, double height, double x, double y) {
    std::uint32_t pixel = 0;
    GlowField{ThemeColors::of(named<ColorTheme>(theme)), width, height}.fill(std::span{&pixel, 1}, {x + 0.5, y + 0.5});
    return QColor::fromRgb(pixel);
}

} // namespace velmorin
